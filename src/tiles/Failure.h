#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "base/Language.h"

namespace ornivane {

// Why a chart, or the cache of one, is not there. Nothing in this library throws for what files and disks do:
// its work runs in threads, where an exception has nobody to go to.
enum class Fault {
    NotThere,     // no such file, or no right to read it
    CannotRead,   // the device failed, or was pulled out
    NotAPicture,  // of none of the formats
    Damaged,      // of one of them, but what it says of itself cannot be
    TooLarge,     // more pixels a side than a cache can address
    Coefficients, // a progressive JPEG that needs more memory than it may have
    Changed,      // the file was written to while it was read
    DiskFull,
    CannotWrite, // the cache folder
    Cancelled
};

struct Failure {
    Fault Kind = Fault::Cancelled;
    std::string Detail; // of the system or of the decoder, in English; may be empty
    bool operator==(const Failure&) const = default;
};

// One line for the user.
std::string FailureText(const Language& language, const Failure& failure);

// Nothing: it worked.
using Outcome = std::optional<Failure>;

// A value, or why there is none.
template <class Value>
class Result {
public:
    Result(Value value) : held(std::move(value)) {}
    Result(Failure failure) : held(std::move(failure)) {}
    explicit operator bool() const { return held.index() == 0; }
    Value& operator*() { return std::get<0>(held); }
    const Value& operator*() const { return std::get<0>(held); }
    Value* operator->() { return &std::get<0>(held); }
    const Value* operator->() const { return &std::get<0>(held); }
    const Failure& Why() const { return std::get<1>(held); }

private:
    std::variant<Value, Failure> held;
};

} // namespace ornivane
