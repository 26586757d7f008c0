#include "base/RuntimeError.h"

#include <array>
#include <utility>

#include "base/Language.h"

namespace ornivane {

namespace {

struct ErrorText {
    ErrorNumber Number;
    const char* German;
    const char* English;
};

constexpr std::array<ErrorText, 17> ErrorTexts{{
    {ErrorNumber::InvalidCall, "Ungültiger Aufruf", "Invalid procedure call"},
    {ErrorNumber::Overflow, "Überlauf", "Overflow"},
    {ErrorNumber::SubscriptOutOfRange, "Index außerhalb des gültigen Bereichs", "Subscript out of range"},
    {ErrorNumber::DivisionByZero, "Division durch Null", "Division by zero"},
    {ErrorNumber::TypeMismatch, "Typen unverträglich", "Type mismatch"},
    {ErrorNumber::BadFileName, "Ungültiger Dateiname", "Bad file name"},
    {ErrorNumber::FileNotFound, "Datei nicht gefunden", "File not found"},
    {ErrorNumber::FileAlreadyOpen, "Datei bereits geöffnet", "File already open"},
    {ErrorNumber::DeviceError, "Gerätefehler", "Device I/O error"},
    {ErrorNumber::DiskFull, "Datenträger voll", "Disk full"},
    {ErrorNumber::PermissionDenied, "Zugriff verweigert", "Permission denied"},
    {ErrorNumber::PathNotFound, "Pfad nicht gefunden", "Path not found"},
    {ErrorNumber::InvalidNull, "Unzulässige Verwendung von Null", "Invalid use of Null"},
    {ErrorNumber::NoCurrentRecord, "Kein aktueller Datensatz", "No current record"},
    {ErrorNumber::FieldNotFound, "Feld nicht gefunden", "Field not found"},
    {ErrorNumber::ObjectClosed, "Die Datenmenge ist geschlossen", "The recordset is closed"},
    {ErrorNumber::StoreError, "Fehler im Datenspeicher", "Data store error"},
}};

const ErrorText& TextOf(ErrorNumber number) {
    for (const ErrorText& text : ErrorTexts)
        if (text.Number == number) return text;
    return ErrorTexts.front();
}

} // namespace

RuntimeError::RuntimeError(ErrorNumber errorNumber, std::string errorDetail)
    : std::runtime_error(TextOf(errorNumber).English + (errorDetail.empty() ? "" : ": " + errorDetail)),
      number(errorNumber), detail(std::move(errorDetail)) {}

RuntimeError Located(const std::string& place, const RuntimeError& error) {
    return RuntimeError(error.Number(), error.Detail().empty() ? place : place + ": " + error.Detail());
}

std::string DescribeError(const RuntimeError& error, const Language& language) {
    const ErrorText& text = TextOf(error.Number());
    std::string result = std::string(language.Text(text.German, text.English)) + " (" +
                         std::to_string(static_cast<int>(error.Number())) + ")";
    if (!error.Detail().empty()) result += ": " + error.Detail();
    return result;
}

} // namespace ornivane
