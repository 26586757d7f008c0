#pragma once

#include <optional>
#include <stdexcept>
#include <string>

namespace ornivane {

struct Language;

// The kinds of run-time error, under the numbers that users of the program have always read in them.
enum class ErrorNumber {
    InvalidCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    BadFileName = 52,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceError = 57,
    DiskFull = 61,
    PermissionDenied = 70,
    PathNotFound = 76,
    InvalidNull = 94,
    NoCurrentRecord = 3021,
    FieldNotFound = 3265,
    ObjectClosed = 3704,
    StoreError = 3706,
};

// The event in which this happens ends there; the top of the event loop catches it and shows a notice that
// does not block. It is for mistakes that no rule of the program foresees, never for bad input from outside
// where the consumer has a rule of its own.
class RuntimeError : public std::runtime_error {
public:
    explicit RuntimeError(ErrorNumber number, std::string detail = {});

    ErrorNumber Number() const { return number; }
    // What exactly was wrong (a field's name, a reason of the system); may be empty. Not translated.
    const std::string& Detail() const { return detail; }

private:
    ErrorNumber number;
    std::string detail;
};

// The same error with the place where it happened, a file and what of it, in front of its detail.
RuntimeError Located(const std::string& place, const RuntimeError& error);

// The run-time error that ends `action`, if one does: for the places whose rule says what follows an error,
// instead of the end of the event.
template <typename Action>
[[nodiscard]] std::optional<RuntimeError> ErrorOf(Action&& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error;
    }
    return std::nullopt;
}

// Runs `action` and goes on without a word when a run-time error ends it: only where that is the rule. The
// caller says in a comment why nothing is lost.
template <typename Action>
void IgnoreErrors(Action&& action) {
    static_cast<void>(ErrorOf(action));
}

// Runs `action`. When any exception ends it, `restore` brings what is shown back in line with what is stored,
// and then the exception goes on. `restore` may throw (it often reads a list again), which a destructor must
// not.
template <typename Action, typename Restore>
void RestoreOnError(Action&& action, Restore&& restore) {
    try {
        action();
    } catch (...) {
        restore();
        throw;
    }
}

// "Overflow (6)" or "Überlauf (6)", with the detail behind it when there is one.
std::string DescribeError(const RuntimeError& error, const Language& language);

} // namespace ornivane
