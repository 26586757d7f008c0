#include <array>
#include <string>

#include "airfield-import/Collector.h"
#include "airfield-import/Sources.h"
#include "store/Connection.h"
#include "store/Statement.h"

namespace ornivane::airfields {

namespace {

// The first end that was entered is the lower one.
constexpr const char* RunwaysWithEnds =
    "SELECT r.id, r.airport_id, r.length_ft, r.surface, r.lighted, l.ident, l.heading_degT, h.ident, "
    "h.heading_degT FROM runways r "
    "LEFT JOIN (SELECT runway_id, min(id) AS low, max(id) AS high FROM runway_ends GROUP BY runway_id) e "
    "ON e.runway_id = r.id "
    "LEFT JOIN runway_ends l ON l.id = e.low "
    "LEFT JOIN runway_ends h ON h.id = e.high AND e.high <> e.low ORDER BY r.id";

class DatabaseReader {
public:
    DatabaseReader(const std::filesystem::path& file, Collector& to)
        : name(file.filename().string()), collector(to) {
        connection.Open(file, Connection::Mode::ReadOnly);
    }

    void Read() {
        Transaction oneState(connection);
        ReadAirports();
        collector.EndOfAirports();
        ReadRunways();
        ReadFrequencies();
    }

private:
    void ReadAirports() {
        const std::string table = name + ":airports";
        Statement row(connection, "SELECT id, icao, type, latitude, longitude, country_code, country "
                                  "FROM airports ORDER BY id");
        while (row.Step()) {
            const Place place{table, row.Integer(0)};
            collector.Take(AirportRecord{
                place, row.Text(0), row.Text(1), row.Text(2), {}, {}, row.Text(3), row.Text(4), row.Text(5)});
            // A country's name is given with each of its airports.
            if (!row.Text(5).empty() && !row.Text(6).empty())
                collector.Take(CountryRecord{place, row.Text(5), row.Text(6)});
        }
    }

    void ReadRunways() {
        const std::string table = name + ":runways";
        Statement row(connection, RunwaysWithEnds);
        while (row.Step())
            collector.Take(RunwayRecord{{table, row.Integer(0)},
                                        row.Text(1),
                                        {},
                                        row.Text(2),
                                        row.Text(3),
                                        row.Text(4),
                                        {},
                                        row.Text(5),
                                        row.Text(6),
                                        row.Text(7),
                                        row.Text(8)});
    }

    void ReadFrequencies() {
        constexpr std::array Kinds = {"ATIS", "TWR", "GND", "CLD", "UNICOM", "APP", "DEP"};
        const std::string table = name + ":frequencies";
        Statement row(connection,
                      "SELECT airport_id, atis, tower, ground, clearance, unicom, approach, departure "
                      "FROM frequencies ORDER BY airport_id");
        while (row.Step()) {
            const Place place{table, row.Integer(0)};
            for (std::size_t i = 0; i < Kinds.size(); ++i)
                if (const auto frequency = row.Text(static_cast<int>(i) + 1); !frequency.empty())
                    collector.Take(FrequencyRecord{place, row.Text(0), {}, Kinds[i], {}, frequency});
        }
    }

    std::string name;
    Collector& collector;
    Connection connection;
};

} // namespace

void ReadAirportDatabase(const std::filesystem::path& file, Collector& to) {
    DatabaseReader(file, to).Read();
}

} // namespace ornivane::airfields
