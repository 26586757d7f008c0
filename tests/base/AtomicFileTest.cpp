#include "base/AtomicFile.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "support/TemporaryFolder.h"

namespace ornivane {
namespace {

namespace fs = std::filesystem;

int FilesIn(const fs::path& folder) {
    return static_cast<int>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

ErrorNumber ErrorOfWriting(const fs::path& file) {
    try {
        WriteFileAtomically(file, "new");
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return ErrorNumber::InvalidCall;
}

TEST(AtomicFile, ReplacesAFileAsAWholeAndLeavesNothingElse) {
    const TemporaryFolder folder;
    const fs::path file = folder.Path() / "Höhe.crm";
    const std::string bytes("\0\r\n\xFF", 4);
    WriteFileAtomically(file, std::string(100000, 'x'));
    WriteFileAtomically(file, bytes);
    EXPECT_EQ(ReadWholeFile(file), bytes);
    WriteFileAtomically(file, "");
    EXPECT_EQ(ReadWholeFile(file), "");
    EXPECT_EQ(FilesIn(folder.Path()), 1);
    // The longest name that there is; a temporary name is cut between two letters.
    std::string longest = "x";
    while (longest.size() < 255) longest += "ä";
    WriteFileAtomically(folder.Path() / longest, bytes);
    EXPECT_EQ(ReadWholeFile(folder.Path() / longest), bytes);
}

TEST(AtomicFile, SaysWhyAFileCannotBeWrittenAndTakesItsTraceAway) {
    const TemporaryFolder folder;
    EXPECT_EQ(ErrorOfWriting(folder.Path() / "nowhere" / "a.crm"), ErrorNumber::PathNotFound);
    WriteFileAtomically(folder.Path() / "file", "1");
    EXPECT_EQ(ErrorOfWriting(folder.Path() / "file" / "a.crm"), ErrorNumber::PathNotFound);
    fs::create_directory(folder.Path() / "folder");
    EXPECT_EQ(ErrorOfWriting(folder.Path() / "folder"), ErrorNumber::DeviceError);
    EXPECT_EQ(FilesIn(folder.Path()), 2);
    EXPECT_FALSE(ReadWholeFile(folder.Path() / "folder"));
    EXPECT_FALSE(ReadWholeFile(folder.Path() / "missing"));
    if (fs::exists("/dev/full")) {
        EXPECT_FALSE(ReadWholeFile("/dev/full"));
    }
}

} // namespace
} // namespace ornivane
