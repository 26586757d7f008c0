#include "airfield-import/Import.h"

#include <algorithm>
#include <fstream>
#include <random>
#include <sstream>

#include <gmock/gmock.h>
#include <sqlite3.h>

#include "store/Schema.h"
#include "support/Rows.h"
#include "support/TemporaryFolder.h"

using namespace ornivane;
using namespace ornivane::airfields;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr const char* Airports =
    "\xEF\xBB\xBFiso_country,\"ident\",name,type,latitude_deg,longitude_deg,gps_code,id\r\n"
    "DE,EDKB,\"Bonn, \"\"Hangelar\"\"\",small_airport,50.7689,7.1633,EDKB,1\r\n"
    "DE,ETNN,Nörvenich,medium_airport,50.83,6.66,,2\r\n"
    "CH,LSZZ,Two lines,small_airport,91,8,,3\r\n"
    "CH,LSZG,Grenchen,small_airport,47.1816,7.4172,,4\r\n"
    "DE,EDXC,Closed,closed,50,7,,5\r\n"
    "DE,DE-0001,Strip,small_airport,50.1,7.1,EDKB,6\r\n"
    "DE,DE-0002,Strip,small_airport,50.2,7.2,EDXY,7\r\n"
    "DE,EDHP,Hospital,heliport,50.3,7.3,,8\r\n"
    "US,KAAA,Field,small_airport,40,-90,,9\r\n"
    "US,ED12,Strip,small_airport,40,-90,,10\r\n"
    "US,K1B2,Strip,small_airport,40.5,-90.5,,11\r\n"
    "DE,\"EDYY,Open,small_airport,50,7,,12\r\n";
constexpr const char* Runways =
    "id,airport_ref,airport_ident,length_ft,surface,lighted,closed,le_ident,le_heading_degT,he_ident\n"
    "1,1,EDKB,2625,ASP,1,0,11,109.4,29\n"
    "2,1,EDKB,1969,GRASS,0,0,11R,,29L\n"
    "3,1,EDKB,9000,ASP,1,1,01,,19\n"
    "4,2,ETNN,-5,CON,1,0,07,,25\n"
    "5,2,ETNN,1e9,CON,1,0,07,,25\n"
    "6,,LSZG,,ASP,1,0,6,,24\n"
    "7,9,KAAA,3999,,0,0,18,,36\n"
    "8,99,XXXX,3000,ASP,0,0,18,,36\n"
    "9,11,K1B2,3000\n";
constexpr const char* Frequencies = "airport_ident,type,description,frequency_mhz\n"
                                    "EDKB,TWR,Hangelar,119.02\n"
                                    "EDKB,ATIS,,abc\n"
                                    "EDKB,TWR,Military,279.15\n";
constexpr const char* Countries = "code,name\nDE,Germany\nCH,Switzerland\nUS,United States\n";

struct Imported {
    Imported() { WriteAll(Airports, Runways); }
    void WriteAll(std::string_view airports, std::string_view runways) {
        Write("airports.csv", airports);
        Write("runways.csv", runways);
        Write("airport-frequencies.csv", Frequencies);
        Write("countries.csv", Countries);
    }
    void Write(const char* name, std::string_view text) const {
        std::ofstream(Folder.Path() / name, std::ios::binary) << text;
    }
    Outcome Run() {
        std::ostringstream out, errors;
        const Outcome outcome = Import(Settings, out, errors);
        Out = out.str();
        Errors = errors.str();
        return outcome;
    }
    // Each row's values with a blank between.
    std::vector<std::string> Query(const std::string& sql) const {
        Connection store;
        store.Open(Settings.Store, Connection::Mode::ReadOnly);
        return RowsOf(store, sql, NumbersAs::Shown);
    }

    TemporaryFolder Folder;
    Options Settings{Folder.Path() / "ovdata.ovd", Folder.Path()};
    std::string Out, Errors;
};

// Rows that would end the drawing of the map, or an import of a country.
constexpr const char* Undrawable =
    "SELECT ICAO FROM ARPT a WHERE NOT EXISTS (SELECT 1 FROM RWY r WHERE r.ICAO = a.ICAO AND r.Surface = "
    "CASE WHEN a.RWYALen > 0 THEN '0' ELSE '1' END) "
    "OR substr(ICAO, 1, 2) NOT IN (SELECT ICAO FROM ICAOCODE)";

} // namespace

TEST(AirfieldImport, WritesWhatTheProgramReads) {
    Imported import;
    EXPECT_EQ(import.Run(), Outcome::SomeRefused);
    EXPECT_THAT(import.Query("SELECT * FROM ARPT ORDER BY ICAO"),
                ElementsAre("EDKB 800 600 50.7689 7.1633", "EDXY 0 0 50.2 7.2", "ETNN 0 0 50.83 6.66",
                            "K1B2 0 0 40.5 -90.5", "KAAA 1219 0 40 -90", "LSZG 0 0 47.1816 7.4172"));
    EXPECT_THAT(import.Query("SELECT * FROM RWY ORDER BY ICAO, LENGTH DESC"),
                ElementsAre("EDKB 800 0 11/29 109", "EDKB 600 1 11R/29L 110", "EDXY 0 1  ", "ETNN 0 1  ",
                            "K1B2 0 1  ", "KAAA 1219 0 18/36 180", "LSZG 0 1 06/24 060"));
    EXPECT_THAT(import.Query("SELECT * FROM ACOM"), ElementsAre("EDKB Hangelar TWR 119.025"));
    EXPECT_THAT(import.Query("SELECT * FROM ICAOCODE ORDER BY ICAO"),
                ElementsAre("ED Germany (ED)", "ET Germany (ET)", "K1 United States (K1)",
                            "KA United States (KA)", "LS Switzerland"));
    EXPECT_TRUE(import.Query(Undrawable).empty());
}

TEST(AirfieldImport, TellsEachRefusedRowWithFileAndLine) {
    Imported import;
    import.Run();
    EXPECT_EQ(import.Errors, "airports.csv:4: latitude \"91\" is no number from -90 to 90\n"
                             "airports.csv:7: EDKB is the code of the airport in line 2\n"
                             "airports.csv:13: a quote that is not closed\n"
                             "runways.csv:5: length \"-5\" is no number from 0 to 50000\n"
                             "runways.csv:6: length \"1e9\" is no number from 0 to 50000\n"
                             "runways.csv:9: there is no airport \"XXXX\"\n"
                             "runways.csv:10: 4 fields where 10 belong\n"
                             "airport-frequencies.csv:3: frequency \"abc\" is none in MHz\n");
    for (const char* line : {"read: 11 airports, 8 runways, 3 frequencies\n", "left out: 1 closed airports\n",
                             "left out: 1 heliports and balloonports\n", "left out: 1 closed runways\n",
                             "left out: 1 airports with a national code under another country's prefix\n",
                             "left out: 1 frequencies outside 108 to 137 MHz\n", "refused: 8 rows\n"})
        EXPECT_THAT(import.Out, HasSubstr(line));
}

TEST(AirfieldImport, TakesEveryAirportWhenAsked) {
    Imported import;
    import.Settings.Take = Extent::Everything;
    import.Run();
    EXPECT_EQ(import.Out.find("airports\nleft out"), std::string::npos);
    EXPECT_EQ(import.Out.find("left out: 1 closed airports"), std::string::npos);
    EXPECT_EQ(import.Out.find("heliports"), std::string::npos);
    EXPECT_THAT(import.Query("SELECT count(*) FROM ARPT"), ElementsAre("9")); // of 11, one damaged, one twice
    EXPECT_TRUE(import.Query(Undrawable).empty());
}

TEST(AirfieldImport, ReplacesAStoreOnlyWhenAskedAndOnlyByACompleteOne) {
    Imported import;
    CreateStore(import.Settings.Store, StoreKind::Airfields);
    const std::string before = import.Folder.Bytes("ovdata.ovd");
    EXPECT_EQ(import.Run(), Outcome::NothingWritten);
    import.Settings.Replace = true;
    const std::pair<const char*, const char*> broken[] = {
        {"", Runways}, {"ident,type\nEDKB,x\n", Runways}, {Airports, "\"open"}, {"ident,type", ""}};
    for (const auto& [airports, runways] : broken) {
        import.WriteAll(airports, runways);
        EXPECT_EQ(import.Run(), Outcome::NothingWritten);
        EXPECT_THAT(import.Errors, HasSubstr("nothing was written"));
    }
    EXPECT_EQ(import.Folder.Bytes("ovdata.ovd"), before);
    import.WriteAll("ident,type,latitude_deg,longitude_deg,iso_country\nEDKB,small_airport,50,7,DE\n",
                    Runways);
    std::filesystem::remove(import.Folder.Path() / "countries.csv");
    import.Run();
    EXPECT_THAT(import.Query("SELECT * FROM ICAOCODE"), ElementsAre("ED DE"));
    EXPECT_EQ(import.Folder.Files(), 4) << "a temporary file is left";
}

TEST(AirfieldImport, ReadsADatabase) {
    Imported import;
    import.Settings.Source = import.Folder.Path() / "airports.sqlite";
    sqlite3* made = nullptr;
    sqlite3_open(import.Settings.Source.c_str(), &made);
    const int result = sqlite3_exec(
        made,
        "CREATE TABLE airports(id INTEGER PRIMARY KEY, icao TEXT, type TEXT, latitude REAL, longitude REAL, "
        "country_code TEXT, country TEXT);"
        "CREATE TABLE runways(id INTEGER PRIMARY KEY, airport_id INTEGER, length_ft INTEGER, surface TEXT, "
        "lighted BOOLEAN);"
        "CREATE TABLE runway_ends(id INTEGER PRIMARY KEY, runway_id INTEGER, ident TEXT, heading_degT REAL);"
        "CREATE TABLE frequencies(airport_id INTEGER PRIMARY KEY, atis TEXT, tower TEXT, ground TEXT, "
        "clearance TEXT, unicom TEXT, approach TEXT, departure TEXT);"
        "INSERT INTO airports VALUES(7,'LSZH','large_airport',47.458056,8.548056,'CH','Switzerland'),"
        "(8,'LSXX','small_airport',95,8,'CH','Switzerland');"
        "INSERT INTO runways VALUES(1,7,8202,'unknown',0);"
        "INSERT INTO runway_ends VALUES(11,1,'10',96.0),(12,1,'28',276.0);"
        "INSERT INTO frequencies VALUES(7,'125.725','118.1',NULL,NULL,'',NULL,NULL)",
        nullptr, nullptr, nullptr);
    sqlite3_close(made);
    ASSERT_EQ(result, SQLITE_OK);
    EXPECT_EQ(import.Run(), Outcome::SomeRefused);
    EXPECT_EQ(import.Errors, "airports.sqlite:airports:8: latitude \"95.0\" is no number from -90 to 90\n");
    EXPECT_THAT(import.Query("SELECT * FROM ARPT"), ElementsAre("LSZH 2500 0 47.458056 8.548056"));
    EXPECT_THAT(import.Query("SELECT rwy, RWYHdg FROM RWY"), ElementsAre("10/28 096"));
    EXPECT_THAT(import.Query("SELECT * FROM ACOM"), ElementsAre("LSZH ATIS 125.725", "LSZH TWR 118.100"));

    import.Settings.Replace = true;
    import.Write("airports.sqlite", "SQLite format 3 and no more");
    EXPECT_EQ(import.Run(), Outcome::NothingWritten);
}

TEST(AirfieldImport, NeverReplacesWhatIsNoAirfieldStore) {
    Imported import;
    import.WriteAll(Airports, Runways);
    import.Settings.Replace = true;
    CreateStore(import.Folder.Path() / "data.ovd", StoreKind::Data);
    import.Settings.Store = import.Folder.Path() / "data.ovd";
    EXPECT_EQ(import.Run(), Outcome::NothingWritten);
    EXPECT_THAT(import.Errors, HasSubstr("is no airfield store"));
    EXPECT_THAT(import.Query("SELECT count(*) FROM Waypoints"), ElementsAre("0"));
    import.Settings.Store = import.Folder.Path() / "airports.csv"; // the source itself
    EXPECT_EQ(import.Run(), Outcome::NothingWritten);
}

// Cut, shuffled and overwritten: whatever is taken, the program can draw it.
TEST(AirfieldImport, WritesNothingUndrawableFromDamagedFiles) {
    Imported import;
    import.Settings.Replace = true;
    std::mt19937 random(11);
    int written = 0;
    for (int round = 0; round < 60; ++round) {
        std::string airports = Airports, runways = Runways;
        for (std::string* text : {&airports, &runways}) {
            const std::size_t header = text->find('\n') + 1;
            for (auto hits = random() % 6; hits > 0; --hits)
                (*text)[header + random() % (text->size() - header)] = static_cast<char>(random());
            if (round % 3 == 0) text->resize(header + random() % (text->size() - header));
            if (round % 3 == 1) std::shuffle(text->begin() + static_cast<long>(header), text->end(), random);
        }
        import.WriteAll(airports, runways);
        if (import.Run() == Outcome::NothingWritten) continue;
        ++written;
        ASSERT_TRUE(import.Query(Undrawable).empty()) << airports << runways;
    }
    EXPECT_GT(written, 30);
}
