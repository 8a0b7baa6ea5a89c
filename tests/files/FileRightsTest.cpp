#include "files/FileAccess.h"
#include "support/AsNobody.h"
#include "support/Permissions.h"
#include "support/TestProject.h"

#include <acl/libacl.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <memory>
#include <sys/acl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace strativo {
namespace {

namespace fs = std::filesystem;

/// What the user is told; "" if the file was written.
std::string Failure(const std::string& path) {
    try {
        FileStamp stamp;
        return ReplaceFile(
            path, [](const ByteSink& sink) { sink("new"); }, stamp);
    } catch (const WriteError& error) {
        return error.what();
    }
}

bool SetAcl(const std::string& path, acl_type_t type, const std::string& text) {
    const std::unique_ptr<std::remove_pointer_t<acl_t>, int (*)(void*)> acl(
        acl_from_text(text.c_str()), acl_free);
    return acl_set_file(path.c_str(), type, acl.get()) == 0;
}

/// The access control list in its short form.
std::string AclOf(const std::string& path) {
    const std::unique_ptr<std::remove_pointer_t<acl_t>, int (*)(void*)> acl(
        acl_get_file(path.c_str(), ACL_TYPE_ACCESS), acl_free);
    const std::unique_ptr<char, int (*)(void*)> text(
        acl_to_any_text(acl.get(), nullptr, ',', TEXT_ABBREVIATE | TEXT_NUMERIC_IDS), acl_free);
    return text.get();
}

void MakeByTheSystem(const std::string& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0666);
    ASSERT_GE(file, 0);
    close(file);
}

class UmaskKept : public testing::TestWithParam<mode_t> {};

TEST_P(UmaskKept, ByANewFileAndByNoOther) {
    const TemporaryFolder folder;
    folder.Write("old.con", "old");
    ASSERT_EQ(chmod("old.con", 0646), 0);
    const mode_t before = umask(GetParam());
    MakeByTheSystem("by the system");
    const std::string failures = Failure("new.con") + Failure("old.con");
    umask(before);
    EXPECT_EQ(failures, "");
    EXPECT_EQ(Permissions("new.con"), 0666U & ~GetParam());
    EXPECT_EQ(Permissions("new.con"), Permissions("by the system"));
    EXPECT_EQ(Permissions("old.con"), 0646U);
}

INSTANTIATE_TEST_SUITE_P(FileRights, UmaskKept, testing::Values(0000, 0002, 0022, 0027, 0077));

class ModeKept : public testing::TestWithParam<mode_t> {};

TEST_P(ModeKept, OfTheOldFile) {
    const TemporaryFolder folder;
    folder.Write("a.con", "old");
    ASSERT_EQ(chmod("a.con", GetParam()), 0);
    EXPECT_EQ(Failure("a.con"), "");
    EXPECT_EQ(Permissions("a.con"), GetParam());
    EXPECT_EQ(folder.Read("a.con"), "new");
}

INSTANTIATE_TEST_SUITE_P(FileRights, ModeKept,
                         testing::Values(0600, 0604, 0640, 0644, 0660, 0664, 0666, 0755));

class AclKept : public testing::TestWithParam<const char*> {};

TEST_P(AclKept, OfTheOldFile) {
    const TemporaryFolder folder;
    folder.Write("a.con", "old");
    if (!SetAcl("a.con", ACL_TYPE_ACCESS, GetParam()))
        GTEST_SKIP() << "this file system has no access control lists";
    const unsigned mode = Permissions("a.con");
    EXPECT_EQ(Failure("a.con"), "");
    EXPECT_EQ(folder.Read("a.con"), "new");
    EXPECT_EQ(AclOf("a.con"), GetParam());
    EXPECT_EQ(Permissions("a.con"), mode);
}

INSTANTIATE_TEST_SUITE_P(FileRights, AclKept,
                         testing::Values("u::rw-,g::r--,o::---",
                                         "u::rw-,u:1234:rw-,g::---,m::rw-,o::---",
                                         "u::rw-,u:1234:r--,u:1235:---,g::r--,m::r--,o::r--",
                                         "u::rw-,g::rw-,g:2345:r--,m::r--,o::---",
                                         "u::rwx,g::r-x,g:2345:rwx,m::rwx,o::r-x"));

TEST(FileRights, NoMaskBecomesARightOfAGroup) {
    const TemporaryFolder folder;
    folder.Write("a.con", "old");
    if (geteuid() != 0)
        GTEST_SKIP() << "only an administrator can make the foreign file";
    ASSERT_EQ(chown("a.con", 1234, 2345), 0);
    if (!SetAcl("a.con", ACL_TYPE_ACCESS, "u::rw-,u:65534:rw-,g::rw-,m::rw-,o::---"))
        GTEST_SKIP() << "this file system has no access control lists";
    ASSERT_EQ(chmod(folder.Path().c_str(), 0777), 0);
    std::string failure;
    AsNobody([&] { failure = Failure("a.con"); });
    EXPECT_EQ(failure, "");
    EXPECT_EQ(AclOf("a.con"), "u::rw-,u:65534:rw-,g::---,m::rw-,o::---");
}

class FolderWithDefaultAcl : public testing::TestWithParam<const char*> {
protected:
    FolderWithDefaultAcl() { supported = SetAcl(".", ACL_TYPE_DEFAULT, GetParam()); }

    TemporaryFolder folder;
    bool supported = false;
};

TEST_P(FolderWithDefaultAcl, RulesNewFilesWhateverTheUmask) {
    if (!supported)
        GTEST_SKIP() << "this file system has no access control lists";
    const mode_t before = umask(077);
    MakeByTheSystem("by the system");
    const std::string failure = Failure("new.con");
    umask(before);
    EXPECT_EQ(failure, "");
    EXPECT_EQ(AclOf("new.con"), AclOf("by the system"));
}

TEST_P(FolderWithDefaultAcl, DoesNotRuleOldOnes) {
    if (!supported)
        GTEST_SKIP() << "this file system has no access control lists";
    folder.Write("a.con", "old");
    ASSERT_TRUE(SetAcl("a.con", ACL_TYPE_ACCESS, "u::rw-,g::rw-,o::---"));
    EXPECT_EQ(Failure("a.con"), "");
    EXPECT_EQ(AclOf("a.con"), "u::rw-,g::rw-,o::---");
}

INSTANTIATE_TEST_SUITE_P(FileRights, FolderWithDefaultAcl,
                         testing::Values("u::rwx,g::r-x,o::---",
                                         "u::rwx,u:1234:rwx,g::r-x,m::rwx,o::---",
                                         "u::rwx,g::rwx,g:2345:r-x,m::r-x,o::r-x"));

TEST(FileRights, ExtendedAttributesAreCarriedOver) {
    const TemporaryFolder folder;
    folder.Write("a.con", "old");
    const std::string large(500, '\0');
    if (setxattr("a.con", "user.origin", "site \xE9", 6, 0) != 0)
        GTEST_SKIP() << "this file system has no extended attributes";
    ASSERT_EQ(setxattr("a.con", "user.empty", "", 0, 0), 0);
    ASSERT_EQ(setxattr("a.con", "user.large", large.data(), large.size(), 0), 0);
    EXPECT_EQ(Failure("a.con"), "");
    EXPECT_EQ(folder.Read("a.con"), "new");
    std::string value(1000, 'x');
    ASSERT_EQ(getxattr("a.con", "user.origin", value.data(), value.size()), 6);
    EXPECT_EQ(value.substr(0, 6), "site \xE9");
    EXPECT_EQ(getxattr("a.con", "user.empty", value.data(), value.size()), 0);
    EXPECT_EQ(getxattr("a.con", "user.large", value.data(), value.size()), 500);
}

constexpr char foreignLink[] = "Another user's link in a folder open to all leads there";

class LinkOfAnotherUser : public testing::Test {
protected:
    void SetUp() override {
        if (geteuid() != 0)
            GTEST_SKIP() << "only an administrator can make the foreign link";
        folder.Write("mine/a.con", "old");
        fs::create_directory("open");
        fs::create_symlink("../mine/a.con", "open/file");
        fs::create_symlink("../mine", "open/folder");
        for (const char* link : {"open/file", "open/folder"})
            ASSERT_EQ(lchown(link, 1234, 1234), 0);
    }

    TemporaryFolder folder;
};

TEST_F(LinkOfAnotherUser, IsNotFollowedInAFolderOpenToAll) {
    ASSERT_EQ(chmod("open", 01777), 0);
    EXPECT_EQ(Failure("open/file"), foreignLink);
    EXPECT_EQ(Failure("open/folder/a.con"), foreignLink);
    EXPECT_EQ(Failure(fs::absolute("open/folder/new.con").string()), foreignLink);
    fs::create_symlink("open/file", "mine to foreign");
    EXPECT_EQ(Failure("mine to foreign"), foreignLink);
    EXPECT_EQ(folder.Read("mine/a.con"), "old");
    EXPECT_FALSE(fs::exists("mine/new.con"));
}

TEST_F(LinkOfAnotherUser, IsFollowedWhereThatUserMayWriteAnyway) {
    ASSERT_EQ(chmod("open", 0755), 0);
    EXPECT_EQ(Failure("open/file"), "");
    EXPECT_EQ(folder.Read("mine/a.con"), "new");
}

TEST_F(LinkOfAnotherUser, IsNoReasonToRefuseOnesOwn) {
    ASSERT_EQ(chmod("open", 01777), 0);
    ASSERT_EQ(lchown("open/file", 0, 0), 0);
    EXPECT_EQ(Failure("open/file"), "");
    EXPECT_EQ(folder.Read("mine/a.con"), "new");
}

void Age(const std::string& path, int minutes) {
    const timespec then{std::time(nullptr) - minutes * 60, 0};
    const timespec times[] = {then, then};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
}

TEST(Leftovers, OfAKilledSaveGoWithTheNextOneAfterADay) {
    const TemporaryFolder folder;
    for (const char* name : {".strativo-aB3dE6", ".strativo-yOung6", ".strativo-longer6",
                             ".strativo-xyz", "strativo-aB3dE6x", "a.con"})
        folder.Write(name, "left");
    fs::create_directory(".strativo-folder");
    fs::create_symlink("a.con", ".strativo-linked");
    for (const std::string& name : folder.Entries())
        Age(name, name == ".strativo-yOung6" ? 24 * 60 - 5 : 24 * 60 + 5);
    EXPECT_EQ(Failure("a.con"), "");
    std::vector<std::string> left = folder.Entries();
    const std::vector<std::string> expected = {".strativo-folder",  ".strativo-linked",
                                               ".strativo-longer6", ".strativo-xyz",
                                               ".strativo-yOung6",  "a.con",
                                               "strativo-aB3dE6x"};
    EXPECT_EQ(left, expected);
}

TEST(Leftovers, OfAnotherUserStay) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only an administrator can make the foreign file";
    const TemporaryFolder folder;
    folder.Write(".strativo-aB3dE6", "left");
    ASSERT_EQ(chown(".strativo-aB3dE6", 1234, 1234), 0);
    Age(".strativo-aB3dE6", 48 * 60);
    EXPECT_EQ(Failure("a.con"), "");
    EXPECT_TRUE(fs::exists(".strativo-aB3dE6"));
}

} // namespace
} // namespace strativo
