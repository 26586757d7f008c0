#include "flightplan/PlanRow.h"

#include <array>

#include "base/Strings.h"

namespace ornivane {

namespace {

constexpr std::size_t NameSize = 30;

Value OrNull(const std::optional<double>& value) { return value ? Value(*value) : Value(); }
Value OrNull(const std::string& text) { return text.empty() ? Value() : Value(text); }

std::optional<double> Optional(const Value& value) {
    return value.IsNull() ? std::nullopt : std::optional(value.Number());
}

// The first so many characters.
std::string Cut(const std::string& text, std::size_t characters) {
    std::size_t end = 0;
    while (end < text.size() && CharacterCount(std::string_view(text).substr(0, end + 1)) <= characters)
        ++end;
    return text.substr(0, end);
}

void SetLeg(Recordset& plan, const PlanRow& row) {
    plan.Set("TAS", row.TAS);
    plan.Set("Wind", row.Wind);
    plan.Set("Windrichtung", row.Windrichtung);
    plan.Set("Windstärke", row.Windstärke);
    plan.Set("GS", row.GS);
    plan.Set("Zeit", row.Zeit);
    plan.Set("ZeitDisplay", row.ZeitDisplay);
    plan.Set("ZeitAcc", OrNull(row.ZeitAcc));
    plan.Set("FFh", row.FFh);
    plan.Set("FFm", row.FFm);
    plan.Set("FFmAcc", OrNull(row.FFmAcc));
    plan.Set("MH", row.MH);
    plan.Set("VAR", row.VAR);
}

} // namespace

void FillPlan(Recordset& plan, const std::vector<PlanRow>& rows) {
    using enum FieldType;
    for (const auto& [name, type, size] :
         {std::tuple{"Id", Text, 10},  {"Nr", Integer, 0},
          {"Name", Text, 30},          {"TC", Double, 0},
          {"Distanz", Double, 0},      {"DistanzAcc", Double, 0},
          {"TAS", Double, 0},          {"Wind", Text, static_cast<int>(WindSize)},
          {"Windrichtung", Double, 0}, {"Windstärke", Double, 0},
          {"GS", Double, 0},           {"Zeit", Double, 0},
          {"ZeitDisplay", Text, 10},   {"ZeitAcc", Text, 10},
          {"FFh", Double, 0},          {"FFm", Double, 0},
          {"FFmAcc", Double, 0},       {"MH", Double, 0},
          {"VAR", Double, 0},          {"LAT", Double, 0},
          {"LONG", Double, 0}})
        plan.AppendField({name, type, size, true});
    plan.OpenDetached();
    for (const PlanRow& row : rows) {
        plan.AddNew();
        plan.Set("Id", row.Id);
        plan.Set("Nr", row.Nr);
        plan.Set("Name", Cut(row.Name, NameSize));
        plan.Set("TC", row.TC);
        plan.Set("Distanz", row.Distanz);
        plan.Set("DistanzAcc", OrNull(row.DistanzAcc));
        plan.Set("LAT", OrNull(row.LAT));
        plan.Set("LONG", OrNull(row.LONG));
        SetLeg(plan, row);
        plan.Update();
    }
    if (!rows.empty()) plan.MoveFirst();
}

std::vector<PlanRow> PlanRows(const Recordset& plan) {
    std::vector<PlanRow> rows;
    for (int i = 0; i < plan.RecordCount(); ++i) {
        const auto get = [&plan, i](const char* field) { return plan.ValueAt(i, field); };
        PlanRow row;
        row.Id = get("Id").TextOrEmpty();
        row.Nr = static_cast<int>(get("Nr").Integer());
        row.Name = get("Name").TextOrEmpty();
        row.TC = get("TC").Number();
        row.Distanz = get("Distanz").Number();
        row.DistanzAcc = Optional(get("DistanzAcc"));
        row.TAS = get("TAS").Number();
        row.Wind = get("Wind").TextOrEmpty();
        row.Windrichtung = get("Windrichtung").Number();
        row.Windstärke = get("Windstärke").Number();
        row.GS = get("GS").Number();
        row.Zeit = get("Zeit").Number();
        row.ZeitDisplay = get("ZeitDisplay").TextOrEmpty();
        row.ZeitAcc = get("ZeitAcc").TextOrEmpty();
        row.FFh = get("FFh").Number();
        row.FFm = get("FFm").Number();
        row.FFmAcc = Optional(get("FFmAcc"));
        row.MH = get("MH").Number();
        row.VAR = get("VAR").Number();
        row.LAT = Optional(get("LAT"));
        row.LONG = Optional(get("LONG"));
        rows.push_back(std::move(row));
    }
    return rows;
}

void UpdatePlan(Recordset& plan, const std::vector<PlanRow>& rows) {
    const int position = plan.AbsolutePosition();
    int place = 0;
    for (const PlanRow& row : rows) {
        plan.SetAbsolutePosition(++place);
        SetLeg(plan, row);
        plan.Update();
    }
    if (position > 0) plan.SetAbsolutePosition(position);
}

} // namespace ornivane
