#include "project/Settings.h"

#include "support/EnvironmentVariable.h"
#include "support/TestProject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace strativo {
namespace {

using testing::ElementsAre;

TEST(Settings, HaveTheirDefaultsWithoutAnyFile) {
    const TemporaryFolder folder;
    const Settings settings = ReadSettings({"missing.ini", "no folder/missing.ini"});
    EXPECT_EQ(settings.help, ".");
    EXPECT_EQ(settings.stdMat, "..\\stdmat.lby");
}

TEST(Settings, ComeFromTheSectionFiles) {
    const TemporaryFolder folder;
    folder.Write("a.ini", "[Other]\nHelp=no\n[Files]\nHelp = /usr/share/help file.html\r\n"
                          "StdMat=/lib/stdmat.lby\n[Last]\nStdMat=no\n");
    const Settings settings = ReadSettings({"a.ini"});
    EXPECT_EQ(settings.help, "/usr/share/help file.html");
    EXPECT_EQ(settings.stdMat, "/lib/stdmat.lby");
}

TEST(Settings, AreTakenKeyByKeyFromTheFirstFileThatHasThem) {
    const TemporaryFolder folder;
    folder.Write("user.ini", "[Files]\nStdMat=user.lby\n");
    folder.Write("system.ini", "[Files]\nStdMat=system.lby\nHelp=system.html\n");
    const Settings settings = ReadSettings({"user.ini", "system.ini"});
    EXPECT_EQ(settings.stdMat, "user.lby");
    EXPECT_EQ(settings.help, "system.html");
}

TEST(Settings, AreTakenAsTheyStand) {
    const TemporaryFolder folder;
    const std::string longPath = "/" + std::string(300, 'x') + "/std.lby";
    folder.Write("a.ini", "; settings\n[Files]\nStdMat=C:\\a ; b\\new\nHelp=" + longPath + "\n");
    folder.Write("b.ini", "[Files]\nStdMat=\"quoted\" \xe9 = x\nHelp=");
    EXPECT_EQ(ReadSettings({"a.ini"}).stdMat, "C:\\a ; b\\new");
    EXPECT_EQ(ReadSettings({"a.ini"}).help, longPath);
    EXPECT_EQ(ReadSettings({"b.ini"}).stdMat, "\"quoted\" \xe9 = x");
    EXPECT_EQ(ReadSettings({"b.ini"}).help, "") << "an empty value is one too";
}

TEST(Settings, LookPastWhatIsNoReadableFile) {
    const TemporaryFolder folder;
    folder.Write("folder/x", "");
    folder.Write("empty.ini", "");
    folder.Write("noise.ini", std::string("\0\xff[[=]\n=\n", 10));
    folder.Write("good.ini", "[Files]\nHelp=found\n");
    ASSERT_EQ(mkfifo("fifo", 0600), 0);
    EXPECT_EQ(ReadSettings({"folder", "fifo", "empty.ini", "noise.ini", "good.ini"}).help, "found");
}

TEST(SettingsFolders, AreTheUsersAndTheSystems) {
    const EnvironmentVariable config("XDG_CONFIG_HOME", "/elsewhere/settings");
    EXPECT_THAT(SettingsFiles(),
                ElementsAre("/elsewhere/settings/Stratv.ini", "/etc/xdg/Stratv.ini"));
}

TEST(SettingsFolders, AreInTheHomeFolderWhereNoOtherIsSet) {
    const EnvironmentVariable home("HOME", "/home/me");
    for (const char* value : {static_cast<const char*>(nullptr), "", "relative"}) {
        const EnvironmentVariable config("XDG_CONFIG_HOME", value);
        EXPECT_EQ(SettingsFiles().front(), "/home/me/.config/Stratv.ini");
    }
}

} // namespace
} // namespace strativo
