#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace ornivane {

// One field of a row.
class Value {
public:
    Value() = default; // Null
    Value(bool value) : data(value) {}
    Value(int value) : data(static_cast<std::int64_t>(value)) {}
    Value(std::int64_t value) : data(value) {}
    Value(double value) : data(value) {}
    Value(std::string value) : data(std::move(value)) {}
    Value(const char* value) : data(std::string(value)) {}

    bool IsNull() const { return data.index() == 0; }
    // Empty for Null and for a text that is no number (decimal point).
    std::optional<double> NumberIfAny() const;
    // RuntimeError InvalidNull for Null, TypeMismatch for a text that is no number.
    double Number() const;
    std::int64_t Integer() const; // rounds ties to even
    // True for any number but 0.
    bool Boolean() const;
    // Any value as text, numbers with a decimal point; RuntimeError InvalidNull for Null.
    std::string Text() const;
    std::string TextOrEmpty() const { return IsNull() ? std::string() : Text(); } // Null is no text

    bool operator==(const Value&) const = default;
    const auto& Raw() const { return data; }

private:
    std::variant<std::monostate, bool, std::int64_t, double, std::string> data;
};

} // namespace ornivane
