#include "airfield-import/Import.h"

#include <new>
#include <ostream>

#include "airfield-import/Collector.h"
#include "airfield-import/Prefixes.h"
#include "airfield-import/Report.h"
#include "airfield-import/Sources.h"
#include "airfield-import/StoreWriter.h"
#include "base/Language.h"
#include "base/RuntimeError.h"

namespace ornivane::airfields {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Refuse(const fs::path& file, const char* reason) {
    throw RuntimeError(ErrorNumber::PermissionDenied, file.string() + reason);
}

void CheckTarget(const Options& options) {
    std::error_code error;
    if (fs::exists(options.Store, error) && !fs::is_regular_file(options.Store, error))
        Refuse(options.Store, " is no file");
    if (fs::equivalent(options.Store, options.Source, error))
        Refuse(options.Store, " is what would be imported");
    CheckReplacing(options.Store, options.Replace);
}

void Summarize(const Collector::Counts& read, const Written& written, const Report& report,
               std::ostream& out) {
    out << "read: " << read.Airports << " airports, " << read.Runways << " runways, " << read.Frequencies
        << " frequencies\n";
    for (const auto& [reason, count] : report.LeftOut())
        out << "left out: " << count << ' ' << reason << '\n';
    out << "refused: " << report.Refused() << " rows\n";
    out << "written: " << written.Airfields << " airfields, " << written.Runways << " runways, "
        << written.Stations << " stations, " << written.Prefixes << " country prefixes\n";
}

Outcome Run(const Options& options, std::ostream& out, Report& report) {
    CheckTarget(options);
    Collector collector(report, options.Take);
    if (fs::is_directory(options.Source))
        ReadCsvFolder(options.Source, collector);
    else
        ReadAirportDatabase(options.Source, collector);
    const auto fields = collector.Release();
    if (fields.empty()) throw RuntimeError(ErrorNumber::InvalidCall, "there is no airfield to write");
    const auto prefixes = NamedPrefixes(fields, collector.Countries());
    const Written written = WriteStore(options.Store, fields, prefixes, options.Replace);
    Summarize(collector.Read(), written, report, out);
    return report.Refused() == 0 ? Outcome::AllTaken : Outcome::SomeRefused;
}

} // namespace

Outcome Import(const Options& options, std::ostream& out, std::ostream& errors) {
    Report report(errors);
    try {
        return Run(options, out, report);
    } catch (const RuntimeError& error) {
        errors << DescribeError(error, Language::English()) << '\n';
    } catch (const std::bad_alloc&) {
        errors << "not enough memory\n";
    } catch (const fs::filesystem_error& error) {
        errors << error.what() << '\n';
    }
    errors << options.Store.string() << ": nothing was written\n";
    return Outcome::NothingWritten;
}

} // namespace ornivane::airfields
