#include "common/DisplayFlags.h"

#include "base/AtomicFile.h"
#include "common/SettingsText.h"

namespace ornivane {

constexpr const char* FileName = "Set.crm";

bool ReadDisplayFlags(const std::filesystem::path& folder, DisplayFlags& flags) {
    SettingsReader reader(ReadWholeFile(folder / FileName).value_or(""));
    for (const DisplayFlag& entry : DisplayFlagTable) {
        const auto value = reader.Boolean();
        if (!value) return false;
        flags.*entry.Flag = *value;
    }
    return true;
}

void WriteDisplayFlags(const std::filesystem::path& folder, const DisplayFlags& flags) {
    SettingsWriter writer;
    for (const DisplayFlag& entry : DisplayFlagTable) writer.Boolean(flags.*entry.Flag);
    WriteFileAtomically(folder / FileName, writer.Bytes());
}

} // namespace ornivane
