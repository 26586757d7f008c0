#include "store/RecordsetRows.h"

#include "base/RuntimeError.h"
#include "base/Strings.h"
#include "store/TextOrder.h"

namespace ornivane {

Value ConvertFor(const FieldInfo& field, const Value& value) {
    if (value.IsNull()) return value;
    switch (field.Type) {
    case FieldType::Integer:
        return value.Integer();
    case FieldType::Double:
        return value.Number();
    case FieldType::Boolean:
        return value.Boolean();
    case FieldType::Text:
    case FieldType::Date:
        break;
    }
    std::string text = value.Text();
    if (field.Size > 0 && CharacterCount(text) > static_cast<std::size_t>(field.Size))
        throw RuntimeError(ErrorNumber::Overflow, field.Name);
    return text;
}

int CompareValues(const Value& a, const Value& b) {
    if (a.IsNull() || b.IsNull()) return static_cast<int>(b.IsNull()) - static_cast<int>(a.IsNull());
    const auto* textA = std::get_if<std::string>(&a.Raw());
    const auto* textB = std::get_if<std::string>(&b.Raw());
    if (textA && textB) return CompareText(*textA, *textB);
    if (textA || textB) {
        // A number looked for in a text field, or written as text in a criterion, compares as a number.
        if (!(textA ? a : b).NumberIfAny()) return CompareText(a.Text(), b.Text());
    }
    // True is -1 as a number of the program and 1 in a store.
    if (std::holds_alternative<bool>(a.Raw()) || std::holds_alternative<bool>(b.Raw()))
        return static_cast<int>(a.Boolean()) - static_cast<int>(b.Boolean());
    const double x = a.Number(), y = b.Number();
    return x < y ? -1 : x > y ? 1 : 0;
}

bool Meets(const Value& value, Comparison comparison, const Value& against) {
    if (value.IsNull() || against.IsNull()) return false;
    const int order = CompareValues(value, against);
    return comparison == Comparison::Equal ? order == 0 : order >= 0;
}

std::size_t ColumnOf(const std::vector<FieldInfo>& fields, std::string_view name) {
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (fields[i].Name == name) return i;
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (CompareText(fields[i].Name, name) == 0) return i;
    throw RuntimeError(ErrorNumber::FieldNotFound, std::string(name));
}

} // namespace ornivane
