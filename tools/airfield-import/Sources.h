#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ornivane::airfields {

class Collector;

// The contents of airports.csv, runways.csv, airport-frequencies.csv and countries.csv.
struct CsvTexts {
    std::string Airports, Runways;
    std::optional<std::string> Frequencies, Countries;
};

// RuntimeError InvalidCall with its place when a file lacks needed columns.
void ReadCsv(const CsvTexts& texts, Collector& to);

// The same from the files of a folder. RuntimeError FileNotFound when airports.csv or runways.csv is missing
// or any of the files cannot be read; that one of the others is missing is only noted.
void ReadCsvFolder(const std::filesystem::path& folder, Collector& to);

// A database file with the tables airports, runways, runway_ends and frequencies. RuntimeError StoreError
// when it is none or damaged.
void ReadAirportDatabase(const std::filesystem::path& file, Collector& to);

} // namespace ornivane::airfields
