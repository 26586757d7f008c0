#include "store/Backup.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "store/Schema.h"
#include "support/Rows.h"
#include "support/TemporaryFolder.h"

namespace ornivane {
namespace {

namespace fs = std::filesystem;

class BackupTest : public testing::Test {
protected:
    BackupTest() {
        CreateStore(Store, StoreKind::Track);
        Track.Open(Store, Connection::Mode::ReadWrite);
        Track.Execute("INSERT INTO List (Name) VALUES ('01Jan26 - 10:00')");
    }
    int TracksIn(const fs::path& file) {
        Connection copy;
        copy.Open(file, Connection::Mode::ReadWrite);
        return static_cast<int>(RowsOf(copy, "SELECT * FROM List").size());
    }
    TemporaryFolder Folder;
    fs::path Store = Folder.Path() / "track.ovd", Copy = Folder.Path() / "track.bak";
    Connection Track;
};

TEST_F(BackupTest, CopiesAnOpenStoreAndReplacesTheCopyBefore) {
    // What a crash during an earlier backup left behind must not get into the copy.
    WriteFileAtomically(Copy.string() + ".new", "half a copy");
    WriteFileAtomically(Copy.string() + ".new-journal", "its journal");
    BackupStore(Track, Copy);
    EXPECT_EQ(TracksIn(Copy), 1);
    Track.Execute("INSERT INTO List (Name) VALUES ('02Jan26 - 10:00')");
    BackupStore(Track, Copy);
    EXPECT_EQ(TracksIn(Copy), 2);
    EXPECT_EQ(Folder.Files(), 2);
}

TEST_F(BackupTest, KeepsTheCopyBeforeWhenItFailsAndNeverTouchesTheStore) {
    BackupStore(Track, Copy);
    Track.Execute("INSERT INTO List (Name) VALUES ('02Jan26 - 10:00')");
    Connection other;
    other.Open(Store, Connection::Mode::ReadWrite);
    other.Execute("BEGIN EXCLUSIVE");
    EXPECT_THROW(BackupStore(Track, Copy), RuntimeError);
    other.Execute("ROLLBACK");
    EXPECT_EQ(TracksIn(Copy), 1);
    EXPECT_THROW(BackupStore(Track, Store), RuntimeError);
    EXPECT_THROW(BackupStore(Track, Folder.Path() / "missing" / "track.bak"), RuntimeError);
    EXPECT_THROW(BackupStore(Connection(), Copy), RuntimeError);
    EXPECT_EQ(TracksIn(Store), 2);
    EXPECT_EQ(Folder.Files(), 2);
}

} // namespace
} // namespace ornivane
