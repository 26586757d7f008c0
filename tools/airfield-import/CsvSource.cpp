#include <initializer_list>
#include <string>

#include "airfield-import/Collector.h"
#include "airfield-import/CsvTable.h"
#include "airfield-import/Report.h"
#include "airfield-import/Sources.h"
#include "base/AtomicFile.h"
#include "base/RuntimeError.h"

namespace ornivane::airfields {

namespace {

using Columns = std::initializer_list<std::string_view>;

template <typename TakeRow>
void ReadRows(std::string_view name, const std::string& text, const Columns& needed, Report& report,
              const TakeRow& take) {
    CsvTable table(name, needed, text);
    while (table.Next(report)) take(table);
}

std::string Needed(const std::filesystem::path& file) {
    auto text = ReadWholeFile(file);
    if (!text) throw RuntimeError(ErrorNumber::FileNotFound, file.string());
    return std::move(*text);
}

// Empty, and a note, when the file is not there: the store is of use without it.
std::optional<std::string> Wanted(const std::filesystem::path& file, Report& report) {
    if (std::error_code error; std::filesystem::exists(file, error)) return Needed(file);
    report.Note(file.string() + " is not there");
    return std::nullopt;
}

void TakeAirport(const CsvTable& row, Collector& to) {
    to.Take(AirportRecord{row.Where(), row.Field("id"), row.Field("ident"), row.Field("type"),
                          row.Field("icao_code"), row.Field("gps_code"), row.Field("latitude_deg"),
                          row.Field("longitude_deg"), row.Field("iso_country")});
}

void TakeRunway(const CsvTable& row, Collector& to) {
    to.Take(RunwayRecord{row.Where(), row.Field("airport_ref"), row.Field("airport_ident"),
                         row.Field("length_ft"), row.Field("surface"), row.Field("lighted"),
                         row.Field("closed"), row.Field("le_ident"), row.Field("le_heading_degT"),
                         row.Field("he_ident"), row.Field("he_heading_degT")});
}

void TakeFrequency(const CsvTable& row, Collector& to) {
    to.Take(FrequencyRecord{row.Where(), row.Field("airport_ref"), row.Field("airport_ident"),
                            row.Field("type"), row.Field("description"), row.Field("frequency_mhz")});
}

} // namespace

void ReadCsv(const CsvTexts& texts, Collector& to) {
    Report& report = to.Refusals();
    if (texts.Countries)
        ReadRows("countries.csv", *texts.Countries, {"code", "name"}, report, [&](const CsvTable& row) {
            to.Take(CountryRecord{row.Where(), row.Field("code"), row.Field("name")});
        });
    ReadRows("airports.csv", texts.Airports,
             {"ident", "type", "latitude_deg", "longitude_deg", "iso_country"}, report,
             [&](const CsvTable& row) { TakeAirport(row, to); });
    to.EndOfAirports();
    ReadRows("runways.csv", texts.Runways, {"airport_ident", "length_ft", "surface"}, report,
             [&](const CsvTable& row) { TakeRunway(row, to); });
    if (texts.Frequencies)
        ReadRows("airport-frequencies.csv", *texts.Frequencies, {"airport_ident", "type", "frequency_mhz"},
                 report, [&](const CsvTable& row) { TakeFrequency(row, to); });
}

void ReadCsvFolder(const std::filesystem::path& folder, Collector& to) {
    Report& report = to.Refusals();
    ReadCsv({Needed(folder / "airports.csv"), Needed(folder / "runways.csv"),
             Wanted(folder / "airport-frequencies.csv", report), Wanted(folder / "countries.csv", report)},
            to);
}

} // namespace ornivane::airfields
