#include "files/FileAccess.h"
#include "support/TestProject.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(FindFile, LooksInTheWorkingDirectoryFirst) {
    const TemporaryFolder folder;
    folder.Write("user.lby", "here");
    folder.Write("house/user.lby", "there");
    EXPECT_EQ(FindFile("user.lby", "house"), "user.lby");
}

TEST(FindFile, LooksInTheFolderOfTheConstructionFileThen) {
    const TemporaryFolder folder;
    folder.Write("house/user.lby", "");
    EXPECT_EQ(FindFile("user.lby", "house"), "house/user.lby");
    EXPECT_EQ(FindFile("user.lby", "house/"), "house/user.lby");
}

TEST(FindFile, TakesAnAbsolutePathAsItIs) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a b/\xe9.lby", "");
    EXPECT_EQ(FindFile(path, "house"), path);
}

TEST(FindFile, TakesBackslashesForSlashes) {
    const TemporaryFolder folder;
    folder.Write("lib/stdmat.lby", "");
    folder.Write("house/house.con", "");
    EXPECT_EQ(FindFile("lib\\stdmat.lby", ""), "lib/stdmat.lby");
    EXPECT_EQ(FindFile("..\\lib\\stdmat.lby", "house"), "house/../lib/stdmat.lby");
}

TEST(FindFile, PrefersANameThatReallyHasABackslash) {
    const TemporaryFolder folder;
    folder.Write("lib/stdmat.lby", "");
    folder.Write("lib\\stdmat.lby", "");
    EXPECT_EQ(FindFile("lib\\stdmat.lby", ""), "lib\\stdmat.lby");
}

TEST(FindFile, IgnoresLetterCaseComponentByComponent) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("Lib/Sub/StdMat.LBY", "");
    EXPECT_EQ(FindFile("LIB\\sub\\STDMAT.lby", ""), "Lib/Sub/StdMat.LBY");
    const std::string absolute = folder.Path().string() + "//lib/SUB/stdmat.lby";
    EXPECT_EQ(FindFile(absolute, ""), path);
}

TEST(FindFile, PrefersTheExactSpelling) {
    const TemporaryFolder folder;
    folder.Write("A.LBY", "");
    folder.Write("a.lby", "");
    EXPECT_EQ(FindFile("a.lby", ""), "a.lby");
}

TEST(FindFile, TakesTheFirstInNameOrderOfSeveralSpellings) {
    const TemporaryFolder folder;
    folder.Write("b.LBY", "");
    folder.Write("B.lby", "");
    EXPECT_EQ(FindFile("b.lby", ""), "B.lby");
}

TEST(FindFile, PrefersTheExactNameBesideTheFileToAnotherLetterCaseInTheWorkingDirectory) {
    const TemporaryFolder folder;
    folder.Write("USER.lby", "another");
    folder.Write("house/user.lby", "meant");
    EXPECT_EQ(FindFile("user.lby", "house"), "house/user.lby");
    folder.Write("LIB/a.lby", "another");
    folder.Write("house/lib/a.lby", "meant");
    EXPECT_EQ(FindFile("lib\\a.lby", "house"), "house/lib/a.lby");
}

TEST(FindFile, TakesAnotherLetterCaseInTheWorkingDirectoryBeforeOneBesideTheFile) {
    const TemporaryFolder folder;
    folder.Write("USER.lby", "");
    folder.Write("house/User.lby", "");
    EXPECT_EQ(FindFile("user.lby", "house"), "USER.lby");
}

TEST(FindFile, GivesAPlaceWhoseFolderExistsWhereTheFileIsMissing) {
    const TemporaryFolder folder;
    folder.Write("house/lib/other.lby", "");
    EXPECT_EQ(FindFile("lib\\user.lby", "house"), "house/lib/user.lby");
    EXPECT_EQ(FindFile("LIB/user.lby", "house"), "house/lib/user.lby");
    folder.Write("lib/other.lby", "");
    EXPECT_EQ(FindFile("lib/user.lby", "house"), "lib/user.lby");
    EXPECT_EQ(FindFile("none/user.lby", "house"), "none/user.lby");
}

TEST(FindFile, GivesTheNameItselfWhereNothingIsFound) {
    const TemporaryFolder folder;
    EXPECT_EQ(FindFile("..\\nowhere\\a.lby", "house"), "../nowhere/a.lby");
    EXPECT_EQ(FindFile("", ""), "");
    EXPECT_EQ(FindFile("7:a", ""), "7:a") << "no drive letter";
    EXPECT_EQ(FindFile("{:a", ""), "{:a") << "no drive letter";
    EXPECT_EQ(FindFile("cd", ""), "cd");
}

TEST(FindFile, TakesADriveLetterThatLeadsNowhereForAMissingPath) {
    const TemporaryFolder folder;
    for (const char* name : {"C:\\lib\\stdmat.lby", "z:stdmat.lby", "A:\\stdmat.lby"}) {
        try {
            FindFile(name, "house");
            ADD_FAILURE() << name;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::pathNotFound) << name;
        }
    }
}

TEST(FindFile, FindsANameWithAColonThatExists) {
    const TemporaryFolder folder;
    folder.Write("C:/lib/stdmat.lby", "");
    EXPECT_EQ(FindFile("C:\\lib\\stdmat.lby", ""), "C:/lib/stdmat.lby");
}

} // namespace
} // namespace strativo
