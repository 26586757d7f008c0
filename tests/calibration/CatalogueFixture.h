#pragma once

#include <gtest/gtest.h>

#include "calibration/MapData.h"
#include "support/FlightFolder.h"
#include "support/MapFakes.h"
#include "support/Rows.h"

namespace ornivane {

inline constexpr Hemisphere North = Hemisphere::NorthOrEast, East = North;
inline constexpr Hemisphere South = Hemisphere::SouthOrWest, West = South;

// The catalogue over a folder of charts whose files are headers only.
class CatalogueTest : public testing::Test, protected FlightFolder {
protected:
    CatalogueTest() {
        AddImage("alpha.jpg", 2000, 1000);
        AddImage("zulu.jpg", 2000, 1000);
        Catalogue.Form_Load();
    }
    std::filesystem::path Charts() const { return Folder.Path() / "Karten"; }
    void AddImage(const std::string& name, int width, int height) { WriteJpegHeader(name, width, height); }
    std::string Bytes(const std::string& name) { return Folder.Bytes("Karten/" + name); }
    int SearchEntry(const std::string& name) const {
        for (std::size_t i = 0; i < Catalogue.listKarten.size(); ++i)
            if (Catalogue.listKarten[i].Name == name) return static_cast<int>(i);
        ADD_FAILURE() << name;
        return -1;
    }
    void Select(const std::string& name) { Catalogue.listKarten_Click(SearchEntry(name)); }
    // "name unten oben links rechts breite höhe on"; "off" for one that is not active.
    std::vector<std::string> Rows(const std::string& where = "1") {
        return RowsOf(Shared.DataConn,
                      "SELECT Name, Unten, Oben, Links, Rechts, Breite, \"Höhe\", CASE Active WHEN 0 THEN "
                      "'off' ELSE 'on' END FROM Maps WHERE " +
                          where + " ORDER BY Name",
                      NumbersAs::Shown);
    }
    // The frame's fields: "N 50,E 6 ..." with the colour's first letter.
    std::string Fields() const {
        std::string text;
        for (std::size_t i = 0; i < 4; ++i)
            text += std::string(i < 2 ? "NS" : "EW")
                        .substr(static_cast<std::size_t>(Catalogue.cmbLatLong[i]), 1) +
                    Catalogue.tKarten[i] + (Catalogue.EdgeStates[i] == EdgeState::Stored ? "b " : "y ");
        return text;
    }

    FakePicture Storage;
    DrawnSurface Surface;
    ScriptedDialogs Boxes;
    MapData Catalogue{Shared, Storage, Surface, Boxes};
};

} // namespace ornivane
