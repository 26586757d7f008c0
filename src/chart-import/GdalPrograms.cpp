#include "chart-import/GdalPrograms.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>

#include "base/Strings.h"

namespace ornivane {

namespace {

constexpr std::size_t LongestDetail = 200;

bool Holds(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

// In the domain of a projection there are points without a place, which are told as errors and are none.
bool IsOfTransformation(std::string_view line) { return Holds(line, "PROJ:") || Holds(line, "transform"); }

// The first error that a program told; empty without one.
std::string FirstError(std::string_view errors) {
    for (const std::string& line : Split(errors, "\n"))
        if ((line.starts_with("ERROR") || line.starts_with("FAILURE")) && !IsOfTransformation(line)) {
            std::string text = line;
            std::replace_if(
                text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
            return Shortened(DecodeText(text), LongestDetail);
        }
    return {};
}

ImportFailure FailureOf(const ChildEnd& end, ImportFault otherwise) {
    const std::string detail = FirstError(end.Errors);
    const auto says = [&end](std::initializer_list<std::string_view> parts) {
        return std::any_of(parts.begin(), parts.end(), [&](auto part) { return Holds(end.Errors, part); });
    };
    using How = ChildEnd::How;
    if (end.Ended == How::Stopped) return {ImportFault::Cancelled, {}};
    if (end.Ended == How::TookTooLong) return {ImportFault::TookTooLong, {}};
    if (end.Ended == How::CouldNotStart) return {ImportFault::ProgramFailed, {}};
    if (says({"bad_alloc", "out of memory", "Out of memory", "Cannot allocate", "cannot allocate"}))
        return {ImportFault::TooMuchMemory, detail};
    if (says({"No space left", "File too large"})) return {ImportFault::DiskFull, detail};
    if (end.Ended == How::Signalled)
        return {end.Status == SIGKILL ? ImportFault::TooMuchMemory : ImportFault::Damaged,
                "signal " + std::to_string(end.Status)};
    return {otherwise, detail};
}

} // namespace

std::vector<std::string> GdalPrograms::Environment() const {
    std::map<std::string, std::string> all{
        {"GDAL_PAM_ENABLED", "NO"},
        {"GDAL_CACHEMAX", "128"},
        {"GDAL_ERROR_ON_LIBJPEG_WARNING", "TRUE"},
        {"GDAL_CONFIG_FILE", ""},
        // Nothing listens there: what a file refers to on the network is not fetched.
        {"GDAL_HTTP_PROXY", "127.0.0.1:9"},
        {"GDAL_HTTPS_PROXY", "127.0.0.1:9"},
        {"http_proxy", "http://127.0.0.1:9"},
        {"https_proxy", "http://127.0.0.1:9"},
        {"GDAL_HTTP_MAX_RETRY", "0"},
        {"GDAL_HTTP_CONNECTTIMEOUT", "1"},
        {"PROJ_NETWORK", "OFF"},
        {"CPL_TMPDIR", folder.string()},
        {"TMPDIR", folder.string()},
        {"HOME", folder.string()},
        {"LC_ALL", "C.UTF-8"}};
    // Where another installation than the system's has its parts.
    for (const char* name : {"PATH", "LD_LIBRARY_PATH", "GDAL_DATA", "PROJ_DATA", "PROJ_LIB"})
        if (const char* value = std::getenv(name)) all[name] = value;
    for (const auto& [name, value] : more) all[name] = value;
    std::vector<std::string> environment;
    for (const auto& [name, value] : all) environment.push_back(name + '=' + value);
    return environment;
}

Imported<std::string> GdalPrograms::Run(const Call& call, ImportFault otherwise,
                                        const ChildPrograms::Listener& heard) const {
    const auto program = programs.Find(call.Program);
    if (!program) return ImportFailure{ImportFault::ProgramsMissing, call.Program};
    const ChildEnd end =
        programs.Run({*program, call.Arguments, Environment(), call.Input, call.Limits}, stopping, heard);
    if (!end.Succeeded()) return FailureOf(end, otherwise);
    if (const std::string told = FirstError(end.Errors); !told.empty())
        return ImportFailure{ImportFault::Damaged, told};
    return end.Output;
}

} // namespace ornivane
