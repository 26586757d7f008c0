#include "flightplan/PlanRow.h"

#include <array>

#include "base/Strings.h"

namespace ornivane {

namespace {

using enum FieldType;

constexpr int NameSize = 30;

Value ToValue(const Value& value) { return value; }
template <Axis axis>
Value ToValue(StoredCoordinate<axis> value) {
    return value.Value();
}
template <typename T>
Value ToValue(const std::optional<T>& value) {
    return value ? ToValue(*value) : Value();
}

void Take(double& member, const Value& value) { member = value.Number(); }
void Take(int& member, const Value& value) { member = static_cast<int>(value.Integer()); }
void Take(std::string& member, const Value& value) { member = value.TextOrEmpty(); }
void Take(std::optional<std::string>& member, const Value& value) {
    if (!value.IsNull()) member = value.Text();
}
template <typename T>
void Take(std::optional<T>& member, const Value& value) {
    if (!value.IsNull()) member = T(value.Number());
}

// A field of the plan file and the member that it keeps.
struct Field {
    const char* Name;
    FieldType Type;
    int Size; // characters of a text
    Value (*Get)(const PlanRow& row);
    void (*Set)(PlanRow& row, const Value& value);
};
template <auto Member>
constexpr Field Of(const char* name, FieldType type = Double, int size = 0) {
    return {name, type, size, [](const PlanRow& row) { return ToValue(row.*Member); },
            [](PlanRow& row, const Value& value) { Take(row.*Member, value); }};
}

// The first NameSize characters.
Value Cut(const std::string& name) {
    std::size_t end = 0;
    while (end < name.size() &&
           CharacterCount(std::string_view(name).substr(0, end + 1)) <= std::size_t{NameSize})
        ++end;
    return name.substr(0, end);
}

constexpr std::array Fields{Of<&PlanRow::Id>("Id", Text, 10),
                            Of<&PlanRow::Nr>("Nr", Integer),
                            Field{"Name", Text, NameSize, [](const PlanRow& row) { return Cut(row.Name); },
                                  [](PlanRow& row, const Value& value) { Take(row.Name, value); }},
                            Of<&PlanRow::TC>("TC"),
                            Of<&PlanRow::Distanz>("Distanz"),
                            Of<&PlanRow::DistanzAcc>("DistanzAcc"),
                            Of<&PlanRow::TAS>("TAS"),
                            Of<&PlanRow::Wind>("Wind", Text, WindSize),
                            Of<&PlanRow::Windrichtung>("Windrichtung"),
                            Of<&PlanRow::Windstärke>("Windstärke"),
                            Of<&PlanRow::GS>("GS"),
                            Of<&PlanRow::Zeit>("Zeit"),
                            Of<&PlanRow::ZeitDisplay>("ZeitDisplay", Text, 10),
                            Of<&PlanRow::ZeitAcc>("ZeitAcc", Text, 10),
                            Of<&PlanRow::FFh>("FFh"),
                            Of<&PlanRow::FFm>("FFm"),
                            Of<&PlanRow::FFmAcc>("FFmAcc"),
                            Of<&PlanRow::MH>("MH"),
                            Of<&PlanRow::VAR>("VAR"),
                            Of<&PlanRow::LAT>("LAT"),
                            Of<&PlanRow::LONG>("LONG")};

void Write(Recordset& plan, const PlanRow& row) {
    for (const Field& field : Fields) plan.Set(field.Name, field.Get(row));
    plan.Update();
}

} // namespace

double& LegInputs::operator[](PlanEntry entry) {
    return *std::array{&VAR, &FFh, &TAS, &Windrichtung, &Windstärke}.at(static_cast<std::size_t>(entry));
}

const char* LegInputs::FieldOf(PlanEntry entry) {
    return std::array{"VAR", "FFh", "TAS", "Windrichtung", "Windstärke"}.at(static_cast<std::size_t>(entry));
}

void FillPlan(Recordset& plan, const std::vector<PlanRow>& rows) {
    for (const Field& field : Fields) plan.AppendField({field.Name, field.Type, field.Size, true});
    plan.OpenDetached();
    for (const PlanRow& row : rows) {
        plan.AddNew();
        Write(plan, row);
    }
    if (!rows.empty()) plan.MoveFirst();
}

std::vector<PlanRow> PlanRows(const Recordset& plan) {
    std::vector<PlanRow> rows(static_cast<std::size_t>(plan.RecordCount()));
    int place = 0;
    for (PlanRow& row : rows) {
        for (const Field& field : Fields) field.Set(row, plan.ValueAt(place, field.Name));
        ++place;
    }
    return rows;
}

void UpdatePlan(Recordset& plan, const std::vector<PlanRow>& rows) {
    const int position = plan.AbsolutePosition();
    int place = 0;
    for (const PlanRow& row : rows) {
        plan.SetAbsolutePosition(++place);
        Write(plan, row);
    }
    if (position > 0) plan.SetAbsolutePosition(position);
}

} // namespace ornivane
