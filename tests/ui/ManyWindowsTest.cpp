#include "MainWindowTest.h"
#include "ui/ChildWindow.h"
#include "ui/UValue.h"
#include "ui/WindowArea.h"

#include <QScreen>

#include <random>
#include <set>

namespace strativo {
namespace {

/// The controls in windows' contents that are painted while it exists, as "number name".
class PaintedControls : public QObject {
public:
    PaintedControls() { qApp->installEventFilter(this); }

    /// Those of other windows than that one.
    std::vector<std::string> NotOf(int number) const {
        const std::string own = std::to_string(number) + ' ';
        std::vector<std::string> others;
        std::copy_if(controls.begin(), controls.end(), std::back_inserter(others),
                     [&own](const std::string& control) { return !control.starts_with(own); });
        return others;
    }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            Note(*object);
        return false;
    }

private:
    void Note(const QObject& painted) {
        for (const QObject* part = &painted; part != nullptr; part = part->parent()) {
            const auto* frame = qobject_cast<const ChildWindow*>(part->parent());
            if (frame != nullptr && part == frame->Content())
                controls.insert(std::to_string(frame->Id()) + ' '
                                + painted.objectName().toStdString());
        }
    }

    std::set<std::string> controls;
};

/// A file of 5,000 constructions: "Wall N" with a layer of N millimetres.
class ManyWindows : public MainWindowTest {
protected:
    static constexpr int many = 5000;
    static constexpr int mostThatCanBeSeen = 80;

    void StartWithMany() {
        std::string bytes = "!MATERIALS FILE = '" + library + "'\r\n";
        for (int number = 1; number <= many; ++number)
            bytes += "!CONSTRUCTION 'Wall " + std::to_string(number)
                     + "'\r\n!TYPE OPAQUE\r\n!PARTS\r\n_ 1 = 12 " + std::to_string(0.001 * number)
                     + " 0\r\n!END\r\n";
        Start(folder.Write("many.con", bytes + "!EOF\r\n"));
        ASSERT_EQ(TheProject().constructionCount, many);
    }

    void ExpectShown(int number) {
        EXPECT_EQ(Area().Active(), number);
        EXPECT_EQ(TheProject().currentConstruction, number);
        EXPECT_EQ(TextOf(number, "NameText"), "Wall " + std::to_string(number));
        EXPECT_EQ(TextOf(number, "EditThick"), std::to_string(number));
        EXPECT_EQ(LayersShown(number), std::vector<std::string>{"FACE BRICK"});
        EXPECT_TRUE(List(number)->hasFocus());
    }
};

/// In grey levels.
int LargestDifference(const QImage& a, const QImage& b) {
    int largest = a.size() == b.size() ? 0 : 255;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            largest = std::max(largest, std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))));
    return largest;
}

TEST_F(ManyWindows, ExistOnlyWhereAPartOfThemCanBeSeen) {
    StartWithMany();
    EXPECT_LT(Area().ExistingWindows(), 20);
    EXPECT_EQ(Area().Windows().size(), many + 1U);
    ExpectShown(many);
}

TEST_F(ManyWindows, TheActiveOneIsMadeFirstAndTheOthersOnceItIsPainted) {
    StartWithMany();
    ChooseFile((folder.Path() / "many.con").string());
    Item("OpenProject")->trigger(); // and nothing is painted yet
    EXPECT_NE(program->ConstructionWindow(many), nullptr);
    EXPECT_EQ(program->ConstructionWindow(many - 1), nullptr);
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return program->ConstructionWindow(many - 1) != nullptr; }));
}

TEST_F(ManyWindows, AnyOfThemCanBeActivated) {
    StartWithMany();
    for (int number = 1; number <= many; number += 50)
        Area().Activate(number);
    QTest::qWait(1);
    EXPECT_LT(Area().ExistingWindows(), mostThatCanBeSeen);
    for (const int number : {1, 2500, many}) {
        Area().Activate(number);
        ExpectShown(number);
    }
}

TEST_F(ManyWindows, ActivatingOnePaintsItAndTheListThatLosesTheFocus) {
    StartWithMany();
    std::string last = std::to_string(many);
    for (const int number : {4000, 4001, 4000}) {
        QTest::qWait(50); // what came before has been painted
        const PaintedControls painted;
        Area().Activate(number);
        QTest::qWait(50);
        EXPECT_THAT(painted.NotOf(number),
                    testing::IsSubsetOf({last + " Construction", last + " qt_scrollarea_viewport",
                                         last + " UValue", std::string("0 UvalsDialog")}));
        last = std::to_string(number);
    }
}

/// Windows are put in order without painting those that stay, so nothing may be left unpainted.
TEST_F(ManyWindows, TheScreenShowsWhatPaintingAllAgainWouldShow) {
    StartWithMany();
    std::mt19937 random(7); // NOLINT(cert-msc51-cpp): the same steps each time
    const auto anyOf = [&random](int count) {
        return static_cast<int>(random() % unsigned(count));
    };
    for (int step = 0; step < 60; ++step) {
        const int number = many - anyOf(40);
        switch (anyOf(5)) {
        case 0:
            Area().SetMinimised(number, !Area().IsMinimised(number));
            break;
        case 1:
            MoveWindow(Area().Active() > 0 ? Area().Active() : number, {anyOf(500), anyOf(300)});
            break;
        case 2:
            Choose(anyOf(4) == 0 ? "Cascade" : "ArrangeIcons");
            break;
        default:
            Area().Activate(number);
        }
        QTest::qWait(5);
        constexpr int ofSigns = 8; // a sign that is clipped elsewhere is smoothed otherwise
        const QImage shown = program->screen()->grabWindow(program->winId()).toImage();
        ASSERT_LE(LargestDifference(shown, program->grab().toImage()), ofSigns) << "step " << step;
    }
}

TEST_F(ManyWindows, AnUnseenWindowThatWasLetGoShowsItsContentAgain) {
    StartWithMany();
    Area().Activate(50);
    for (int number = 100; number < 200; ++number)
        Area().Activate(number);
    QTest::qWait(1);
    EXPECT_EQ(program->ConstructionWindow(50), nullptr);
    Area().Activate(50);
    ExpectShown(50);
}

TEST_F(ManyWindows, AllCanBeIconsAndBackAgain) {
    StartWithMany();
    Choose("MakeIcon");
    EXPECT_TRUE(Area().IsMinimised(1));
    EXPECT_TRUE(Area().IsMinimised(many));
    EXPECT_EQ(TheProject().currentConstruction, many);
    Choose("ArrangeIcons");
    Choose("Cascade");
    Area().Activate(4711);
    ExpectShown(4711);
}

TEST_F(ManyWindows, TheWindowMenuListsThirtyOfThem) {
    StartWithMany();
    EXPECT_EQ(Captions("Winmenu").size(), 4U + 30U + 1U);
    EXPECT_EQ(Captions("Winmenu").back(), "&More windows...");
}

TEST_F(ManyWindows, ANewFileClosesThemAllAsIcons) {
    StartWithMany();
    Choose("MakeIcon");
    Choose("NewProject");
    EXPECT_EQ(TheProject().constructionCount, 0);
    EXPECT_EQ(Area().Windows().size(), 1U);
    EXPECT_EQ(Area().ExistingWindows(), 1);
    EXPECT_TRUE(TheProject().dialogActive);
}

} // namespace
} // namespace strativo
