#include "store/Value.h"

#include <cmath>

#include "base/Numbers.h"
#include "base/RuntimeError.h"

namespace ornivane {

std::optional<double> Value::NumberIfAny() const {
    switch (data.index()) {
    case 0:
        return std::nullopt;
    case 1:
        return std::get<bool>(data) ? -1 : 0; // true has all bits set
    case 2:
        return static_cast<double>(std::get<std::int64_t>(data));
    case 3:
        return std::get<double>(data);
    default:
        return ParsePlainNumber(std::get<std::string>(data));
    }
}

double Value::Number() const {
    if (IsNull()) throw RuntimeError(ErrorNumber::InvalidNull);
    const auto number = NumberIfAny();
    if (!number) throw RuntimeError(ErrorNumber::TypeMismatch, std::get<std::string>(data).substr(0, 40));
    return *number;
}

std::int64_t Value::Integer() const {
    if (const auto* integer = std::get_if<std::int64_t>(&data)) return *integer;
    const double rounded = Round(Number());
    if (!(std::fabs(rounded) < 9.2e18)) throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<std::int64_t>(rounded);
}

bool Value::Boolean() const {
    if (const auto* text = std::get_if<std::string>(&data)) {
        if (*text == "True" || *text == "true") return true;
        if (*text == "False" || *text == "false") return false;
    }
    return Number() != 0;
}

std::string Value::Text() const {
    switch (data.index()) {
    case 0:
        throw RuntimeError(ErrorNumber::InvalidNull);
    case 1:
        return std::get<bool>(data) ? "True" : "False";
    case 2:
        return std::to_string(std::get<std::int64_t>(data));
    case 3:
        return NumberText(std::get<double>(data));
    default:
        return std::get<std::string>(data);
    }
}

} // namespace ornivane
