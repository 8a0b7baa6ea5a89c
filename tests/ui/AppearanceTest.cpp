#include "ui/Appearance.h"

#include "MainWindowTest.h"
#include "draw/Contrast.h"
#include "ui/ChildWindow.h"
#include "ui/ProfileColours.h"
#include "ui/UValue.h"
#include "ui/UvalsDialog.h"
#include "ui/WindowArea.h"

#include <QLabel>
#include <QMenuBar>
#include <QStyle>
#include <QToolButton>

namespace strativo {
namespace {

double Contrast(const QColor& one, const QColor& other) {
    const auto drawn = [](const QColor& colour) {
        return static_cast<DrawnColour>(colour.rgb() & 0xFFFFFF);
    };
    return ContrastRatio(drawn(one), drawn(other));
}

QPalette DarkPalette() {
    QPalette dark(QColor(53, 53, 53));
    for (const auto role : {QPalette::Base, QPalette::AlternateBase})
        dark.setColor(role, QColor(35, 35, 35));
    for (const auto role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::HighlightedText})
        dark.setColor(role, Qt::white);
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    return dark;
}

QPalette LightPalette() {
    return QApplication::style()->standardPalette();
}

/// Puts font and palette back as they were.
class Looks : public MainWindowTest {
protected:
    ~Looks() override {
        program.reset();
        QApplication::setFont(ownFont);
        QApplication::setPalette(ownPalette);
    }

    QWidget* Frame(int number) { return Window(number)->parentWidget(); }
    QColor BarOf(int number) {
        return Frame(number)->grab().toImage().pixelColor(Frame(number)->width() / 2, 4);
    }
    QColor CaptionOf(int number) {
        for (const QLabel* label : Frame(number)->findChildren<QLabel*>())
            if (label->parentWidget() == Frame(number))
                return label->palette().color(QPalette::WindowText);
        throw std::runtime_error("no caption");
    }

private:
    QFont ownFont = QApplication::font();
    QPalette ownPalette = QApplication::palette();
};

TEST_F(Looks, AFontThatTheDesktopSetsLateDoesNotReachTheControls) {
    Start();
    Choose("NewUValue");
    const int textWidth = Find<QLabel>(1, "IndexLabel")->sizeHint().width();
    QFont large(QStringLiteral("Serif"), 12);
    large.setBold(true);
    QApplication::setFont(large);
    QTest::qWait(1);
    EXPECT_DOUBLE_EQ(QApplication::font().pointSizeF(), 8.25);
    EXPECT_FALSE(QApplication::font().bold());
    EXPECT_DOUBLE_EQ(program->menuBar()->font().pointSizeF(), 8.25);
    EXPECT_DOUBLE_EQ(Find(1, "NameText")->font().pointSizeF(), 8.25);
    EXPECT_LE(Find<QLabel>(1, "IndexLabel")->sizeHint().width(), textWidth * 1.3);
}

TEST_F(Looks, SelectedRowsCanBeReadInEveryPalette) {
    QPalette pale = LightPalette();
    pale.setColor(QPalette::Highlight, QColor(180, 210, 240));
    QPalette likeText = LightPalette();
    likeText.setColor(QPalette::Highlight, Qt::white);
    for (const QPalette& palette : {LightPalette(), DarkPalette(), pale, likeText}) {
        QApplication::setPalette(palette);
        Start();
        const QPalette shown = Materials()->palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive})
            EXPECT_GE(Contrast(shown.color(group, QPalette::Highlight),
                               shown.color(group, QPalette::HighlightedText)),
                      4.5);
    }
}

TEST_F(Looks, ASelectionThatCanBeReadKeepsItsColours) {
    QPalette palette = LightPalette();
    palette.setColor(QPalette::Highlight, QColor(0, 0, 128));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    const QPalette shown = WithReadableTexts(palette);
    EXPECT_EQ(shown.color(QPalette::Highlight), QColor(0, 0, 128));
    EXPECT_EQ(shown.color(QPalette::HighlightedText), QColor(Qt::white));
}

TEST_F(Looks, LinksCanBeReadOnTheManualsPaper) {
    for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
        const QPalette shown = WithReadableTexts(palette);
        for (const auto link : {QPalette::Link, QPalette::LinkVisited})
            EXPECT_GE(Contrast(shown.color(link), shown.color(QPalette::Base)), 4.5);
    }
}

TEST_F(Looks, TitleBarsCanBeReadInEveryPalette) {
    Start();
    Choose("NewUValue");
    Choose("NewUValue");
    for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
        QApplication::setPalette(palette);
        QTest::qWait(1);
        for (const int number : {1, 2})
            EXPECT_GE(Contrast(BarOf(number), CaptionOf(number)), 4.5) << number;
        EXPECT_NE(BarOf(1), BarOf(2)) << "the active one can be told from the other";
    }
}

TEST_F(Looks, TheSignsOfTitleButtonsStayVisibleUnderThePointer) {
    Start();
    Choose("NewUValue");
    Choose("NewUValue");
    for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
        QApplication::setPalette(palette);
        for (const int number : {1, 2})
            for (auto* button : Frame(number)->findChildren<QToolButton*>()) {
                button->setAttribute(Qt::WA_UnderMouse);
                const QImage picture = button->grab().toImage();
                button->setAttribute(Qt::WA_UnderMouse, false);
                const QColor background = picture.pixelColor(1, 1);
                EXPECT_NE(background, BarOf(number)) << "it shows that it can be pressed";
                double best = 1;
                for (int y = 0; y < picture.height(); ++y)
                    for (int x = 0; x < picture.width(); ++x)
                        best = std::max(best, Contrast(picture.pixelColor(x, y), background));
                EXPECT_GE(best, 3) << button->objectName().toStdString();
            }
    }
}

TEST_F(Looks, ThePaperOfTheGraphIsDimmedInADarkPaletteAndCurveAndMarkersStayVisible) {
    const ProfileColours light = ProfileColoursFor(LightPalette());
    const ProfileColours dark = ProfileColoursFor(DarkPalette());
    EXPECT_EQ(light.paper, QColor(Qt::white));
    EXPECT_LT(dark.paper.lightness(), 180);
    for (const ProfileColours& colours : {light, dark}) {
        EXPECT_GE(Contrast(ProfileColours::curve, colours.paper), 4.5);
        EXPECT_GE(Contrast(ProfileColours::marker, colours.paper), 4.5);
        EXPECT_GE(Contrast(colours.figures, colours.paper), 4.5);
        EXPECT_GT(Contrast(colours.grid, colours.paper), 1.2);
    }
    EXPECT_EQ(ProfileColours::curve, QColor(0, 0, 128));
    EXPECT_EQ(ProfileColours::marker, QColor(0, 0, 0));
}

TEST_F(Looks, ADropMarkCanBeSeenOnEveryPaper) {
    for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
        const QColor paper = palette.color(QPalette::Base);
        const QColor mark = WithReadableTexts(palette).color(QPalette::Highlight);
        EXPECT_GE(Contrast(Visible(mark, paper), paper), 3);
        EXPECT_GE(Contrast(Visible(paper, paper), paper), 3);
    }
}

} // namespace
} // namespace strativo
