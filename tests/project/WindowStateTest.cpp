#include "project/WindowState.h"

#include "support/TestProject.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

constexpr WindowState usual{{40, 30, 1080, 760}, false};

TEST(WindowState, IsReadBackAsItWasWritten) {
    for (const WindowState& state :
         {usual, WindowState{{-1200, -3, 1, 32767}, true}, WindowState{{0, 0, 640, 480}, false}})
        EXPECT_EQ(ParseWindowState(FormatWindowState(state)), state);
}

TEST(WindowState, IsTextThatPeopleCanRead) {
    EXPECT_EQ(FormatWindowState(usual), "position 40 30\nsize 1080 760\nmaximised 0\n");
}

TEST(WindowState, DamagedIsNone) {
    const std::string whole = FormatWindowState(usual);
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(ParseWindowState(whole.substr(0, length)), std::nullopt) << length;
    for (const char* bytes :
         {"position 40 30\nsize 1080 760\nmaximised 2\n",
          "position 40 30\nsize 0 760\nmaximised 0\n", "position 40 30\nsize -5 760\nmaximised 0\n",
          "position 40 30\nsize 1080 99999\nmaximised 0\n",
          "position 99999 30\nsize 1080 760\nmaximised 0\n",
          "position 40 30\nsize 99999999999999999999 760\nmaximised 0\n",
          "position 40 30\nsize 1080 760\nmaximised 0\nmore\n",
          "position x y\nsize 1080 760\nmaximised 0\n"})
        EXPECT_EQ(ParseWindowState(bytes), std::nullopt) << bytes;
    EXPECT_EQ(ParseWindowState(std::string_view("\0\0\0\0", 4)), std::nullopt);
}

TEST(WindowState, FitsIntoTheScreen) {
    const ScreenArea screen{100, 20, 1280, 680};
    EXPECT_EQ(FitInto({200, 30, 800, 600}, screen), (ScreenArea{200, 30, 800, 600}));
    EXPECT_EQ(FitInto({200, 30, 2000, 900}, screen), screen);
    EXPECT_EQ(FitInto({5000, 5000, 800, 600}, screen), (ScreenArea{580, 100, 800, 600}));
    EXPECT_EQ(FitInto({-5000, -5000, 800, 600}, screen), (ScreenArea{100, 20, 800, 600}));
}

TEST(WindowState, IsKeptInAFolderThatIsMadeForIt) {
    const TemporaryFolder folder;
    const std::string state = (folder.Path() / "state/strativo").string();
    EXPECT_EQ(ReadWindowState(state), std::nullopt);
    KeepWindowState(usual, state);
    EXPECT_EQ(ReadWindowState(state), usual);
    KeepWindowState({{1, 2, 3, 4}, true}, state);
    EXPECT_EQ(ReadWindowState(state), (WindowState{{1, 2, 3, 4}, true}));
    EXPECT_EQ(folder.Read("state/strativo/window"), "position 1 2\nsize 3 4\nmaximised 1\n");
}

TEST(WindowState, ThatCannotBeKeptHarmsNothing) {
    const TemporaryFolder folder;
    const std::string file = folder.Write("file", "kept");
    KeepWindowState(usual, file);
    KeepWindowState(usual, file + "/below");
    EXPECT_EQ(folder.Read("file"), "kept");
    EXPECT_EQ(ReadWindowState(file), std::nullopt);
}

} // namespace
} // namespace strativo
