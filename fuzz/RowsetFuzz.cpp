// Whatever the bytes: a rowset is read or refused, and what was read is written and read again as the same.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "base/RuntimeError.h"
#include "store/RowsetXml.h"

namespace {

std::optional<ornivane::Rowset> Read(std::string_view xml) {
    try {
        return ornivane::ReadRowset(xml);
    } catch (const ornivane::RuntimeError&) {
        return std::nullopt;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto rowset = Read({reinterpret_cast<const char*>(data), size});
    if (!rowset) return 0;
    for (const auto& row : rowset->Rows)
        if (row.size() != rowset->Fields.size()) std::abort();
    if (ornivane::ReadRowset(ornivane::WriteRowset(*rowset)).Rows != rowset->Rows) std::abort();
    return 0;
}
