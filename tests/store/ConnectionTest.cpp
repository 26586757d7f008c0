#include "store/Connection.h"

#include <unistd.h>

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "store/Schema.h"
#include "store/TextOrder.h"
#include "support/Rows.h"
#include "support/TemporaryFolder.h"

namespace ornivane {
namespace {

namespace fs = std::filesystem;

TEST(TextOrder, SortsUmlautsWithTheirLettersAndTellsThemApart) {
    const char* const inOrder[] = {"",        "aa",     "Ab",     "äb", "ac", "Łódź", "o",   "Ö",
                                   "strasse", "Straße", "strata", "z",  "Я",  "😀",    "\xFF"};
    for (std::size_t i = 0; i < std::size(inOrder); ++i)
        for (std::size_t j = 0; j < std::size(inOrder); ++j) {
            const int order = CompareText(inOrder[i], inOrder[j]);
            EXPECT_EQ(order < 0, i < j) << inOrder[i] << " " << inOrder[j];
            EXPECT_EQ(order == 0, i == j) << inOrder[i] << " " << inOrder[j];
        }
    EXPECT_EQ(CompareText("ÄÖÜ ŠĐ Я", "äöü šđ я"), 0);
    EXPECT_TRUE(StartsWith("Köln", "kÖ"));
    EXPECT_FALSE(StartsWith("Köln", "ko"));
    EXPECT_FALSE(StartsWith("Kö", "köl"));
}

class ConnectionTest : public testing::Test {
protected:
    fs::path Store() const { return Folder.Path() / "data.ovd"; }
    std::string ReasonOf(Connection::Mode mode = Connection::Mode::ReadWrite) {
        const auto error = ErrorOf([&] { Connection().Open(Store(), mode); });
        return error ? error->what() : "opened";
    }
    TemporaryFolder Folder;
};

TEST_F(ConnectionTest, NeverMakesAStoreAndSaysWhyOneCannotBeOpened) {
    EXPECT_NE(ReasonOf().find("File not found"), std::string::npos);
    EXPECT_FALSE(fs::exists(Store()));
    fs::create_directory(Store());
    EXPECT_NE(ReasonOf().find("not a file"), std::string::npos);
    fs::remove(Store());
    for (const std::string& bytes :
         {std::string(), std::string("Name;Lat;Long\r\n"), std::string(5000, 'x')}) {
        WriteFileAtomically(Store(), bytes);
        EXPECT_NE(ReasonOf().find("not a data store"), std::string::npos);
        EXPECT_EQ(ReadWholeFile(Store()), bytes);
    }
    fs::remove(Store());
    CreateStore(Store(), StoreKind::Data);
    EXPECT_EQ(ReasonOf(), "opened");
    EXPECT_THROW(CreateStore(Store(), StoreKind::Data), RuntimeError);
    const std::string whole = *ReadWholeFile(Store());
    WriteFileAtomically(Store(), whole.substr(0, whole.size() / 2));
    EXPECT_NE(ReasonOf().find("cut short"), std::string::npos);
    WriteFileAtomically(Store(), whole.substr(0, whole.size() - 1));
    EXPECT_NE(ReasonOf().find("cut short"), std::string::npos);
    std::string damaged = whole;
    damaged.replace(100, 400, 400, '\xAA');
    WriteFileAtomically(Store(), damaged);
    EXPECT_NE(ReasonOf().find("malformed"), std::string::npos);
    damaged = whole; // elsewhere than at the start
    damaged.replace(whole.size() / 2, 200, 200, '\xAA');
    WriteFileAtomically(Store(), damaged);
    EXPECT_NE(ReasonOf().find("the file is damaged"), std::string::npos);
}

// What a power cut leaves in the middle of a commit: the first page, which tells more pages, is written, the
// others are not, and the journal stands beside.
TEST_F(ConnectionTest, BringsBackAStoreWhoseLastChangeWasCutOff) {
    CreateStore(Store(), StoreKind::Data);
    const std::string journal = Store().string() + "-journal";
    std::string before = *ReadWholeFile(Store()), inTheMiddle;
    {
        Connection data;
        data.Open(Store(), Connection::Mode::ReadWrite);
        data.Execute("INSERT INTO Kategorie VALUES (1, 'kept')");
        before = *ReadWholeFile(Store());
        data.Execute("PRAGMA cache_size = 1");
        data.Execute("BEGIN");
        data.Execute("INSERT INTO Kategorie WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                     "WHERE i < 2000) SELECT i, 'lost' FROM n");
        data.Execute("UPDATE Kategorie SET Nummer = 7");
        inTheMiddle = *ReadWholeFile(journal);
        data.Execute("ROLLBACK");
    }
    before.replace(28, 4, std::string("\0\0\1\0", 4)); // 256 pages
    WriteFileAtomically(Store(), before);
    WriteFileAtomically(journal, inTheMiddle);
    Connection data;
    data.Open(Store(), Connection::Mode::ReadWrite);
    EXPECT_EQ(RowsOf(data, "SELECT Kategorie FROM Kategorie"), std::vector<std::string>{"kept"});
}

TEST_F(ConnectionTest, ALockedStoreIsToldAndNotWaitedFor) {
    CreateStore(Store(), StoreKind::Data);
    Connection other;
    other.Open(Store(), Connection::Mode::ReadWrite);
    other.Execute("BEGIN EXCLUSIVE");
    EXPECT_NE(ReasonOf().find("locked"), std::string::npos);
    other.Execute("ROLLBACK");
    EXPECT_EQ(ReasonOf(), "opened");
}

TEST_F(ConnectionTest, AReadOnlyStoreOpensForReadingOnly) {
    CreateStore(Store(), StoreKind::Data);
    if (geteuid() != 0) { // for the superuser no file is read-only
        fs::permissions(Store(), fs::perms::owner_read);
        EXPECT_NE(ReasonOf().find("read-only"), std::string::npos);
    }
    EXPECT_EQ(ReasonOf(Connection::Mode::ReadOnly), "opened");
    Connection reader;
    reader.Open(Store(), Connection::Mode::ReadOnly);
    EXPECT_THROW(reader.Execute("DELETE FROM Route"), RuntimeError);
    EXPECT_THROW(Connection().Handle(), RuntimeError);
}

TEST_F(ConnectionTest, TransactionsNestAndRollBackByThemselves) {
    CreateStore(Store(), StoreKind::Data);
    Connection data;
    data.Open(Store(), Connection::Mode::ReadWrite);
    const auto add = [&](const char* name) { data.Execute("INSERT INTO Kategorie VALUES (1, ?)", {name}); };
    {
        Transaction outer(data);
        add("kept");
        {
            Transaction inner(data);
            add("dropped");
        }
        outer.Commit();
    }
    {
        Transaction lost(data);
        add("lost");
    }
    EXPECT_EQ(RowsOf(data, "SELECT Kategorie FROM Kategorie"), std::vector<std::string>{"kept"});
}

TEST_F(ConnectionTest, EveryKindOfStoreHasItsTables) {
    const std::pair<StoreKind, const char*> tables[] = {
        {StoreKind::Track, "SELECT \"Index\", Number, Lat, Long, Height, Date, Time FROM Track"},
        {StoreKind::Track, "SELECT \"Index\", Name FROM List WHERE NAME = '****XXX****'"},
        {StoreKind::Luftraum, "SELECT MainIndex, AspType, \"Index\", Low, High, PNumber, LowType, HighType, "
                              "Drawtype, Lat, Long, arcRad, "
                              "arcLat, arcLong, Arcx1, Arcy1, Arcx2, Arcy2, arcDir FROM Luftraum"},
        {StoreKind::Luftraum, "SELECT Datum FROM RELEASE"},
        {StoreKind::Airfields, "SELECT ICAO, RWYALen, RWYGLen, WGS_DLAT, WGS_DLONG FROM ARPT"},
        {StoreKind::Airfields, "SELECT ICAO, LENGTH, Surface, rwy, RWYHdg FROM RWY"},
        {StoreKind::Airfields, "SELECT ICAO, Name, Freq FROM ACOM"},
        {StoreKind::Airfields, "SELECT ICAO, Name FROM ICAOCODE"}};
    for (const auto& [kind, query] : tables) {
        const fs::path file = Folder.Path() / StoreFileName(kind);
        if (!fs::exists(file)) CreateStore(file, kind);
        Connection store;
        store.Open(file, Connection::Mode::ReadOnly);
        EXPECT_FALSE(Statement(store, query).Step()) << query;
    }
}

} // namespace
} // namespace ornivane
