#pragma once

#include <filesystem>
#include <iosfwd>

#include "airfield-import/AirportList.h"

namespace ornivane::airfields {

struct Options {
    std::filesystem::path Store, Source; // Source: a folder with CSV files, or a database file
    bool Replace = false;
    Extent Take = Extent::Airfields;
};

enum class Outcome { AllTaken = 0, SomeRefused = 1, NothingWritten = 3 };

// The whole import. Refused rows go to errors, one a line with file and line, and what was read and written
// to out. Throws nothing.
Outcome Import(const Options& options, std::ostream& out, std::ostream& errors);

} // namespace ornivane::airfields
