#include "project/Settings.h"

#include "support/TestProject.h"

#include <cstdlib>
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

/// Restores two environment variables at the end.
class SettingsFolders : public testing::Test {
protected:
    ~SettingsFolders() override {
        Restore("XDG_CONFIG_HOME", configHome);
        Restore("HOME", home);
    }

private:
    static std::pair<bool, std::string> Value(const char* name) {
        const char* value = std::getenv(name);
        return {value != nullptr, value != nullptr ? value : ""};
    }
    static void Restore(const char* name, const std::pair<bool, std::string>& value) {
        if (value.first)
            setenv(name, value.second.c_str(), 1);
        else
            unsetenv(name);
    }

    std::pair<bool, std::string> configHome = Value("XDG_CONFIG_HOME");
    std::pair<bool, std::string> home = Value("HOME");
};

TEST_F(SettingsFolders, AreTheUsersAndTheSystems) {
    setenv("XDG_CONFIG_HOME", "/elsewhere/settings", 1);
    EXPECT_THAT(SettingsFiles(),
                ElementsAre("/elsewhere/settings/Stratv.ini", "/etc/xdg/Stratv.ini"));
}

TEST_F(SettingsFolders, AreInTheHomeFolderWhereNoOtherIsSet) {
    setenv("HOME", "/home/me", 1);
    setenv("XDG_CONFIG_HOME", "", 1);
    EXPECT_EQ(SettingsFiles().front(), "/home/me/.config/Stratv.ini");
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(SettingsFiles().front(), "/home/me/.config/Stratv.ini");
    setenv("XDG_CONFIG_HOME", "relative", 1);
    EXPECT_EQ(SettingsFiles().front(), "/home/me/.config/Stratv.ini");
}

} // namespace
} // namespace strativo
