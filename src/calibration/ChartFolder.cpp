#include "calibration/ChartFolder.h"

#include <algorithm>

#include "base/AtomicFile.h"
#include "base/Numbers.h"
#include "base/Strings.h"
#include "common/SettingsText.h"
#include "map/ChartFiles.h"
#include "store/TextOrder.h"

namespace ornivane {

namespace {

namespace fs = std::filesystem;

constexpr const char* LatDataFile = "LatData.crm";

// chart.jpg has chart.crm. The last three characters are replaced whatever they are: a file beside an image
// of another extension has always been named so.
std::string SideFileName(const std::string& map) { return map.substr(0, map.size() - 3) + "crm"; }

// The lines of a text file, whatever ends them; a last line end begins no further line.
std::vector<std::string> Lines(const std::string& bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') continue;
        text += bytes[i] == '\r' ? '\n' : bytes[i];
    }
    if (text.empty()) return {};
    if (text.back() == '\n') text.pop_back();
    return Split(text, "\n");
}

} // namespace

std::optional<std::vector<std::string>> GetFiles(const fs::path& folder, std::string_view pattern) {
    const std::string ending = LowerAscii(pattern.substr(1));
    const auto matches = [&ending](const std::string& name) {
        return name.front() != '.' && name.size() > ending.size() && IsValidUtf8(name) &&
               LowerAscii(name.substr(name.size() - ending.size())) == ending;
    };
    std::error_code failed;
    std::vector<std::string> names;
    for (fs::directory_iterator entry(folder, failed), end; entry != end; entry.increment(failed)) {
        std::error_code gone;
        const std::string name = entry->path().filename().string();
        if (matches(name) && entry->is_regular_file(gone)) names.push_back(name);
        if (failed) break;
    }
    if (failed) return std::nullopt;
    std::sort(names.begin(), names.end(), [](const std::string& x, const std::string& y) {
        const int order = CompareText(x, y);
        return order != 0 ? order < 0 : x < y;
    });
    return names;
}

std::optional<ChartPlacement> ReadSideFile(const fs::path& folder, const std::string& map) {
    const auto file = FindFileIgnoringCase(folder, SideFileName(map));
    if (!file) return std::nullopt;
    const auto bytes = ReadWholeFile(*file);
    return bytes ? ChartPlacement::FromLines(Lines(*bytes)) : std::nullopt;
}

void WriteSideFile(const fs::path& folder, const std::string& map, const ChartPlacement& placement) {
    std::string bytes;
    for (const std::string& line : placement.Lines()) bytes += line + "\r\n";
    const std::string name = SideFileName(map);
    WriteFileAtomically(FindFileIgnoringCase(folder, name).value_or(folder / name), bytes);
}

void ReadLatData(const fs::path& folder, LatData& data) {
    const auto file = FindFileIgnoringCase(folder, LatDataFile);
    const auto bytes = file ? ReadWholeFile(*file) : std::nullopt;
    if (!bytes) return;
    SettingsReader reader(*bytes);
    const auto read = [&reader](auto& to) {
        const auto value = reader.WholeNumber();
        if (!value || *value < 0 || *value > 1) return false;
        to = static_cast<std::remove_reference_t<decltype(to)>>(*value);
        return true;
    };
    for (Hemisphere& hemisphere : data.Hemispheres)
        if (!read(hemisphere)) return;
    read(data.Preview);
}

void WriteLatData(const fs::path& folder, const LatData& data) {
    SettingsWriter writer;
    for (const Hemisphere hemisphere : data.Hemispheres) writer.WholeNumber(static_cast<int>(hemisphere));
    writer.WholeNumber(data.Preview);
    WriteFileAtomically(folder / LatDataFile, writer.Bytes());
}

} // namespace ornivane
