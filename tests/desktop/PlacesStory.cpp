#include "desktop/ProgramStory.h"
#include "desktop/Story.h"
#include "ui/UValue.h"
#include "ui/UvalsDialog.h"
#include "ui/WindowArea.h"

#include <QAction>
#include <QApplication>
#include <QScreen>
#include <QStatusBar>

namespace strativo {

/// Where windows lie on the screen and in the main window.
class PlacesStory : public Story {
protected:
    /// A file of so many constructions, each with a layer.
    void OpenWith(int constructions) {
        std::string bytes = Lines({"!MATERIALS FILE = '../stdmat.lby'", ""});
        for (int number = 1; number <= constructions; ++number)
            bytes += Lines({"!CONSTRUCTION 'Wall " + std::to_string(number) + "'", "!TYPE OPAQUE",
                            "!PARTS", "_ 1 =       20      0.100      0            * BLOCK", "!END",
                            ""});
        Write("walls.con", bytes);
        Start("walls.con");
        WaitFor("all windows to be there",
                [this, constructions] { return window->Area().ExistingWindows() > constructions; });
        WaitForInput();
    }

    QRect OnScreen(const QWidget& widget) { return {widget.mapToGlobal(QPoint()), widget.size()}; }
    /// The part of the screen that a child window takes.
    QRect FrameOf(const QWidget& content) { return OnScreen(*content.parentWidget()); }
};

TEST_F(PlacesStory, AfterACascadeEachTitleCanBeGraspedAndMaterialsCanBeTaken) {
    OpenWith(13);
    ChooseMenu("Winmenu", "Cascade");
    EXPECT_EQ(ActiveWindow(), 13);
    for (int number = 1; number <= 13; ++number)
        EXPECT_NO_THROW(TitleOf(number)) << number;
    DoubleClick(Material("PLASTER"));
    EXPECT_EQ(Layers(13), "[PLASTER], BLOCK");
    Click(TitleOf(1));
    EXPECT_EQ(ActiveWindow(), 1);
}

TEST_F(PlacesStory, WindowsLieSideBySideAndNewOnesOnlyThenCascaded) {
    OpenWith(2);
    EXPECT_EQ(Layers(1), "BLOCK");
    Click(LayerRow(1, 0));
    EXPECT_EQ(ActiveWindow(), 1);
    EXPECT_NO_THROW(PlaceOf(2, "Result")) << "nothing of the second lies below the first";
    ChooseMenu("Filemenu", "NewUValue");
    EXPECT_NO_THROW(TitleOf(1));
    EXPECT_NO_THROW(TitleOf(2));
    EXPECT_NO_THROW(PlaceOf(3, "Result"));
}

TEST_F(PlacesStory, IconsCanBeReachedBesideSelectMaterial) {
    OpenWith(13);
    ChooseMenu("Winmenu", "MakeIcon");
    for (int number = 1; number <= 13; ++number)
        EXPECT_NO_THROW(TitleOf(number)) << number;
    DoubleClick(TitleOf(7));
    WaitFor("the window", [this] { return !window->Area().IsMinimised(7); });
    EXPECT_EQ(ActiveWindow(), 7);
}

TEST_F(PlacesStory, AWindowDraggedOutIsStillGraspedAndComesBackWhenItIsChosen) {
    OpenWith(2);
    const QPoint grip = TitleOf(2);
    Drag(grip, InGui([this] { return window->Area().mapToGlobal(QPoint(8, 8)); }) - QPoint(400, 0));
    EXPECT_NO_THROW(Click(InGui([this] {
        const QWidget* frame = window->Area().Content(2)->parentWidget();
        return window->Area().mapToGlobal(QPoint(20, frame->y() + 12));
    })));
    Press({Key::ctrl, Key::tab});
    Press({Key::ctrl, Key::tab});
    Press({Key::ctrl, Key::tab});
    EXPECT_EQ(ActiveWindow(), 2);
    EXPECT_TRUE(InGui(
        [this] { return OnScreen(window->Area()).contains(FrameOf(*window->Area().Content(2))); }));
}

/// On a laptop's screen of 1280 x 720.
class SmallScreen : public PlacesStory {};

TEST_F(SmallScreen, TheWholeMainWindowIsOnTheScreen) {
    Start();
    InGui([this] {
        const QRect screen = window->screen()->availableGeometry();
        EXPECT_TRUE(screen.contains(window->frameGeometry()));
        EXPECT_TRUE(screen.contains(OnScreen(*window->statusBar())));
        EXPECT_TRUE(OnScreen(window->Area()).contains(FrameOf(window->Dialog())));
    });
    EXPECT_NO_THROW(PlaceOf(dialog, "UValueList"));
}

TEST_F(SmallScreen, AMaximisedWindowHasSelectMaterialInItsCorner) {
    Start();
    InGui([this] { window->showMaximized(); });
    WaitFor("the whole screen", [this] {
        return window->isMaximized() && window->width() == window->screen()->geometry().width();
    });
    WaitForInput();
    InGui([this] {
        const QRect area = OnScreen(window->Area());
        const QRect frame = FrameOf(window->Dialog());
        EXPECT_TRUE(area.contains(frame));
        EXPECT_LT(area.right() - frame.right(), 20);
        EXPECT_LT(area.bottom() - frame.bottom(), 20);
    });
    EXPECT_NO_THROW(PlaceOf(dialog, "UValueList"));
}

/// As much room as the small screen has at 200 %.
class MagnifiedScreen : public PlacesStory {};

TEST_F(MagnifiedScreen, AFilePromptLiesOnItWithItsButtons) {
    Start();
    InGui([this] {
        QMetaObject::invokeMethod(window->findChild<QAction*>(QStringLiteral("OpenProject")),
                                  "trigger", Qt::QueuedConnection);
    });
    WaitFor("the prompt", [] { return QApplication::activeModalWidget() != nullptr; });
    WaitForInput();
    const auto [screen, prompt] = InGui([] {
        const QWidget* front = QApplication::activeModalWidget();
        return std::pair(front->screen()->availableGeometry(), front->frameGeometry());
    });
    EXPECT_LE(screen.width(), 640);
    EXPECT_TRUE(screen.contains(prompt)) << prompt.height();
    CancelPrompt("Open Construction file");
}

TEST_F(SmallScreen, AWindowThatWasMaximisedIsSoAgainAndHasItsSizeBefore) {
    folder.Write("state/strativo/window", "position 150 60\nsize 900 600\nmaximised 1\n");
    setenv("XDG_STATE_HOME", (folder.Path() / "state").c_str(), 1);
    Start();
    unsetenv("XDG_STATE_HOME");
    WaitFor("the whole screen", [this] {
        return window->isMaximized() && window->width() == window->screen()->geometry().width();
    });
    InGui([this] { window->showNormal(); });
    WaitFor("the size before", [this] { return window->size() == QSize(900, 600); });
}

TEST_F(SmallScreen, AStartMaximisedPlacesWindowsForTheWholeScreen) {
    folder.Write("state/strativo/window", "position 150 60\nsize 600 500\nmaximised 1\n");
    setenv("XDG_STATE_HOME", (folder.Path() / "state").c_str(), 1);
    OpenWith(2);
    unsetenv("XDG_STATE_HOME");
    WaitFor("the whole screen", [this] {
        return window->isMaximized() && window->width() == window->screen()->geometry().width();
    });
    WaitForInput();
    InGui([this] {
        const QRect first = FrameOf(*window->Area().Content(1));
        const QRect second = FrameOf(*window->Area().Content(2));
        EXPECT_FALSE(first.intersects(second)) << "side by side, as there is room";
    });
}

TEST_F(SmallScreen, ConstructionsAreWhollyInsideAndWorkedWith) {
    OpenWith(4);
    for (int number = 1; number <= 4; ++number)
        EXPECT_TRUE(InGui([&] {
            return OnScreen(window->Area()).contains(FrameOf(*window->Area().Content(number)));
        })) << number;
    Click(LayerRow(4, 0));
    Enter("250");
    EXPECT_EQ(TextOf(4, "EditThick"), "250");
}

TEST_F(ProgramStory, ItsWindowOpensWhereItWasAndAsLargeAsItWas) {
    setenv("XDG_STATE_HOME", (folder.Path() / "state").c_str(), 1);
    folder.Write("state/strativo/window", "position 150 120\nsize 900 600\nmaximised 0\n");
    const auto placeOfStart = [this] {
        Start();
        WaitForActive(mainTitle);
        Screen().WaitForPrograms();
        const std::vector<WindowOnScreen> windows = Screen().Windows();
        Press({Key::alt, Key::f4});
        EXPECT_EQ(program->ExitStatus(patience), 0);
        return windows.empty() ? WindowOnScreen() : windows.front();
    };
    const WindowOnScreen first = placeOfStart();
    const WindowOnScreen second = placeOfStart();
    unsetenv("XDG_STATE_HOME");
    EXPECT_EQ(first.width, 900);
    EXPECT_EQ(first.height, 600);
    EXPECT_EQ(second.width, 900);
    EXPECT_EQ(second.height, 600);
    EXPECT_EQ(second.x, first.x);
    EXPECT_EQ(second.y, first.y);
}

} // namespace strativo
