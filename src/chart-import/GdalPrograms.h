#pragma once

#include <functional>
#include <map>

#include "chart-import/ChildPrograms.h"
#include "chart-import/ImportFailure.h"

namespace ornivane {

// GDAL's programs, run so that they keep to themselves: no settings of the user's, no network, no files
// beside the source, and what they say in English.
class GdalPrograms {
public:
    // The folder is for their own temporary files. `settings` hold for all of an import: a virtual copy
    // refers to its source and must find it as it was.
    GdalPrograms(ChildPrograms& children, std::filesystem::path scratch, std::stop_token stop,
                 std::map<std::string, std::string> settings)
        : programs(children), folder(std::move(scratch)), stopping(std::move(stop)),
          more(std::move(settings)) {}

    struct Call {
        std::string Program;
        std::vector<std::string> Arguments;
        std::string Input;
        ChildLimits Limits;
    };
    // What it said on its standard output. An error that it told, although it ended well, is Damaged: what it
    // made then is not what was asked for. `otherwise` is what a failure means that says nothing of memory,
    // time or disk.
    Imported<std::string> Run(const Call& call, ImportFault otherwise,
                              const ChildPrograms::Listener& heard = {}) const;

private:
    std::vector<std::string> Environment() const;

    ChildPrograms& programs;
    std::filesystem::path folder;
    std::stop_token stopping;
    std::map<std::string, std::string> more;
};

} // namespace ornivane
