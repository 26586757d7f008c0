#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "base/Language.h"

namespace ornivane {

// Why a chart was not imported.
enum class ImportFault {
    NotThere,         // no such file, or no right to read it
    NameNotTaken,     // GDAL would read the name as a description of a chart
    ProgramsMissing,  // gdal-bin is not installed
    NotAChart,        // of no format that is taken, or damaged from the beginning
    NotAPicture,      // heights, or channels that are no colours
    NoPlace,          // nothing says where on the earth it is
    ProjectionNeeded, // its place is in units of a projection that nothing names
    WrongProjection,  // the one that was given is none
    SeveralParts,     // the detail lists them
    NoSuchPart,
    CannotBePlaced, // beyond what its projection can say, or across 180 degrees
    OutsideCut,     // nothing is left within the box
    TooFine,        // more pixels than can be
    Damaged,        // the picture came out other than it was asked for
    BlackAreas,     // damage leaves such behind; or the chart has a black border
    TookTooLong,
    TooMuchMemory,
    DiskFull,
    CannotWrite,
    ProgramFailed,
    Cancelled
};

struct ImportFailure {
    ImportFault Kind = ImportFault::Cancelled;
    std::string Detail; // a file's name, or what the child said; may be empty
    bool operator==(const ImportFailure&) const = default;
};

// One line for the user.
std::string ImportFailureText(const Language& language, const ImportFailure& failure);

// Nothing: it worked.
using ImportOutcome = std::optional<ImportFailure>;

// A value, or why there is none.
template <class Value>
class Imported {
public:
    Imported(Value value) : held(std::move(value)) {}
    Imported(ImportFailure failure) : held(std::move(failure)) {}
    explicit operator bool() const { return held.index() == 0; }
    Value& operator*() { return std::get<0>(held); }
    const Value& operator*() const { return std::get<0>(held); }
    Value* operator->() { return &std::get<0>(held); }
    const Value* operator->() const { return &std::get<0>(held); }
    const ImportFailure& Why() const { return std::get<1>(held); }

private:
    std::variant<Value, ImportFailure> held;
};

} // namespace ornivane
