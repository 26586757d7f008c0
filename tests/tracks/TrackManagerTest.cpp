#include "tracks/TrackManager.h"

#include <csignal>
#include <sstream>

#include <sys/resource.h>

#include <gtest/gtest.h>

#include "base/Format.h"
#include "base/RuntimeError.h"
#include "support/FlightFolder.h"
#include "support/PressedNotice.h"
#include "support/Rows.h"
#include "support/ScriptedDialogs.h"

namespace ornivane {
namespace {

// Three tracks: 1 with two points, 2 with one, 4 with none.
class TrackManagerTest : public testing::Test, protected FlightFolder {
protected:
    TrackManagerTest() {
        CreateStore(Folder.Path() / "track.ovd", StoreKind::Track);
        Logger.Open(Folder.Path() / "track.ovd", Connection::Mode::ReadWrite);
        Logger.Execute(
            "INSERT INTO List VALUES (1, '23Nov26 - 10:00'), (2, '23Nov26 - 11:30'), (4, 'empty')");
        Logger.Execute("INSERT INTO Track VALUES (1, 2, -33.123456, 151.5, -12.5, '2026-11-23', '10:00:05'), "
                       "(1, 1, 47, 0.5, 1234.5, '2026-11-23', '10:00:00'), "
                       "(2, 1, 50.97835, -0.04999, NULL, '2026-11-23', '11:30:00')");
        Shared.EnglishUI = 1;
        Manager.Form_Load();
    }
    using Indexes = std::vector<std::int64_t>;
    Indexes Selected() const {
        Indexes indexes;
        for (const auto& row : Manager.Rows)
            if (row.Selected) indexes.push_back(row.Index);
        return indexes;
    }
    void ExpectStored(const Indexes& tracks, int points) {
        Indexes stored;
        for (const std::string& index : RowsOf(Logger, "SELECT \"Index\" FROM List ORDER BY 1"))
            stored.push_back(std::stoll(index));
        EXPECT_EQ(stored, tracks);
        EXPECT_EQ(RowsOf(Logger, "SELECT * FROM Track").size(), static_cast<std::size_t>(points));
    }
    // The expected files are written by hand.
    std::string ByHand(const std::string& name) {
        return ReadWholeFile(SOURCE_DIR "/tests/tracks/" + name).value_or("none");
    }
    std::string Exported(void (TrackManager::*button)()) {
        Boxes.File = Folder.Path() / "out.gpx";
        (Manager.*button)();
        return ReadWholeFile(*Boxes.File).value_or("none");
    }

    Connection Logger; // the recorder's connection stays open beside the manager's
    ScriptedDialogs Boxes;
    PressedNotice Bar;
    Undo LastDeed{Bar, Shared, {}};
    TrackManager Manager{Shared, Shared, Boxes, LastDeed};
};

TEST_F(TrackManagerTest, AClickTogglesAndThePointsFollowInOrder) {
    EXPECT_EQ(Manager.lblRecords, "0 trackpoints");
    Manager.listTrack_MouseUp(1);
    EXPECT_EQ(Manager.lblRecords, "1 trackpoint");
    Manager.listTrack_MouseUp(0);
    Shared.EnglishUI = 0;
    Manager.listTrack_MouseUp(2);
    EXPECT_EQ(Manager.lblRecords, "3 Trackpunkte");
    for (const auto& [row, index, number] : {std::tuple{0, 1, 1}, {1, 1, 2}, {2, 2, 1}}) {
        EXPECT_EQ(Manager.TrackPointsSet.At(row).Index, index) << row;
        EXPECT_EQ(Manager.TrackPointsSet.At(row).Number, number) << row;
    }
    EXPECT_THROW(Manager.TrackPointsSet.At(3), RuntimeError);
    Manager.listTrack_MouseUp(0);
    Manager.listTrack_MouseUp(7);
    EXPECT_EQ(Selected(), (Indexes{2, 4}));
    EXPECT_EQ(Manager.lblRecords, "1 Trackpunkt");
}

TEST_F(TrackManagerTest, DeletesWhatTheMessageListsAndKeepsABackup) {
    Manager.listTrack_MouseUp(0);
    Manager.listTrack_MouseUp(2);
    Manager.cmdDelete_Click(); // answered with no
    EXPECT_EQ(Boxes.Shown.back(), "Attention|Track: | 1 | 4 |  will be deleted ! ");
    ExpectStored({1, 2, 4}, 3);
    EXPECT_FALSE(std::filesystem::exists(Folder.Path() / "track.bak"));
    Boxes.Answer = true;
    Manager.cmdDelete_Click();
    ExpectStored({2}, 1);
    EXPECT_EQ(Manager.lblRecords, "0 trackpoints");
    Connection backup;
    backup.Open(Folder.Path() / "track.bak", Connection::Mode::ReadOnly);
    EXPECT_EQ(RowsOf(backup, "SELECT * FROM Track").size(), 3u);
    // The row that moved up still counts as chosen: the first click clears, the second one sets.
    Manager.listTrack_MouseUp(0);
    EXPECT_EQ(Selected(), Indexes{});
    Manager.cmdDelete_Click();
    EXPECT_EQ(Boxes.Shown.back(), "Attention|No tracks selected");
    ExpectStored({2}, 1);
    Manager.listTrack_MouseUp(0);
    EXPECT_EQ(Selected(), Indexes{2});
}

TEST_F(TrackManagerTest, ADeletionGoesOnWithoutItsBackupButNeverHalfway) {
    std::filesystem::create_directories(Folder.Path() / "track.bak" / "in the way");
    Boxes.Answer = true;
    Manager.listTrack_MouseUp(1);
    Manager.cmdDelete_Click();
    ExpectStored({1, 4}, 2);
    // A store that refuses the second statement keeps the points of the first.
    Logger.Execute("CREATE TRIGGER refuse BEFORE DELETE ON List BEGIN SELECT RAISE(ABORT, 'no'); END");
    Manager.listTrack_MouseUp(0);
    EXPECT_THROW(Manager.cmdDelete_Click(), RuntimeError);
    ExpectStored({1, 4}, 2);
    EXPECT_EQ(Manager.lblRecords, "2 trackpoints");
}

TEST_F(TrackManagerTest, DeletedTracksComeBackFromTheBackupWithTheirChoice) {
    const auto bytes = [this] {
        return RowsOf(Logger, "SELECT * FROM List LEFT JOIN Track USING (\"Index\") ORDER BY 1, 3");
    };
    const auto before = bytes();
    Boxes.Answer = true;
    Manager.cmdDelete_Click(); // nothing was chosen
    EXPECT_FALSE(Bar.Press());
    Manager.listTrack_MouseUp(2);
    Manager.listTrack_MouseUp(0);
    Manager.cmdDelete_Click();
    EXPECT_EQ(Bar.Text, "2 Tracks deleted [&undo]");
    Logger.Execute("INSERT INTO List (Name) VALUES ('later')");
    Logger.Execute("DELETE FROM List WHERE Name = 'later'");
    Manager.listTrack_MouseUp(0);
    EXPECT_TRUE(Bar.Press());
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(Selected(), (Indexes{1, 4}));
    EXPECT_EQ(Manager.lblRecords, "2 trackpoints");
    EXPECT_EQ(Manager.ListIndex, 0);
    Manager.cmdDelete_Click();
    for (int i = 0; i < 2; ++i) Manager.cmdDelete_Click(); // of nothing, which makes a backup as well
    EXPECT_EQ(Boxes.Shown.back(), "Attention|No tracks selected");
    EXPECT_EQ(Bar.Text, "2 Tracks deleted [&undo]");
    Manager.SelectAll();
    Logger.Execute("CREATE TRIGGER refuse BEFORE DELETE ON List BEGIN SELECT RAISE(ABORT, 'no'); END");
    EXPECT_THROW(Manager.cmdDelete_Click(), RuntimeError); // nor does one that fails
    EXPECT_TRUE(Bar.Press());
    EXPECT_EQ(bytes(), before);
    Logger.Execute("DROP TRIGGER refuse");
    Manager.listTrack_MouseUp(0);
    EXPECT_EQ(Selected(), Indexes{4}); // chosen rows toggle as before
    Manager.cmdDelete_Click();
    EXPECT_EQ(Bar.Text, "Track 4 deleted [&undo]");
    EXPECT_FALSE(std::filesystem::exists(Folder.Path() / "track.undo"));
}

TEST_F(TrackManagerTest, ADeletionThatCannotBeTakenBackSaysSo) {
    std::filesystem::create_directories(Folder.Path() / "track.bak" / "in the way");
    Boxes.Answer = true;
    Manager.listTrack_MouseUp(1);
    Manager.cmdDelete_Click();
    EXPECT_EQ(Bar.Text, "Deleted; without a backup it cannot be undone");
    EXPECT_FALSE(Bar.Press());
    std::filesystem::remove_all(Folder.Path() / "track.bak");
    Manager.listTrack_MouseUp(0);
    Manager.cmdDelete_Click();
    // A backup that is another one by now brings nothing back, rather than a part.
    Connection backup;
    backup.Open(Folder.Path() / "track.bak", Connection::Mode::ReadWrite);
    backup.Execute("DELETE FROM Track WHERE Number = 2");
    EXPECT_TRUE(Bar.Press());
    ExpectStored({4}, 0);
    EXPECT_NE(Bar.Text.find("not the tracks that were deleted"), std::string::npos) << Bar.Text;
    EXPECT_EQ(Manager.lblRecords, "0 trackpoints");
    backup.Execute("INSERT INTO Track VALUES (1, 2, 1, 1, 1, 'D', 'T')");
    EXPECT_TRUE(Bar.Press());
    ExpectStored({1, 4}, 2);
}

// No file may grow beyond so many bytes while this lives: what a full disk does to those who write.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before{};
    void (*handler)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

TEST_F(TrackManagerTest, AFullDiskAtADeletionLeavesTheStoreWhole) {
    Logger.Execute("WITH RECURSIVE n(i) AS (VALUES (3) UNION ALL SELECT i + 1 FROM n WHERE i < 9000) "
                   "INSERT INTO Track SELECT 1, i, 50, 7, 100, '2026-11-23', '10:00:05' FROM n");
    Folder.Write("track.bak", "the backup before");
    Boxes.Answer = true;
    Manager.listTrack_MouseUp(0);
    {
        const FullDisk full(64 * 1024);
        EXPECT_THROW(Manager.cmdDelete_Click(), RuntimeError);
    }
    ExpectStored({1, 2, 4}, 9001);
    EXPECT_FALSE(Bar.Press());
    EXPECT_EQ(Manager.lblRecords, "9000 trackpoints");
    EXPECT_EQ(Folder.Bytes("track.bak"), "the backup before");
    EXPECT_EQ(RowsOf(Logger, "PRAGMA integrity_check"), std::vector<std::string>{"ok"});
    Manager.cmdDelete_Click();
    ExpectStored({2, 4}, 1);
    {
        const FullDisk full(64 * 1024);
        EXPECT_TRUE(Bar.Press());
    }
    ExpectStored({2, 4}, 1);
    EXPECT_NE(Bar.Text.find(", not undone: "), std::string::npos) << Bar.Text;
    EXPECT_TRUE(Bar.Press());
    ExpectStored({1, 2, 4}, 9001);
}

TEST_F(TrackManagerTest, TheLoggerMayWriteMeanwhile) {
    Manager.listTrack_MouseUp(1);
    Logger.Execute("INSERT INTO Track VALUES (2, 2, 51, 7, 100, '2026-11-23', '11:30:05')");
    EXPECT_EQ(Manager.TrackPointsSet.At(0).Number, 1);
    Boxes.Answer = true;
    Manager.cmdDelete_Click();
    Logger.Execute("INSERT INTO Track VALUES (5, 1, 51, 7, 100, '2026-11-23', '11:30:10')");
    ExpectStored({1, 4}, 3);
}

TEST_F(TrackManagerTest, ExportsTheBytesThatWereWrittenByHand) {
    Manager.cmdTrack_Click(); // nothing selected: no dialog
    EXPECT_FALSE(Boxes.FileAsked);
    Manager.listTrack_MouseUp(0);
    Manager.listTrack_MouseUp(1);
    Shared.Locale.DecimalSeparator = ',';
    EXPECT_EQ(Exported(&TrackManager::cmdTrack_Click), ByHand("track.gpx"));
    EXPECT_EQ(Boxes.FileAsked->Start.filename(), "Track1.gpx");
    EXPECT_EQ(Boxes.FileAsked->Preselected, 1u);
    EXPECT_EQ(Exported(&TrackManager::cmdWpt_Click), ByHand("waypoints.gpx"));
    EXPECT_EQ(Exported(&TrackManager::cmdWptTrack_Click), ByHand("both.gpx"));
    EXPECT_TRUE(Boxes.Shown.empty());
}

// The quick way of writing degrees against the program's own pictures.
TEST_F(TrackManagerTest, DegreesAreWrittenAsTheirPictureHasThem) {
    Logger.Execute("DELETE FROM Track");
    std::string expected;
    int number = 0;
    for (const double value :
         {0.0, 0.00004, -0.00004, 0.00005, -0.00005, 1.00005, 8.0, -8.5, 0.5, 9.99995, 99.99994, 179.99999,
          -179.99994, 12.3405, 50.12345, 50.1234499, 0.0001, 12345.6789, 1e9}) {
        Logger.Execute("INSERT INTO Track VALUES (1, ?, ?, ?, 1, 'D', 'T')", {++number, value, value});
        const std::string text = Format(value, "###.####", {});
        expected += "lat=\"" + text + "\" lon=\"" + text + "\"\n";
    }
    Manager.listTrack_MouseUp(0);
    std::istringstream lines(Exported(&TrackManager::cmdWpt_Click));
    std::string written;
    for (std::string line; std::getline(lines, line);)
        if (line.rfind("<wpt ", 0) == 0) written += line.substr(5, line.size() - 7) + "\n";
    EXPECT_EQ(written, expected);
}

// The store may have been written by other programs.
TEST_F(TrackManagerTest, TextsOfTheStoreNeverBreakTheFile) {
    Logger.Execute("DELETE FROM Track WHERE Number = 2");
    Logger.Execute("UPDATE Track SET \"Date\" = ?, \"Time\" = ?",
                   {std::string("</time>&\"'\x01\xEF\xBF\xBE"), std::string("a\xFC")});
    Manager.listTrack_MouseUp(0);
    EXPECT_NE(Exported(&TrackManager::cmdTrack_Click).find("<time>&lt;/time&gt;&amp;&quot;&apos;TaüZ</time>"),
              std::string::npos)
        << Exported(&TrackManager::cmdTrack_Click);
}

TEST_F(TrackManagerTest, AnExportTouchesNoOtherFileOfTheUser) {
    Folder.Write("out.gpx.part", "mine");
    const int before = Folder.Files();
    Manager.listTrack_MouseUp(0);
    EXPECT_NE(Exported(&TrackManager::cmdTrack_Click), "none");
    EXPECT_EQ(Folder.Bytes("out.gpx.part"), "mine");
    EXPECT_EQ(Folder.Files(), before + 1);
    Logger.Execute("UPDATE Track SET Height = 1e300"); // no altitude: the export ends half-way
    EXPECT_THROW(Exported(&TrackManager::cmdTrack_Click), RuntimeError);
    EXPECT_EQ(Folder.Bytes("out.gpx.part"), "mine");
    EXPECT_EQ(Folder.Files(), before + 1);
}

TEST_F(TrackManagerTest, AFileThatCannotBeWrittenIsLeftInSilence) {
    Manager.listTrack_MouseUp(0);
    Boxes.File = Folder.Path() / "missing" / "out.gpx";
    Manager.cmdTrack_Click();
    Boxes.File.reset();
    Manager.cmdTrack_Click(); // cancelled
    EXPECT_TRUE(Boxes.Shown.empty());
    EXPECT_FALSE(std::filesystem::exists(Folder.Path() / "missing"));
}

TEST_F(TrackManagerTest, WithoutAStoreThereIsNoManager) {
    Logger.Close();
    std::filesystem::remove(Folder.Path() / "track.ovd");
    TrackManager other(Shared, Shared, Boxes, LastDeed);
    EXPECT_THROW(other.Form_Load(), RuntimeError);
}

} // namespace
} // namespace ornivane
