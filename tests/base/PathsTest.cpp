#include "base/Paths.h"

#include <string>

#include <gtest/gtest.h>

#include "base/AtomicFile.h"
#include "support/TemporaryFolder.h"

namespace ornivane {
namespace {

TEST(Paths, FollowLinksAndNeverFail) {
    const TemporaryFolder folder;
    const auto file = folder.Path() / "file", link = folder.Path() / "link",
               broken = folder.Path() / "broken";
    WriteFileAtomically(file, "");
    std::filesystem::create_symlink(folder.Path(), link);
    std::filesystem::create_symlink("nowhere", broken);
    EXPECT_TRUE(FileExists(file) && FileExists(link / "file"));
    EXPECT_TRUE(DirExists(folder.Path()) && DirExists(link));
    EXPECT_FALSE(DirExists(file) || FileExists(link));
    for (const auto& nothing : {broken, file / "below", folder.Path() / std::string(5000, 'x'), {}})
        EXPECT_FALSE(FileExists(nothing) || DirExists(nothing)) << nothing;
    EXPECT_FALSE(FileExists("/dev/null")); // has no bytes to keep
}

} // namespace
} // namespace ornivane
