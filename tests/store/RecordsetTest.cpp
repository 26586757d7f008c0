#include "store/Recordset.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "store/Connection.h"
#include "store/Lists.h"
#include "store/Schema.h"
#include "support/TemporaryFolder.h"

namespace ornivane {
namespace {

using Names = std::vector<std::string>;

class RecordsetTest : public testing::Test {
protected:
    RecordsetTest() {
        CreateStore(Folder.Path() / "data.ovd", StoreKind::Data);
        Data.Open(Folder.Path() / "data.ovd", Connection::Mode::ReadWrite);
    }
    void AddWaypoints(const Names& names) {
        for (const std::string& name : names)
            Data.Execute("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES (?, 50.3, 7.1, '')",
                         {name});
    }
    void OpenWaypoints() { Rows.Open(Data, "SELECT * From Waypoints Order by NAME ASC"); }
    static Names All(Recordset& rows, const char* field = "Name") {
        Names names;
        for (int i = 0; i < rows.RecordCount(); ++i) names.push_back(rows.ValueAt(i, field).Text());
        return names;
    }

    TemporaryFolder Folder;
    Connection Data;
    Recordset Rows;
};

TEST_F(RecordsetTest, StandsMovesAndFindsAsFormsRelyOnIt) {
    OpenWaypoints();
    EXPECT_TRUE(Rows.Eof() && Rows.Bof());
    EXPECT_EQ(Rows.AbsolutePosition(), -1);
    Rows.MoveFirst(); // no rows is no error
    EXPECT_THROW(Rows.Get("Name"), RuntimeError);
    EXPECT_THROW(Rows.MoveNext(), RuntimeError);
    AddWaypoints({"Zürich", "Öhringen", "Aalen", "O'Hara", "aachen"});
    Rows.Requery();
    EXPECT_EQ(All(Rows), (Names{"aachen", "Aalen", "O'Hara", "Öhringen", "Zürich"}));
    EXPECT_EQ(Rows.Text("name"), "aachen");
    EXPECT_TRUE(Rows.Find("Name", Comparison::Equal, "O'HARA"));
    EXPECT_EQ(Rows.AbsolutePosition(), 3);
    EXPECT_FALSE(Rows.Find("Name", Comparison::Equal, "Aalen")); // forwards only
    EXPECT_TRUE(Rows.Eof());
    Rows.MoveFirst();
    EXPECT_FALSE(Rows.Find("Name", Comparison::Equal, "Ohringen")); // an umlaut is a letter of its own
    Rows.MoveFirst();
    EXPECT_TRUE(Rows.Find("Name", Comparison::GreaterOrEqual, "oh"));
    EXPECT_EQ(Rows.Text("Name"), "Öhringen");
    Rows.MovePrevious();
    Rows.MoveLast();
    Rows.MoveNext();
    EXPECT_EQ(Rows.AbsolutePosition(), -3);
    EXPECT_THROW(Rows.Get("Nowhere"), RuntimeError);
}

TEST_F(RecordsetTest, WritesByUpdateAndByMoving) {
    AddWaypoints({"A", "B"});
    OpenWaypoints();
    Rows.Set("Lat", "51.5");
    EXPECT_EQ(Rows.Number("Lat"), 51.5);
    Rows.MoveNext();
    Rows.Set("Name", "B2");
    Rows.CancelUpdate();
    EXPECT_EQ(Rows.Text("Name"), "B");
    Rows.AddNew();
    Rows.Set("Name", "C");
    Rows.Set("Kategorie", "");
    Rows.Update();
    EXPECT_EQ(Rows.Number("PointID"), 3);
    EXPECT_EQ(Rows.AbsolutePosition(), 3);
    EXPECT_TRUE(Rows.Get("Lat").IsNull());
    EXPECT_THROW(Rows.Number("Lat"), RuntimeError);
    EXPECT_THROW(Rows.Set("Lat", "north"), RuntimeError);
    Recordset fresh;
    fresh.Open(Data, "SELECT * From Waypoints WHERE Lat > ? ORDER BY Name", {51.0});
    EXPECT_EQ(All(fresh), Names{"A"});
}

TEST_F(RecordsetTest, ARefusedWriteLeavesTheRowAndADeletedIdDoesNotComeBack) {
    AddWaypoints({"A", "B"});
    OpenWaypoints();
    Data.Execute("CREATE UNIQUE INDEX OnlyOne ON Waypoints (Name)");
    Rows.Set("Name", "B");
    EXPECT_THROW(Rows.MoveNext(), RuntimeError);
    EXPECT_EQ(Rows.Text("Name"), "A");
    EXPECT_EQ(Rows.AbsolutePosition(), 1);
    Rows.AddNew();
    Rows.Set("Name", "B");
    EXPECT_THROW(Rows.Update(), RuntimeError);
    EXPECT_EQ(Rows.RecordCount(), 2);
    Rows.AddNew();
    Rows.Delete(); // only the row that was begun
    EXPECT_EQ(Rows.RecordCount(), 2);
    Rows.MoveLast();
    Rows.Delete();
    EXPECT_TRUE(Rows.Eof());
    Rows.AddNew();
    Rows.Set("Name", "B");
    Rows.Update();
    EXPECT_EQ(Rows.Number("PointID"), 3);
}

TEST_F(RecordsetTest, SortsAndKeepsBookmarks) {
    AddWaypoints({"A", "B", "C", "D"});
    Data.Execute("UPDATE Waypoints SET Lat = PointID % 2");
    OpenWaypoints();
    Rows.MoveNext();
    const Bookmark b = Rows.CurrentBookmark();
    Rows.Sort("Lat");
    EXPECT_EQ(All(Rows), (Names{"B", "D", "A", "C"})); // ties keep the query's order
    Rows.GoTo(b);
    EXPECT_EQ(Rows.Text("Name"), "B");
    Rows.Delete();
    EXPECT_THROW(Rows.GoTo(b), RuntimeError);
    Rows.Sort("Name");
    EXPECT_EQ(All(Rows), (Names{"A", "C", "D"}));
}

TEST_F(RecordsetTest, BooleansAreTrueForAnyNumberButZero) {
    Data.Execute("INSERT INTO Maps (Name, Active) VALUES ('a', -1), ('b', 1), ('c', 0)");
    Rows.Open(Data, "SELECT * From Maps Where Active <> 0 Order by NAME ASC");
    EXPECT_EQ(All(Rows), (Names{"a", "b"}));
    EXPECT_TRUE(Rows.Get("Active").Boolean());
    EXPECT_EQ(Rows.Number("Active"), -1);
    EXPECT_EQ(Rows.Fields().back().Type, FieldType::Boolean);
    EXPECT_TRUE(Rows.Get("HÖHE").IsNull());
    EXPECT_THROW(Rows.Get("Hohe"), RuntimeError);
    for (const Value& isTrue : {Value(true), Value(1), Value(-1)}) {
        Rows.MoveFirst();
        EXPECT_TRUE(Rows.Find("Active", Comparison::Equal, isTrue));
    }
}

TEST_F(RecordsetTest, TellsItsObserversEveryChange) {
    struct Log : RecordsetObserver {
        void RowsReset() override { Text += "reset "; }
        void RowInserted(int row) override { Text += "+" + std::to_string(row) + " "; }
        void RowRemoved(int row) override { Text += "-" + std::to_string(row) + " "; }
        void RowChanged(int row) override { Text += "~" + std::to_string(row) + " "; }
        void CurrentRowChanged() override { Text += "> "; }
        std::string Text;
    } log;
    AddWaypoints({"A", "B"});
    Rows.AddObserver(&log);
    OpenWaypoints();
    Rows.MoveNext();
    Rows.MoveLast(); // is there already
    Rows.Set("Name", "B2");
    Rows.Update();
    Rows.AddNew();
    Rows.Update();
    Rows.Delete();
    Rows.RemoveObserver(&log);
    Rows.Requery();
    EXPECT_EQ(log.Text, "reset > > ~1 +2 > -2 > ");
}

TEST_F(RecordsetTest, ObserversMayReadAndLeaveWhileTheyAreTold) {
    struct Reader : RecordsetObserver {
        explicit Reader(Recordset& of) : Rows(of) {}
        void RowsReset() override {}
        void RowInserted(int row) override { Seen += Rows.ValueAt(row, "Name").Text(); }
        void RowRemoved(int) override { Seen += std::to_string(Rows.RecordCount()); }
        void RowChanged(int row) override {
            Seen += Rows.ValueAt(row, "Name").Text();
            if (Other) Rows.RemoveObserver(Other);
        }
        void CurrentRowChanged() override { Seen += Rows.Eof() ? "end" : Rows.Text("Name"); }
        Recordset& Rows;
        RecordsetObserver* Other = nullptr;
        std::string Seen;
    } first(Rows), second(Rows);
    AddWaypoints({"A", "B"});
    OpenWaypoints();
    first.Other = &second;
    Rows.AddObserver(&first);
    Rows.AddObserver(&second);
    Rows.Set("Name", "a");
    Rows.MoveNext();
    Rows.AddNew();
    Rows.Set("Name", "C");
    Rows.Update();
    Rows.Delete();
    EXPECT_EQ(first.Seen, "aBCC2end");
    EXPECT_EQ(second.Seen, "");
}

class ListsTest : public RecordsetTest {
protected:
    void Insert(const std::string& name) {
        InsertAfterCurrent(Data, Rows, "SELECT * From Kategorie", {},
                           [&](Recordset& row) { row.Set("Kategorie", name); });
    }
    void OpenList() { Rows.Open(Data, "SELECT * From Kategorie Order by NUMMER ASC"); }
};

TEST_F(ListsTest, InsertsBehindTheCurrentRowAndNumbersAnew) {
    OpenList();
    for (const char* name : {"1", "2", "3", "4", "5"}) Insert(name);
    EXPECT_EQ(All(Rows, "Kategorie"), (Names{"1", "2", "3", "4", "5"}));
    Rows.SetAbsolutePosition(2);
    Insert("new");
    EXPECT_EQ(Rows.Text("Kategorie"), "new");
    EXPECT_EQ(All(Rows, "Kategorie"), (Names{"1", "2", "new", "3", "4", "5"}));
    EXPECT_EQ(All(Rows, "Nummer"), (Names{"1", "2", "3", "4", "5", "6"}));
    Rows.Sort("Kategorie");
    Rows.MoveLast();
    Insert("after the new one"); // "new" stands last in this order
    EXPECT_EQ(All(Rows, "Kategorie"), (Names{"1", "2", "new", "3", "4", "5", "after the new one"}));
    EXPECT_EQ(Rows.AbsolutePosition(), 7);
}

TEST_F(ListsTest, AListBeyondSixteenBitsOverflowsAndStaysAsItWas) {
    Data.Execute("INSERT INTO Kategorie WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE "
                 "i < 32767) "
                 "SELECT i, 'k' || i FROM n");
    OpenList();
    Rows.SetAbsolutePosition(500);
    EXPECT_THROW(Insert("one too many"), RuntimeError);
    EXPECT_EQ(Rows.RecordCount(), 32767);
    EXPECT_EQ(Rows.AbsolutePosition(), 500);
    OpenList();
    EXPECT_EQ(Rows.RecordCount(), 32767);
    EXPECT_EQ(Rows.ValueAt(1, "Nummer").Text(), "2");
}

} // namespace
} // namespace ornivane
