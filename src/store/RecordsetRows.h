#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "store/Recordset.h"

namespace ornivane {

// One row of a recordset. RowId is its identity in the store's table, 0 in a detached recordset.
struct Row {
    std::int64_t RowId = 0;
    std::vector<Value> Values;
    bool Deleted = false;
};

// A value in the form of its field: numbers for number fields, texts for text fields. Null stays Null.
// RuntimeError TypeMismatch when it cannot be, Overflow when a text is longer than the field.
Value ConvertFor(const FieldInfo& field, const Value& value);

// Below 0, 0 or above 0: numbers as numbers, texts by the stores' order, Null before everything.
int CompareValues(const Value& a, const Value& b);

// Null meets no condition.
bool Meets(const Value& value, Comparison comparison, const Value& against);

// The column of that name, upper and lower case being the same. RuntimeError FieldNotFound.
std::size_t ColumnOf(const std::vector<FieldInfo>& fields, std::string_view name);

} // namespace ornivane
