#include "desktop/Story.h"
#include "ui/ChildWindow.h"
#include "ui/UvalsDialog.h"
#include "ui/WindowArea.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QStatusBar>

namespace strativo {

/// Constructions are found by their names, and the names are seen.
class NamesStory : public Story {
protected:
    /// A file of so many walls; number 47 is a flat roof.
    void OpenWalls(int count) {
        std::string bytes = Lines({"!MATERIALS FILE = '../stdmat.lby'", ""});
        for (int number = 1; number <= count; ++number)
            bytes +=
                Lines({"!CONSTRUCTION '"
                           + (number == 47 ? "Flat roof" : "Wall " + std::to_string(number)) + "'",
                       "!TYPE OPAQUE", "!PARTS",
                       "_ 1 =       20      0.100      0            * BLOCK", "!END", ""});
        Write("walls.con", bytes);
        Start("walls.con");
        WaitFor("all windows", [this, count] { return window->Area().Has(count); });
        WaitForInput();
    }
    std::string Said() {
        return InGui([this] { return window->statusBar()->currentMessage().toStdString(); });
    }
    std::string TargetSaid() {
        return InGui([this] {
            return window->findChild<QLabel*>(QStringLiteral("TargetStatus"))->text().toStdString();
        });
    }
};

TEST_F(NamesStory, TheFlatRoofAmongSixtyIsFoundByTwoKeysAndItsName) {
    OpenWalls(60);
    Press({Key::alt, KeyOf('w')});
    Press(KeyOf('m'));
    WaitForBox("Windows");
    EXPECT_EQ(Focus(), "Filter");
    Type("flat");
    Press(Key::enter);
    WaitFor("the roof", [this] { return window->Area().Active() == 47; });
    EXPECT_EQ(TextOf(47, "NameText"), "Flat roof");
}

TEST_F(NamesStory, TheWindowMenuNamesEachConstructionInTheStatusBar) {
    OpenWalls(3);
    Press({Key::alt, KeyOf('w')});
    for (int item = 0; item < 4; ++item)
        Press(Key::down);
    EXPECT_EQ(Said(), "Wall 2");
    Press(KeyOf('3'));
    WaitFor("the third", [this] { return window->Area().Active() == 3; });
    EXPECT_EQ(Said(), "");
}

TEST_F(NamesStory, RestingOnATitleBarNamesTheConstruction) {
    OpenWalls(3);
    const QPoint title = TitleOf(2);
    MoveTo(title - QPoint(4, 0));
    MoveTo(title);
    WaitFor("the tip", [] {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->inherits("QTipLabel") && widget->isVisible())
                return qobject_cast<QLabel*>(widget)->text() == QLatin1String("Wall 2");
        return false;
    });
}

TEST_F(NamesStory, MaterialsGoToTheConstructionThatIsNamedAndComeToSight) {
    OpenWalls(2);
    Click(TitleOf(1));
    Click(FrameButton(2, "MinimiseButton"));
    WaitFor("the icon", [this] { return window->Area().IsMinimised(2); });
    EXPECT_EQ(TargetSaid(), "");
    Press({Key::ctrl, Key::tab});
    WaitFor("the dialog", [this] { return window->Area().Active() == dialog; });
    EXPECT_EQ(TargetSaid(), "Materials go to Construction 1: Wall 1");
    Click(FrameButton(1, "MinimiseButton"));
    WaitFor("the other icon", [this] { return window->Area().IsMinimised(1); });
    Click(Material("PLASTER"));
    EXPECT_EQ(TargetSaid(), "Materials go to Construction 1: Wall 1");
    Press(Key::enter);
    WaitFor("the construction", [this] { return !window->Area().IsMinimised(1); });
    EXPECT_EQ(Layers(1), "[PLASTER], BLOCK");
    EXPECT_EQ(ActiveWindow(), dialog);
    EXPECT_EQ(Focus(), "UValueList");
}

TEST_F(NamesStory, ALongNameShowsItsBeginningWhenItIsLeft) {
    OpenWalls(1);
    Press({Key::alt, KeyOf('c')});
    Type("Flat roof over the hall with a very long name that ends far outside of its field");
    Press(Key::enter);
    EXPECT_EQ(InGui([this] {
                  return qobject_cast<QLineEdit*>(Control(1, "NameText"))->cursorPosition();
              }),
              0);
}

TEST_F(NamesStory, SelectMaterialStaysInSightWhenManyConstructionsAreOpened) {
    OpenWalls(17);
    EXPECT_EQ(ActiveWindow(), 17);
    InGui([this] {
        const QWidget& materials = window->Dialog();
        const QRect area(window->Area().mapToGlobal(QPoint()), window->Area().size());
        const QRect place(materials.mapToGlobal(QPoint()), materials.size());
        EXPECT_TRUE(area.contains(place));
        for (int x = 4; x < materials.width(); x += 20)
            for (int y = 4; y < materials.height(); y += 20) {
                const QWidget* seen = QApplication::widgetAt(materials.mapToGlobal(QPoint(x, y)));
                EXPECT_TRUE(seen == &materials || materials.isAncestorOf(seen)) << x << ' ' << y;
            }
    });
    DoubleClick(Material("PLASTER"));
    EXPECT_EQ(Layers(17), "[PLASTER], BLOCK");
}

} // namespace strativo
