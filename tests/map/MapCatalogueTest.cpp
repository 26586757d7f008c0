#include "map/MapCatalogue.h"

#include <gmock/gmock.h>

#include "base/RuntimeError.h"
#include "support/FlightFolder.h"

namespace ornivane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// alpha.jpg 50 to 51° N, Zulu.JPG 60 to 61° N, both 6 to 8° E and active; unused.jpg is not.
class MapCatalogueTest : public testing::Test, protected FlightFolder {
protected:
    MapCatalogueTest() { Catalogue.OpenAll(All); }
    // The row of that name.
    const Recordset& Row(const std::string& name) {
        All.Requery();
        if (!MapCatalogue::StandOn(All, name)) ADD_FAILURE() << name;
        return All;
    }
    std::vector<std::string> Covering(double north, double east) {
        return Catalogue.Covering({Latitude(north), Longitude(east)});
    }
    static ChartPlacement Placed(const FrameEdges& edges, double width = 2000, double height = 1000) {
        return ChartPlacement().WithEdges(edges).WithSize({width, height});
    }
    static ChartPlacement Edges(const FrameEdges& edges) { return ChartPlacement().WithEdges(edges); }
    ChartPlacement PlacementOf(const std::string& name) { return ChartPlacement::FromRow(Row(name)); }

    MapCatalogue Catalogue{Shared.DataConn};
    Recordset All;
};

TEST_F(MapCatalogueTest, ListsByNameInTheOrderOfTheProgramsTexts) {
    Sql("INSERT INTO Maps (Name, Active) VALUES ('Ärger.jpg', 1), (NULL, 1), ('beta.jpg', 1)");
    EXPECT_THAT(Catalogue.ActiveNames(), ElementsAre("", "alpha.jpg", "Ärger.jpg", "beta.jpg", "Zulu.JPG"));
    Recordset active;
    Catalogue.OpenActive(active);
    EXPECT_EQ(active.RecordCount(), 5);
    All.Requery();
    EXPECT_EQ(All.RecordCount(), 6);
    Sql("UPDATE Maps SET Active = 0");
    EXPECT_THAT(Catalogue.ActiveNames(), IsEmpty());
}

TEST_F(MapCatalogueTest, StandsOnTheRowOfANameWhereverTheListStood) {
    All.MoveLast();
    EXPECT_TRUE(MapCatalogue::StandOn(All, "ALPHA.jpg"));
    EXPECT_EQ(MapCatalogue::NameOf(All), "alpha.jpg");
    EXPECT_FALSE(MapCatalogue::StandOn(All, "alpha"));
    Sql("DELETE FROM Maps");
    All.Requery();
    EXPECT_FALSE(MapCatalogue::StandOn(All, "alpha.jpg"));
}

TEST_F(MapCatalogueTest, ReadsEdgesAlsoWhereTheSizeIsMissing) {
    EXPECT_EQ(PlacementOf("alpha.jpg"), Placed({50, 51, 6, 8}));
    Sql("UPDATE Maps SET Breite = NULL WHERE Name = 'alpha.jpg'");
    EXPECT_EQ(ChartPlacement::EdgesFromRow(Row("alpha.jpg")), Edges({50, 51, 6, 8}));
    EXPECT_THROW(ChartPlacement::FromRow(All), RuntimeError);
}

TEST_F(MapCatalogueTest, ADamagedTickKeepsNobodyFromSavingTheFrame) {
    Sql("UPDATE Maps SET Active = 'abc' WHERE Name = 'alpha.jpg'");
    All.Requery();
    MapCatalogue::Write(All, "alpha.jpg", Edges({49, 50, 5, 7}), MapCatalogue::Tick::Keep);
    EXPECT_EQ(PlacementOf("alpha.jpg"), Placed({49, 50, 5, 7}));
}

TEST_F(MapCatalogueTest, CoversByTheFramesOfActiveChartsTheirEdgesIncluded) {
    Sql("INSERT INTO Maps (Name, Unten, Oben, Links, Rechts, Active) VALUES "
        "('south-west.jpg', -1.3, 0, -8.3, -7, 1), ('off.jpg', 50, 51, 6, 8, 0), ('none.jpg', NULL, 51, 6, "
        "8, 1)");
    EXPECT_THAT(Covering(50.5, 7), ElementsAre("alpha.jpg"));
    EXPECT_THAT(Covering(51, 8), ElementsAre("alpha.jpg"));
    EXPECT_THAT(Covering(51.01, 8), IsEmpty());
    // The store rounds whole degrees down: 8.1° W is -9 + 0.54, west of -8.3.
    EXPECT_THAT(Covering(-0.25, -8.1), IsEmpty());
    EXPECT_THAT(Covering(-0.25, -7.9), ElementsAre("south-west.jpg"));
}

TEST_F(MapCatalogueTest, WritesAChartWithItsTickAndKeepsWhatIsNotGiven) {
    const ChartPlacement moved = Edges({40, 41, -9, -8});
    MapCatalogue::Write(All, "ALPHA.jpg", moved, MapCatalogue::Tick::Keep);
    EXPECT_EQ(PlacementOf("alpha.jpg"), Placed({40, 41, -9, -8}));
    EXPECT_EQ(MapCatalogue::NameOf(All), "ALPHA.jpg");
    EXPECT_TRUE(MapCatalogue::IsActive(All));
    MapCatalogue::Write(All, "ALPHA.jpg", moved, MapCatalogue::Tick::Flip);
    EXPECT_FALSE(MapCatalogue::IsActive(Row("alpha.jpg")));
    MapCatalogue::Write(All, "new.jpg", Placed({1, 2, 3, 4}, 30, 20), MapCatalogue::Tick::Keep);
    EXPECT_EQ(PlacementOf("new.jpg"), Placed({1, 2, 3, 4}, 30, 20));
    EXPECT_FALSE(MapCatalogue::IsActive(All));
    MapCatalogue::Write(All, "ticked.jpg", Placed({1, 2, 3, 4}, 30, 20), MapCatalogue::Tick::Flip);
    EXPECT_TRUE(MapCatalogue::IsActive(Row("ticked.jpg")));
}

TEST_F(MapCatalogueTest, WhatIsRefusedIsNotWrittenWithTheNextMove) {
    const ChartPlacement unsized = Edges({1, 2, 3, 4});
    EXPECT_THROW(MapCatalogue::Write(All, "new.jpg", unsized, MapCatalogue::Tick::Keep), RuntimeError);
    Sql("CREATE TRIGGER refuse BEFORE UPDATE ON Maps BEGIN SELECT RAISE(ABORT, 'no'); END");
    EXPECT_THROW(MapCatalogue::Write(All, "alpha.jpg", unsized, MapCatalogue::Tick::Flip), RuntimeError);
    Sql("DROP TRIGGER refuse");
    All.MoveFirst();
    EXPECT_EQ(All.RecordCount(), 3);
    EXPECT_EQ(PlacementOf("alpha.jpg"), Placed({50, 51, 6, 8}));
}

} // namespace
} // namespace ornivane
