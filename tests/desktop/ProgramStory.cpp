#include "desktop/ProgramStory.h"

#include "desktop/FileDrag.h"

#include <csignal>
#include <cstdlib>
#include <utility>

namespace strativo {

TEST_F(ProgramStory, ItIsWorkedWithByTheKeyboardAlone) {
    Start();
    WaitForActive(mainTitle);
    Press(Key::alt);
    Press(KeyOf('f'));
    Press(KeyOf('c')); // a new construction
    Press({Key::ctrl, Key::tab});
    Press(Key::f10);
    Press(Key::right);
    Press(Key::right);
    Press(KeyOf('c')); // sorted by conductivity
    Press(Key::end);
    Press(Key::enter); // FACE BRICK
    Press(Key::up);
    Press(Key::enter); // PLASTER before it
    Press({Key::ctrl, Key::tab});
    Press(Key::end);
    Press({Key::ctrl, KeyOf('c')});
    Press({Key::ctrl, KeyOf('b')}); // FACE BRICK once more before it
    Press(Key::home);
    Type("13");
    Press(Key::enter);
    Press(Key::tab); // to the thickness
    Type("105");
    Press(Key::enter);
    Type("102.5");
    Press(Key::enter);
    Press({Key::alt, KeyOf('c')});
    Type("Glass Ω wall");
    Press(Key::enter);
    Press({Key::alt, KeyOf('y')});
    Press(Key::down); // transparent
    Press(Key::tab);
    Press(Key::home);
    Press({Key::alt, KeyOf('a')});
    Type("0.5");
    Press(Key::enter);
    Press({Key::alt, KeyOf('f')});
    Press(KeyOf('s'));
    WaitForActive("Save Construction file as ");
    Type("wall");
    Press(Key::enter);
    WaitForFile("wall.con", Lines({"!MATERIALS FILE = '..\\stdmat.lby'", "",
                                   "!CONSTRUCTION 'Glass ? wall'", "!TYPE TRANSPARENT", "!PARTS",
                                   "_ 1 =       30      0.013      0      0.50      * PLASTER",
                                   "_ 2 =       12      0.105      0      0.00      * FACE BRICK",
                                   "_ 3 =       12      0.103      0      0.00      * FACE BRICK",
                                   "!END", ""}));
    WaitForActive(mainTitle);
    Press({Key::alt, KeyOf('f')});
    Press(KeyOf('x'));
    EXPECT_EQ(program->ExitStatus(patience), 0);
}

TEST_F(ProgramStory, ItsCommandLineIsOnePathWithBlanksAndItEndsAfterSaving) {
    folder.Write("work/Häuser & Ω/mein Haus.con",
                 Pair({Plaster(1), Block(2)}, {Block(1), Plaster(2)}));
    Start({"Häuser", "&", "Ω/mein", "Haus.con"});
    WaitForActive(mainTitle);
    Press(Key::home); // in the list of the last construction
    Press(Key::del);
    Press({Key::alt, Key::f4});
    WaitForActive("Construction Have Changed");
    Press(Key::enter);
    EXPECT_EQ(program->ExitStatus(patience), 0);
    EXPECT_EQ(folder.Read("work/Häuser & Ω/mein Haus.con"),
              Pair({Plaster(1), Block(2)}, {Plaster(1)}));
}

TEST_F(ProgramStory, ItsWindowHasAnIcon) {
    Start();
    WaitForActive(mainTitle);
    WaitFor("the icon", [this] {
        const std::vector<WindowOnScreen> windows = Screen().Windows();
        return !windows.empty() && windows.front().hasIcon;
    });
}

TEST_F(ProgramStory, AMissingLibraryThatIsNotFoundEndsIt) {
    std::string bytes = Pair({Block(1)}, {Plaster(1)});
    bytes.replace(bytes.find("../stdmat"), 9, "elsewhere");
    folder.Write("work/wall.con", bytes);
    Start({"wall.con"});
    WaitForActive("Strativo");
    Press(Key::enter);
    WaitForActive("Open standard material file");
    Press(Key::escape);
    WaitForActive("Strativo");
    Press(Key::enter);
    EXPECT_EQ(program->ExitStatus(patience), 0);
    EXPECT_EQ(folder.Read("work/wall.con"), bytes);
}

TEST_F(ProgramStory, AFileIsDroppedOnIt) {
    folder.Write("work/wall.con", Pair({Plaster(1), Block(2)}, {Block(1), Plaster(2)}));
    Start();
    WaitForActive(mainTitle);
    const std::vector<WindowOnScreen> windows = Screen().Windows();
    const WindowOnScreen& found = windows.front();
    FileDrag(*this, {FileUrl(folder.Path() / "work/wall.con")})
        .DropOn({found.x + found.width / 2, found.y + found.height / 2});
    WaitForActive(mainTitle); // it comes to the front by itself
    Press(Key::end);
    Press(Key::del);
    Press({Key::alt, KeyOf('f')});
    Press(KeyOf('s'));
    WaitForFile("wall.con", Pair({Plaster(1), Block(2)}, {Block(1)}));
    Press({Key::alt, Key::f4});
    EXPECT_EQ(program->ExitStatus(patience), 0);
}

/// The program under a desktop's settings for Qt that choose another font.
class LateFontStory : public ProgramStory {
protected:
    LateFontStory() {
        folder.Write("work/wall.con", Pair({Plaster(1), Block(2)}, {Block(1), Plaster(2)}));
        folder.Write("config/qt6ct/qt6ct.conf",
                     "[Appearance]\ncustom_palette=false\nstyle=Fusion\n\n[Fonts]\n"
                     "fixed=\"DejaVu Sans Mono,12,-1,5,400,0,0,0,0,0,0,0,0,0,0,1\"\n"
                     "general=\"DejaVu Sans,12,-1,5,400,0,0,0,0,0,0,0,0,0,0,1\"\n");
    }
    ~LateFontStory() override {
        unsetenv("QT_QPA_PLATFORMTHEME");
        setenv("XDG_CONFIG_HOME", configBefore.c_str(), 1);
    }

    void StartWith(const char* theme) {
        setenv("QT_QPA_PLATFORMTHEME", theme, 1);
        setenv("XDG_CONFIG_HOME", (folder.Path() / "config").c_str(), 1);
        Start({"wall.con"});
        WaitForActive(mainTitle);
    }

    /// The screen once two pictures in a row are the same.
    static Picture Settled() {
        Picture before;
        Picture now = Screen().TakePicture();
        do {
            before = std::move(now);
            Screen().WaitForPrograms();
            now = Screen().TakePicture();
        } while (now.pixels != before.pixels);
        return now;
    }

    const std::string configBefore = std::getenv("XDG_CONFIG_HOME");
};

TEST_F(LateFontStory, AFontThatTheDesktopSetsAfterTheStartLeavesTheWindowsAsTheyAre) {
    StartWith("");
    EXPECT_FALSE(program->HasLoaded("libqt6ct"));
    const Picture plain = Settled();
    program->Signal(SIGKILL);
    EXPECT_EQ(program->ExitStatus(patience), std::nullopt);
    StartWith("qt6ct");
    EXPECT_TRUE(program->HasLoaded("libqt6ct"));
    WaitFor("the same picture", [&] { return Screen().TakePicture().pixels == plain.pixels; });
    EXPECT_TRUE(Settled().pixels == plain.pixels);
}

} // namespace strativo
