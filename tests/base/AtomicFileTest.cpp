#include "base/AtomicFile.h"

#include <gtest/gtest.h>

#include "base/Paths.h"
#include "base/RuntimeError.h"
#include "support/TemporaryFolder.h"

namespace ornivane {
namespace {

namespace fs = std::filesystem;

ErrorNumber ErrorOfWriting(const fs::path& file) {
    const auto error = ErrorOf([&] { WriteFileAtomically(file, "new"); });
    return error ? error->Number() : ErrorNumber{};
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
    EXPECT_EQ(folder.Files(), 1);
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
    EXPECT_EQ(folder.Files(), 2);
    EXPECT_FALSE(ReadWholeFile(folder.Path() / "folder"));
    EXPECT_FALSE(ReadWholeFile(folder.Path() / "missing"));
    if (fs::exists("/dev/full")) {
        EXPECT_FALSE(ReadWholeFile("/dev/full"));
    }
}

TEST(Paths, FollowLinksAndNeverFail) {
    const TemporaryFolder folder;
    const auto file = folder.Path() / "file", link = folder.Path() / "link",
               broken = folder.Path() / "broken";
    WriteFileAtomically(file, "");
    fs::create_symlink(folder.Path(), link);
    fs::create_symlink("nowhere", broken);
    EXPECT_TRUE(FileExists(file) && FileExists(link / "file"));
    EXPECT_TRUE(DirExists(folder.Path()) && DirExists(link));
    EXPECT_FALSE(DirExists(file) || FileExists(link));
    for (const auto& nothing : {broken, file / "below", folder.Path() / std::string(5000, 'x'), {}})
        EXPECT_FALSE(FileExists(nothing) || DirExists(nothing)) << nothing;
    EXPECT_FALSE(FileExists("/dev/null")); // has no bytes to keep
}

} // namespace
} // namespace ornivane
