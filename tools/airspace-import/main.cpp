// Makes the store of airspace from OpenAir files.

#include <filesystem>
#include <iostream>
#include <optional>
#include <string_view>
#include <vector>

#include "airspace-import/Import.h"
#include "airspace-import/StoreWriter.h"
#include "base/AtomicFile.h"
#include "base/Language.h"
#include "base/RuntimeError.h"

namespace {

constexpr const char* Usage =
    "airspace-import --date YYYY-MM-DD [--replace] STORE FILE...\n"
    "Makes the airspace store STORE (Luftraum.ovd) from one or more OpenAir files. The date is that of the\n"
    "data, as their publisher tells it; the program shows it. A store that is there is only replaced with\n"
    "--replace. What cannot be used is reported as FILE:LINE: REASON, and the rest is taken.\n"
    "Exit status: 0 everything was taken, 1 something was refused, 2 wrong call, 3 nothing was written.\n";

enum Status { AllTaken = 0, SomeRefused = 1, WrongCall = 2, NothingWritten = 3 };

struct Options {
    std::optional<ornivane::Date> Release;
    bool Replace = false;
    std::filesystem::path Store;
    std::vector<std::string> Files;
};

std::optional<Options> Parse(const std::vector<std::string_view>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--date" && i + 1 < arguments.size() && !options.Release) {
            options.Release = ornivane::ParseDate(arguments[++i]);
            if (!options.Release) return std::nullopt;
        } else if (arguments[i] == "--replace") {
            options.Replace = true;
        } else if (arguments[i].starts_with("-")) {
            return std::nullopt;
        } else if (options.Store.empty()) {
            options.Store = arguments[i];
        } else {
            options.Files.emplace_back(arguments[i]);
        }
    }
    if (!options.Release || options.Files.empty()) return std::nullopt;
    return options;
}

Status Run(const Options& options) {
    ornivane::CheckReplacing(options.Store, options.Replace);
    ornivane::Import import(std::cout, std::cerr);
    for (const std::string& file : options.Files) {
        // A file that is missing is a mistake of the call: a store without a whole country is not what was
        // meant.
        const auto bytes = ornivane::ReadWholeFile(file);
        if (!bytes) throw ornivane::RuntimeError(ornivane::ErrorNumber::FileNotFound, file);
        import.Add(file, *bytes);
    }
    if (import.Airspaces().empty()) {
        std::cerr << "No airspace was found; nothing is written\n";
        return NothingWritten;
    }
    ornivane::WriteAirspaceStore(options.Store, import.Airspaces(), *options.Release, options.Replace);
    std::cout << options.Store.string() << ": " << import.Airspaces().size() << " airspaces, data of "
              << ornivane::DateText(*options.Release) << '\n';
    return import.AllTaken() ? AllTaken : SomeRefused;
}

} // namespace

int main(int count, char** values) {
    const std::vector<std::string_view> arguments(values + 1, values + count);
    if (arguments.size() == 1 && arguments[0] == "--help") {
        std::cout << Usage;
        return AllTaken;
    }
    const auto options = Parse(arguments);
    if (!options) {
        std::cerr << Usage;
        return WrongCall;
    }
    try {
        return Run(*options);
    } catch (const ornivane::RuntimeError& error) {
        std::cerr << ornivane::DescribeError(error, ornivane::Language::English()) << '\n';
        return NothingWritten;
    }
}
