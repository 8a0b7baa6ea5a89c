#include "project/RecoveryStore.h"

#include "files/FileAccess.h"
#include "support/TestProject.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <gmock/gmock.h>
#include <list>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

namespace fs = std::filesystem;

mode_t RightsOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
    return status.st_mode & ACCESSPERMS;
}

class LeftCopies : public testing::Test {
protected:
    LeftCopies()
        : folders{(work.Path() / "state/strativo/recovery").string(),
                  (work.Path() / "runtime").string(), (work.Path() / "temporary").string()} {}

    /// A copy as a program leaves it that was killed.
    void LeaveCopy(const std::string& bytes) {
        const pid_t child = fork();
        if (child == 0) {
            RecoveryStore store(folders);
            store.Write(bytes);
            _exit(0);
        }
        waitpid(child, nullptr, 0);
    }

    std::vector<std::string> NamesIn(const std::string& folder) const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    std::vector<std::string> Found() const {
        std::vector<std::string> contents;
        for (const LeftCopy& copy : FindLeftCopies(folders))
            contents.push_back(ReadFileBytes(copy.path));
        return contents;
    }

    TemporaryFolder work;
    const std::vector<std::string> folders;
};

TEST_F(LeftCopies, AreForTheirUserOnly) {
    const mode_t mask = umask(0);
    RecoveryStore store(folders);
    EXPECT_TRUE(store.Write("work"));
    umask(mask);
    EXPECT_EQ(RightsOf(folders[0]), 0700U);
    EXPECT_EQ(RightsOf((work.Path() / "state/strativo").string()), 0700U);
    for (const std::string& name : NamesIn(folders[0]))
        EXPECT_EQ(RightsOf(folders[0] + "/" + name), 0600U) << name;
}

TEST_F(LeftCopies, LieInUsableFoldersWhateverTheMaskForNewFiles) {
    for (const mode_t mask : {0777U, 0177U}) {
        fs::remove_all(work.Path() / "state");
        const mode_t before = umask(mask);
        EXPECT_TRUE(RecoveryStore(folders).Write("work"));
        umask(before);
        for (const char* folder : {"state", "state/strativo", "state/strativo/recovery"})
            EXPECT_EQ(RightsOf((work.Path() / folder).string()), 0700U) << folder;
    }
}

TEST_F(LeftCopies, OfAnAdministratorMakeNoFoldersInAnothersHome) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only an administrator can make the foreign folder";
    const fs::path home = work.Path() / "home";
    fs::create_directory(home);
    ASSERT_EQ(chown(home.c_str(), 1234, 2345), 0);
    EXPECT_FALSE(MakePrivateFolder((home / ".local/state/strativo").string()));
    EXPECT_TRUE(fs::is_empty(home));
}

TEST_F(LeftCopies, AFolderThatOthersCouldLookIntoIsClosedToThem) {
    fs::create_directories(folders[0]);
    chmod(folders[0].c_str(), 0755);
    EXPECT_TRUE(RecoveryStore(folders).Write("work"));
    EXPECT_EQ(RightsOf(folders[0]), 0700U);
}

TEST_F(LeftCopies, OfARunningProgramAreNotFoundByAnother) {
    RecoveryStore store(folders);
    store.Write("work");
    EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(LeftCopies, OfTwoProgramsWithOneNumberInOneSecondAreBothKept) {
    // As in two containers that share a home.
    std::list<RecoveryStore> stores;
    for (const char* bytes : {"first", "second"})
        EXPECT_TRUE(stores.emplace_back(folders).Write(bytes));
    EXPECT_THAT(Found(), IsEmpty()) << "both are running";
    stores.clear();
    EXPECT_THAT(Found(), UnorderedElementsAre("first", "second"));
}

TEST_F(LeftCopies, OfAProgramThatEndedAreFoundWhole) {
    LeaveCopy("work");
    EXPECT_THAT(Found(), ElementsAre("work"));
    EXPECT_THAT(Found(), ElementsAre("work")); // looking takes nothing away
}

TEST_F(LeftCopies, ThatOneProgramLooksAtAreNotFoundByAnother) {
    LeaveCopy("work");
    const std::vector<LeftCopy> looking = FindLeftCopies(folders);
    EXPECT_THAT(looking, SizeIs(1));
    EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(LeftCopies, AreReplacedByLaterOnesOfTheSameProject) {
    {
        RecoveryStore store(folders);
        store.Write("first");
        store.Write("second");
        EXPECT_THAT(NamesIn(folders[0]), SizeIs(2)); // and the lock
    }
    EXPECT_THAT(Found(), ElementsAre("second"));
}

TEST_F(LeftCopies, OfAnEarlierProjectStayBesideTheNext) {
    {
        RecoveryStore store(folders);
        store.Write("first");
        store.Leave();
        EXPECT_FALSE(store.HasCopy());
        store.Write("second");
    }
    EXPECT_THAT(Found(), testing::UnorderedElementsAre("first", "second"));
}

TEST_F(LeftCopies, OfSavedWorkLeaveNothingBehind) {
    {
        RecoveryStore store(folders);
        store.Write("work");
        store.Remove();
        EXPECT_FALSE(store.HasCopy());
    }
    EXPECT_THAT(NamesIn(folders[0]), IsEmpty());
}

TEST_F(LeftCopies, OfSavedWorkLeaveTheCopiesOfOthersAlone) {
    RecoveryStore other(folders);
    other.Write("other's work");
    const std::vector<std::string> ofOther = NamesIn(folders[0]);
    {
        RecoveryStore store(folders);
        store.Write("work");
        store.Remove();
    }
    EXPECT_EQ(NamesIn(folders[0]), ofOther);
}

TEST_F(LeftCopies, OfWorkThatWasNotSavedKeepTheirLock) {
    {
        RecoveryStore store(folders);
        store.Write("work");
    }
    EXPECT_THAT(NamesIn(folders[0]), UnorderedElementsAre(EndsWith(".copy"), EndsWith(".lock")));
}

TEST_F(LeftCopies, ALockWithoutACopyGoesWhenItIsNoticed) {
    LeaveCopy("work");
    for (const LeftCopy& copy : FindLeftCopies(folders))
        fs::remove(copy.path);
    EXPECT_THAT(NamesIn(folders[0]), IsEmpty());
}

TEST_F(LeftCopies, TakenOverAreReplacedInTheirPlace) {
    LeaveCopy("work");
    {
        RecoveryStore store(folders);
        store.Adopt(FindLeftCopies(folders).at(0));
        EXPECT_THAT(Found(), IsEmpty());
        EXPECT_TRUE(store.Write("more work"));
    }
    EXPECT_THAT(Found(), ElementsAre("more work"));
}

TEST_F(LeftCopies, TheLatestIsTheFirst) {
    for (const char* bytes : {"a", "b", "c"})
        LeaveCopy(bytes);
    const std::vector<LeftCopy> copies = FindLeftCopies(folders);
    ASSERT_THAT(copies, SizeIs(3));
    EXPECT_GE(copies[0].modified, copies[1].modified);
    EXPECT_GE(copies[1].modified, copies[2].modified);
    EXPECT_EQ(ReadFileBytes(copies[0].path), "c");
}

TEST_F(LeftCopies, GoToTheNextFolderWhereOneCannotBeUsed) {
    work.Write("state", "a file where a folder should be");
    LeaveCopy("in the runtime folder");
    work.Write("runtime/x", "");
    EXPECT_THAT(Found(), ElementsAre("in the runtime folder"));
    fs::remove_all(folders[1]);
    work.Write("runtime", "a file here too");
    LeaveCopy("in the temporary folder");
    EXPECT_THAT(Found(), ElementsAre("in the temporary folder"));
    fs::remove_all(folders[2]);
    work.Write("temporary", "and here");
    EXPECT_FALSE(RecoveryStore(folders).Write("nowhere"));
}

TEST_F(LeftCopies, InEachOfTheFoldersAreFound) {
    LeaveCopy("in the first");
    fs::rename(folders[0], work.Path() / "kept");
    work.Write("state/strativo/recovery", "");
    LeaveCopy("in the second");
    fs::remove(folders[0]);
    fs::rename(work.Path() / "kept", folders[0]);
    EXPECT_THAT(Found(), ElementsAre("in the second", "in the first"));
}

TEST_F(LeftCopies, AFolderThatIsALinkIsNotFollowed) {
    fs::create_directories(work.Path() / "elsewhere");
    fs::create_directories(work.Path() / "state/strativo");
    fs::create_directory_symlink(work.Path() / "elsewhere", folders[0]);
    EXPECT_TRUE(RecoveryStore(folders).Write("work"));
    EXPECT_THAT(NamesIn((work.Path() / "elsewhere").string()), IsEmpty());
    EXPECT_FALSE(fs::is_empty(folders[1]));
}

TEST_F(LeftCopies, ALinkInTheirPlaceIsReplacedAndNotFollowed) {
    const std::string victim = work.Write("victim", "untouched");
    RecoveryStore store(folders);
    store.Write("work");
    for (const std::string& name : NamesIn(folders[0]))
        if (name.ends_with(".copy")) {
            fs::remove(folders[0] + "/" + name);
            fs::create_symlink(victim, folders[0] + "/" + name);
        }
    EXPECT_TRUE(store.Write("more work"));
    EXPECT_EQ(work.Read("victim"), "untouched");
}

TEST_F(LeftCopies, WhatIsALinkIsNoCopy) {
    LeaveCopy("work");
    const std::string victim = work.Write("victim", "of somebody else");
    const std::string path = FindLeftCopies(folders).at(0).path;
    fs::remove(path);
    fs::create_symlink(victim, path);
    EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(LeftCopies, AFolderOfAnotherUserIsNotUsed) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can give a folder away";
    fs::create_directories(folders[0]);
    constexpr uid_t nobody = 65534;
    ASSERT_EQ(chown(folders[0].c_str(), nobody, nobody), 0);
    EXPECT_TRUE(RecoveryStore(folders).Write("work"));
    EXPECT_THAT(NamesIn(folders[0]), IsEmpty());
    EXPECT_FALSE(fs::is_empty(folders[1]));
}

TEST_F(LeftCopies, AFolderThatIsClearedMeanwhileIsMadeAnew) {
    RecoveryStore store(folders);
    store.Write("first");
    fs::remove_all(folders[0]);
    EXPECT_TRUE(store.Write("second"));
    EXPECT_THAT(Found(), IsEmpty()); // locked again
    EXPECT_THAT(NamesIn(folders[0]), SizeIs(2));
}

TEST_F(LeftCopies, RefusedOnesAreKeptThirtyDays) {
    LeaveCopy("work");
    RefuseCopy(FindLeftCopies(folders).at(0));
    EXPECT_THAT(Found(), IsEmpty());
    constexpr std::int64_t day = 24 * 60 * 60;
    const std::int64_t now = std::time(nullptr);
    RemoveOldCopies(folders, now + 30 * day - 60);
    ASSERT_THAT(NamesIn(folders[0]), ElementsAre(EndsWith(".refused")));
    RemoveOldCopies(folders, now + 30 * day + 60);
    EXPECT_THAT(NamesIn(folders[0]), IsEmpty());
}

TEST_F(LeftCopies, AFolderHasTwentyRefusedOnesAtTheMost) {
    for (int i = 0; i < 23; ++i)
        LeaveCopy(std::to_string(i));
    for (const LeftCopy& copy : FindLeftCopies(folders))
        RefuseCopy(copy);
    RemoveOldCopies(folders, std::time(nullptr));
    EXPECT_THAT(NamesIn(folders[0]), SizeIs(20));
}

TEST_F(LeftCopies, DamagedOnesAreKeptAsideForGood) {
    LeaveCopy("work");
    const std::string path = SetDamagedCopyAside(FindLeftCopies(folders).at(0));
    EXPECT_THAT(path, EndsWith(".damaged"));
    EXPECT_THAT(Found(), IsEmpty());
    RemoveOldCopies(folders, std::time(nullptr) + 400LL * 24 * 60 * 60);
    EXPECT_EQ(ReadFileBytes(path), "work");
}

TEST_F(LeftCopies, WhatAKilledProgramHalfWroteGoesAfterADay) {
    LeaveCopy("work");
    const std::string half = folders[0] + "/.strativo-abcdef";
    work.Write("state/strativo/recovery/.strativo-abcdef", "ha");
    const std::int64_t now = std::time(nullptr);
    constexpr std::int64_t day = 24 * 60 * 60;
    RemoveOldCopies(folders, now + day - 60);
    EXPECT_TRUE(fs::exists(half));
    RemoveOldCopies(folders, now + day + 60);
    EXPECT_FALSE(fs::exists(half));
    EXPECT_THAT(Found(), ElementsAre("work"));
}

TEST(RecoveryFolders, AreThoseOfTheUser) {
    setenv("XDG_STATE_HOME", "/somewhere/state", 1);
    setenv("XDG_RUNTIME_DIR", "/run/user/7", 1);
    setenv("TMPDIR", "/var/tmp", 1);
    EXPECT_THAT(RecoveryFolders(),
                ElementsAre("/somewhere/state/strativo/recovery", "/run/user/7/strativo-recovery",
                            "/var/tmp/strativo-recovery-" + std::to_string(geteuid())));
    unsetenv("XDG_STATE_HOME");
    unsetenv("XDG_RUNTIME_DIR");
    unsetenv("TMPDIR");
    setenv("HOME", "/home/user", 1);
    EXPECT_THAT(RecoveryFolders(),
                ElementsAre("/home/user/.local/state/strativo/recovery",
                            "/tmp/strativo-recovery-" + std::to_string(geteuid())));
}

} // namespace
} // namespace strativo
