#include "MainWindowTest.h"
#include "ui/UvalsDialog.h"
#include "ui/WindowArea.h"

#include <QScreen>

namespace strativo {
namespace {

class MainWindowPlace : public MainWindowTest {
protected:
    void Remember(const std::string& state) { folder.Write("state/strativo/window", state); }
    std::string Remembered() const { return folder.Read("state/strativo/window"); }
    /// Ends the program as its close box does, and starts it again.
    void EndAndStart() {
        program->close();
        program.reset();
        Start();
    }
};

TEST_F(MainWindowPlace, TheFirstSizeIsTheUsualOne) {
    Start();
    EXPECT_EQ(program->size(), QSize(1080, 760));
}

TEST_F(MainWindowPlace, SizeAndPositionAreRemembered) {
    Start();
    program->move(120, 90);
    program->resize(900, 640);
    EndAndStart();
    EXPECT_EQ(program->size(), QSize(900, 640));
    EXPECT_EQ(program->pos(), QPoint(120, 90));
    EXPECT_EQ(Remembered(), "position 120 90\nsize 900 640\nmaximised 0\n");
}

TEST_F(MainWindowPlace, AMaximisedWindowStaysSoAndRemembersItsSizeBefore) {
    Start();
    program->resize(900, 640);
    program->showMaximized();
    EndAndStart();
    EXPECT_TRUE(program->isMaximized());
    EXPECT_NE(Remembered().find("size 900 640\nmaximised 1\n"), std::string::npos) << Remembered();
}

TEST_F(MainWindowPlace, ARememberedSizeThatIsTooLargeFitsIntoTheScreen) {
    Remember("position 1500 900\nsize 4000 3000\nmaximised 0\n");
    Start();
    const QRect available = program->screen()->availableGeometry();
    EXPECT_TRUE(available.contains(program->geometry()));
    EXPECT_GT(program->width(), available.width() - 20);
    EXPECT_LE(program->height(), available.height() - 30) << "a title bar comes on top";
}

TEST_F(MainWindowPlace, ADamagedStateIsIgnored) {
    Remember("size of a door");
    Start();
    EXPECT_EQ(program->size(), QSize(1080, 760));
}

TEST_F(MainWindowPlace, AWindowKeptOpenIsNotRemembered) {
    Start("");
    Choose("NewUValue");
    Insert("PLASTER");
    program->resize(700, 500);
    Answer("Cancel");
    program->close();
    ASSERT_TRUE(program->isVisible());
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "state/strativo/window"));
}

TEST_F(MainWindowPlace, SelectMaterialStandsInTheCornerOfEverySize) {
    for (const QSize size : {QSize(1024, 660), QSize(1280, 680), QSize(960, 480)}) {
        Start();
        program->resize(size);
        QTest::qWait(1);
        const QRect frame = program->Dialog().parentWidget()->geometry();
        EXPECT_TRUE(Area().rect().contains(frame)) << size.width();
        EXPECT_EQ(frame.right(), Area().width() - 9) << size.width();
    }
}

} // namespace
} // namespace strativo
