#include "files/FileAccess.h"

#include "support/AsNobody.h"
#include "support/SpecialFiles.h"
#include "support/TestProject.h"

#include <cerrno>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace strativo {
namespace {

/// The number of the failure, 0 where the file was read.
int ReadingFailure(const std::string& path) {
    try {
        ReadFileBytes(path);
        return 0;
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
}

TEST(ReadFileBytes, GivesEveryByteOfTheFile) {
    const TemporaryFolder folder;
    const std::string bytes("a\0b\r\n\x1a\xff", 7);
    EXPECT_EQ(ReadFileBytes(folder.Write("all bytes \xe9.con", bytes)), bytes);
}

TEST(ReadFileBytes, ReadsAnEmptyFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(ReadFileBytes(folder.Write("empty", "")), "");
}

TEST(ReadFileBytes, ReadsAFileWhoseSizeIsNotKnownBefore) {
    EXPECT_NE(ReadFileBytes("/proc/self/status").find("VmSize"), std::string::npos);
}

TEST(ReadFileBytes, RefusesAFileAboveOneGibibyteWithoutReadingIt) {
    const TemporaryFolder folder;
    constexpr off_t gibibyte = off_t{1} << 30;
    ASSERT_EQ(truncate(folder.Write("huge.con", "").c_str(), gibibyte + 1), 0);
    EXPECT_EQ(ReadingFailure("huge.con"), 7);
}

TEST(ReadFileBytes, SaysByNumberThatThereIsNotEnoughMemory) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizers need more address space than the limit leaves";
#endif
    const TemporaryFolder folder;
    ASSERT_EQ(truncate(folder.Write("large.con", "").c_str(), off_t{1} << 29), 0);
    EXPECT_EXIT(
        {
            rlimit limit{};
            getrlimit(RLIMIT_AS, &limit);
            limit.rlim_cur = std::size_t{1} << 28;
            setrlimit(RLIMIT_AS, &limit);
            std::_Exit(ReadingFailure("large.con"));
        },
        testing::ExitedWithCode(7), "");
}

TEST(IsSameFile, LooksAtTheFileAndNotAtItsName) {
    const TemporaryFolder folder;
    folder.Write("a.con", "x");
    folder.Write("b.con", "x");
    std::filesystem::create_hard_link("a.con", "hard");
    std::filesystem::create_symlink("a.con", "soft");
    for (const std::string name : {"a.con", "./a.con", "hard", "soft"})
        EXPECT_TRUE(IsSameFile("a.con", name)) << name;
    EXPECT_FALSE(IsSameFile("a.con", "b.con"));
    EXPECT_FALSE(IsSameFile("a.con", "missing"));
    EXPECT_FALSE(IsSameFile("missing", "missing"));
}

TEST(ReadFileBytes, NumbersTheFailures) {
    const TemporaryFolder folder;
    folder.Write("file", "x");
    ASSERT_EQ(mkfifo("fifo", 0600), 0);
    EXPECT_EQ(ReadingFailure("missing"), 53);
    EXPECT_EQ(ReadingFailure("/missing at the root"), 53);
    EXPECT_EQ(ReadingFailure("no folder/missing"), 76);
    EXPECT_EQ(ReadingFailure("file/missing"), 76);
    EXPECT_EQ(ReadingFailure(std::string(300, 'x')), 76);
    EXPECT_EQ(ReadingFailure(folder.Path().string()), 75) << "a folder";
    EXPECT_EQ(ReadingFailure("fifo"), 75) << "a FIFO must not hang";
    EXPECT_EQ(ReadingFailure("/dev/null"), 75) << "a device";
    EXPECT_EQ(ReadingFailure("/proc/self/mem"), 57) << "an input error";
}

TEST(ReadFileBytes, TakesASocketForAMissingDevice) {
    const TemporaryFolder folder;
    MakeSocket("socket");
    EXPECT_EQ(ReadingFailure("socket"), 68);
}

TEST(ReadFileBytes, ReportsAFileThatMayNotBeRead) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("secret", "x");
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
    int failure = 0;
    AsNobody([&] { failure = ReadingFailure(path); });
    EXPECT_EQ(failure, 70);
}

/// As long as it lives, no file can be opened.
class NoMoreOpenFiles {
public:
    NoMoreOpenFiles() {
        EXPECT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
        const rlimit none{0, before.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    }
    ~NoMoreOpenFiles() { EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0); }

    NoMoreOpenFiles(const NoMoreOpenFiles&) = delete;
    NoMoreOpenFiles& operator=(const NoMoreOpenFiles&) = delete;

private:
    rlimit before{};
};

TEST(ReadFileBytes, ReportsTooManyOpenFiles) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizers open a pipe to look at an exception that is being made";
#endif
    const TemporaryFolder folder;
    const std::string path = folder.Write("file", "x");
    try {
        const NoMoreOpenFiles limit;
        ReadFileBytes(path);
        FAIL() << "the file was read";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(static_cast<int>(error.Number()), 67);
    }
}

struct SystemFailure {
    int systemError;
    int number;
};

class SystemErrorNumber : public testing::TestWithParam<SystemFailure> {};

TEST_P(SystemErrorNumber, IsTheOneThatMessagesShow) {
    EXPECT_EQ(static_cast<int>(ErrorNumberOf(GetParam().systemError)), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(All, SystemErrorNumber,
                         testing::Values(SystemFailure{ENOENT, 53}, SystemFailure{ENOTDIR, 76},
                                         SystemFailure{ENAMETOOLONG, 76}, SystemFailure{ENODEV, 68},
                                         SystemFailure{ENXIO, 68}, SystemFailure{ENOMEDIUM, 68},
                                         SystemFailure{EACCES, 70}, SystemFailure{EPERM, 70},
                                         SystemFailure{EROFS, 70}, SystemFailure{EISDIR, 75},
                                         SystemFailure{ENOSPC, 61}, SystemFailure{EDQUOT, 61},
                                         SystemFailure{EMFILE, 67}, SystemFailure{ENFILE, 67},
                                         SystemFailure{EIO, 57}, SystemFailure{ELOOP, 57}));

TEST(FolderOf, IsWhatStandsBeforeTheLastSlash) {
    EXPECT_EQ(FolderOf("file"), "");
    EXPECT_EQ(FolderOf("a/b/file"), "a/b");
    EXPECT_EQ(FolderOf("/file"), "/");
}

} // namespace
} // namespace strativo
