#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/Recordset.h"

namespace ornivane {

// The content of a persisted recordset.
struct Rowset {
    std::vector<FieldInfo> Fields;
    std::vector<std::vector<Value>> Rows; // as many values as fields
};

// The XML form in which ADO persists recordsets (schema namespace uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882),
// UTF-8 without a declaration, as ADO writes it. Null is an attribute that is missing.
std::string WriteRowset(const Rowset& rowset);

// Reads what WriteRowset and ADO write: any prefixes, aliases (rs:name), rs:insert, rs:update and rs:delete
// blocks, UTF-8 and UTF-16. Nothing outside the text is ever resolved. RuntimeError TypeMismatch with the
// reason when it is no such XML, a value does not fit its field, or it is beyond 32 MiB, 1000 fields or four
// million values.
Rowset ReadRowset(std::string_view xml);

} // namespace ornivane
