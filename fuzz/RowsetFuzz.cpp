// Whatever the bytes: a rowset is read or refused, and what was read is written and read again as the same.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/RuntimeError.h"
#include "store/RowsetXml.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ornivane;
    Rowset rowset;
    try {
        rowset = ReadRowset({reinterpret_cast<const char*>(data), size});
        for (const auto& row : rowset.Rows)
            if (row.size() != rowset.Fields.size()) std::abort();
    } catch (const RuntimeError&) {
        return 0;
    }
    try {
        const std::string written = WriteRowset(rowset);
        if (ReadRowset(written).Rows.size() != rowset.Rows.size()) std::abort();
    } catch (const RuntimeError& error) {
        if (error.Number() != ErrorNumber::Overflow && error.Number() != ErrorNumber::TypeMismatch)
            std::abort();
    }
    return 0;
}
