#include "files/FileAccess.h"
#include "support/AsNobody.h"
#include "support/Permissions.h"
#include "support/TestProject.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace strativo {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

/// What the user is told; "" if the file was written.
std::string Failure(const std::string& path, std::string_view bytes) {
    try {
        FileStamp stamp;
        ReplaceFile(
            path, [&](const ByteSink& sink) { sink(bytes); }, stamp);
        return "";
    } catch (const WriteError& error) {
        return error.what();
    }
}

TEST(ReplaceFile, KeepsTheOldFileWhereTheBytesEndEarly) {
    const TemporaryFolder folder;
    folder.Write("house.con", "old");
    FileStamp stamp;
    const auto endEarly = [](const ByteSink& sink) {
        sink("new, as far as");
        throw std::length_error("no more");
    };
    EXPECT_THROW(ReplaceFile("house.con", endEarly, stamp), std::length_error);
    EXPECT_EQ(folder.Read("house.con"), "old");
    EXPECT_THAT(folder.Entries(), ElementsAre("house.con"));
}

TEST(ReplaceFile, WritesANewFileWithTheUsualPermissions) {
    const TemporaryFolder folder;
    const mode_t mask = umask(027);
    const std::string failure = Failure("new file \xe9.con", "bytes");
    umask(mask);
    EXPECT_EQ(failure, "");
    EXPECT_EQ(folder.Read("new file \xe9.con"), "bytes");
    EXPECT_EQ(Permissions("new file \xe9.con"), 0640U);
    EXPECT_EQ(folder.Entries().size(), 1U) << "no temporary file is left";
}

TEST(ReplaceFile, ReplacesTheOldContentAndKeepsPermissions) {
    const TemporaryFolder folder;
    folder.Write("a.con", "a much longer old content");
    ASSERT_EQ(chmod("a.con", 0604), 0);
    EXPECT_EQ(Failure("a.con", "new"), "");
    EXPECT_EQ(folder.Read("a.con"), "new");
    EXPECT_EQ(Permissions("a.con"), 0604U);
    EXPECT_THAT(folder.Entries(), ElementsAre("a.con"));
}

TEST(ReplaceFile, KeepsOwnerAndGroupWhereThatIsAllowed) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only an administrator can give files away";
    const TemporaryFolder folder;
    folder.Write("a.con", "old");
    ASSERT_EQ(chown("a.con", 1234, 2345), 0);
    EXPECT_EQ(Failure("a.con", "new"), "");
    struct stat status {};
    ASSERT_EQ(stat("a.con", &status), 0);
    EXPECT_EQ(status.st_uid, 1234U);
    EXPECT_EQ(status.st_gid, 2345U);
}

TEST(ReplaceFile, GivesNoRightsOfAForeignGroupToAnother) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only an administrator can make the foreign file";
    const TemporaryFolder folder;
    folder.Write("a.con", "old");
    ASSERT_EQ(chown("a.con", 1234, 2345), 0);
    ASSERT_EQ(chmod("a.con", 0662), 0);
    ASSERT_EQ(chmod(folder.Path().c_str(), 0777), 0);
    std::string failure;
    AsNobody([&] { failure = Failure("a.con", "new"); });
    EXPECT_EQ(failure, "");
    EXPECT_EQ(Permissions("a.con"), 0602U);
}

TEST(ReplaceFile, WritesManyBytes) {
    const TemporaryFolder folder;
    const std::string bytes(20'000'000, 'x');
    EXPECT_EQ(Failure("big", bytes), "");
    EXPECT_EQ(fs::file_size("big"), bytes.size());
}

TEST(ReplaceFile, FollowsSymbolicLinks) {
    const TemporaryFolder folder;
    folder.Write("real/a.con", "old");
    fs::create_symlink("../real/a.con", folder.Path() / "real/second");
    fs::create_symlink(folder.Path() / "real/second", "first");
    EXPECT_EQ(Failure("first", "new"), "");
    EXPECT_TRUE(fs::is_symlink("first"));
    EXPECT_TRUE(fs::is_symlink("real/second"));
    EXPECT_EQ(folder.Read("real/a.con"), "new");
}

TEST(ReplaceFile, FollowsALinkInTheWorkingDirectory) {
    const TemporaryFolder folder;
    fs::create_symlink("not there yet.con", "link");
    EXPECT_EQ(Failure("link", "new"), "");
    EXPECT_TRUE(fs::is_symlink("link"));
    EXPECT_EQ(folder.Read("not there yet.con"), "new");
}

TEST(ReplaceFile, FollowsAsManyLinksAsReading) {
    constexpr int most = 40;
    const TemporaryFolder folder;
    folder.Write("0", "old");
    for (int link = 1; link <= most; ++link)
        fs::create_symlink(std::to_string(link - 1), std::to_string(link));
    const std::string last = std::to_string(most);
    EXPECT_EQ(folder.Read(last), "old");
    EXPECT_EQ(Failure(last, "new"), "");
    EXPECT_EQ(folder.Read("0"), "new");
    EXPECT_TRUE(fs::is_symlink(last));
}

TEST(ReplaceFile, RefusesARingOfLinks) {
    const TemporaryFolder folder;
    fs::create_symlink("b", "a");
    fs::create_symlink("a", "b");
    EXPECT_EQ(Failure("a", "new"), "Too many levels of symbolic links");
}

TEST(ReplaceFile, RefusesAReadOnlyFile) {
    const TemporaryFolder folder;
    folder.Write("a.con", "old");
    ASSERT_EQ(chmod("a.con", 0444), 0);
    EXPECT_EQ(Failure("a.con", "new"), "The file is read-only");
    EXPECT_EQ(folder.Read("a.con"), "old");
    EXPECT_THAT(folder.Entries(), ElementsAre("a.con"));
}

TEST(ReplaceFile, RefusesAFileThatTheUserMayNotWrite) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only an administrator can make the foreign file";
    const TemporaryFolder folder;
    folder.Write("a.con", "old");
    ASSERT_EQ(chmod("a.con", 0644), 0);
    ASSERT_EQ(chmod(folder.Path().c_str(), 0777), 0);
    std::string failure;
    AsNobody([&] { failure = Failure("a.con", "new"); });
    EXPECT_EQ(failure, "Permission denied");
    EXPECT_EQ(folder.Read("a.con"), "old");
}

TEST(ReplaceFile, RefusesAFileWithFurtherHardLinks) {
    const TemporaryFolder folder;
    folder.Write("a.con", "old");
    fs::create_hard_link("a.con", "b.con");
    EXPECT_THAT(Failure("a.con", "new"), HasSubstr("hard links"));
    EXPECT_EQ(folder.Read("a.con"), "old");
    EXPECT_THAT(folder.Entries(), ElementsAre("a.con", "b.con"));
}

TEST(ReplaceFile, RefusesWhatIsNoFile) {
    const TemporaryFolder folder;
    fs::create_directory("folder");
    EXPECT_EQ(Failure("folder", "new"), "Is a directory");
    EXPECT_EQ(Failure("/dev/full", "new"), "It is not a regular file");
    EXPECT_EQ(Failure("missing/a.con", "new"), "No such file or directory");
    EXPECT_EQ(Failure("", "new"), "No such file or directory");
    folder.Write("file", "");
    EXPECT_EQ(Failure("file/a.con", "new"), "Not a directory");
}

TEST(ReplaceFile, RefusesAPathThatMayNotBeLookedAt) {
    const TemporaryFolder folder;
    folder.Write("closed/a.con", "old");
    ASSERT_EQ(chmod("closed", 0), 0);
    ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
    std::string failure;
    AsNobody([&] { failure = Failure("closed/a.con", "new"); });
    ASSERT_EQ(chmod("closed", 0755), 0);
    EXPECT_EQ(failure, "Permission denied");
    EXPECT_EQ(folder.Read("closed/a.con"), "old");
}

TEST(ReplaceFile, RefusesAFolderWhereNothingMayBeMade) {
    const TemporaryFolder folder;
    ASSERT_EQ(chmod(folder.Path().c_str(), 0555), 0);
    std::string failure;
    AsNobody([&] { failure = Failure("a.con", "new"); });
    EXPECT_EQ(failure, "Permission denied");
}

TEST(ReplaceFile, WritesIntoAFolderThatCannotBeListed) {
    const TemporaryFolder folder;
    folder.Write("drop box/x", "");
    ASSERT_EQ(chmod("drop box", 0333), 0);
    ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
    std::string failure;
    AsNobody([&] { failure = Failure("drop box/a.con", "new"); });
    EXPECT_EQ(failure, "");
    ASSERT_EQ(chmod("drop box", 0755), 0);
    EXPECT_EQ(folder.Read("drop box/a.con"), "new");
}

TEST(ReplaceFile, KeepsTheOldFileWhenTheDiskIsFull) {
    const TemporaryFolder folder;
    fs::create_directory("small");
    if (mount("none", "small", "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "no file system can be mounted here";
    folder.Write("small/a.con", "old");
    const std::string failure = Failure("small/a.con", std::string(1'000'000, 'x'));
    const std::string left = folder.Read("small/a.con");
    const bool alone = std::distance(fs::directory_iterator("small"), {}) == 1;
    umount("small");
    EXPECT_EQ(failure, "No space left on device");
    EXPECT_EQ(left, "old");
    EXPECT_TRUE(alone) << "no temporary file is left";
}

TEST(ReplaceFile, KeepsTheOldFileWhenWritingFailsHalfWay) {
    const TemporaryFolder folder;
    folder.Write("a.con", "old");
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small{10'000, before.rlim_max};
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string failure = Failure("a.con", std::string(100'000, 'x'));
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(failure, "File too large");
    EXPECT_EQ(folder.Read("a.con"), "old");
    EXPECT_THAT(folder.Entries(), ElementsAre("a.con"));
}

TEST(ReplaceFile, RefusesAFileOnAReadOnlyMedium) {
    const TemporaryFolder folder;
    fs::create_directory("medium");
    if (mount("none", "medium", "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "no file system can be mounted here";
    folder.Write("medium/a.con", "old");
    const bool remounted = mount("none", "medium", "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    const std::string failure = Failure("medium/a.con", "new");
    umount("medium");
    ASSERT_TRUE(remounted);
    EXPECT_EQ(failure, "Read-only file system");
}

} // namespace
} // namespace strativo
