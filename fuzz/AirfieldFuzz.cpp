// Whatever the bytes of the four files: every row is taken or refused, and what comes out is what the program
// can draw.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "airfield-import/Collector.h"
#include "airfield-import/Prefixes.h"
#include "airfield-import/Report.h"
#include "airfield-import/Sources.h"
#include "base/RuntimeError.h"
#include "base/Strings.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ornivane;
    using namespace ornivane::airfields;
    // The four files stand one after another, with a form feed between.
    const auto files = Split({reinterpret_cast<const char*>(data), size}, "\f");
    CsvTexts texts{files[0], files.size() > 1 ? files[1] : "", {}, {}};
    if (files.size() > 2) texts.Frequencies = files[2];
    if (files.size() > 3) texts.Countries = files[3];
    std::ostringstream refusals;
    Report report(refusals);
    Collector collector(report, Extent::Everything);
    try {
        ReadCsv(texts, collector);
    } catch (const RuntimeError&) {
        return 0;
    }
    const auto fields = collector.Release();
    for (const Airfield& field : fields) {
        if (field.Code.size() < 3 || !(field.Latitude >= -90 && field.Latitude <= 90)) std::abort();
        if (LongestRunway(field, true) == 0 && (field.Runways.empty() || field.Runways[0].Paved))
            std::abort();
    }
    static_cast<void>(NamedPrefixes(fields, collector.Countries()));
    return 0;
}
