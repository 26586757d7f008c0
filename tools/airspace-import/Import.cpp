#include "airspace-import/Import.h"

#include <algorithm>
#include <ostream>

#include "airspace-import/OpenAir.h"
#include "airspace-import/StoreWriter.h"

namespace ornivane {

Import::Import(std::ostream& out, std::ostream& errors) : report(out), problems(errors) {}

void Import::Add(const std::string& file, std::string_view bytes) {
    OpenAirContent content = ReadOpenAir(bytes);
    const std::size_t room = MostAirspaces - airspaces.size();
    for (std::size_t i = room; i < content.Airspaces.size(); ++i)
        content.Refusals.push_back(
            {content.Airspaces[i].Line, content.Airspaces[i].Name + ": the store holds 32767 airspaces"});
    if (content.Airspaces.size() > room) content.Airspaces.resize(room);

    for (const Refusal& refusal : content.Refusals)
        problems << file << ':' << refusal.Line << ": " << refusal.Reason << '\n';
    report << file << ": " << content.Records << " airspaces read, " << content.Airspaces.size() << " taken, "
           << content.Refusals.size() << " refusals\n";
    const auto aboveGround = std::ranges::count(content.Airspaces, Limit::Reference::Ground,
                                                [](const Airspace& airspace) { return airspace.High.Of; });
    if (aboveGround > 0)
        report << file << ": " << aboveGround
               << " upper limits above ground are kept as feet above sea level: over high ground these "
                  "airspaces reach higher than the map says\n";

    refused += content.Refusals.size();
    std::move(content.Airspaces.begin(), content.Airspaces.end(), std::back_inserter(airspaces));
}

} // namespace ornivane
