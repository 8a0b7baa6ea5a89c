#include "desktop/TwoWindows.h"
#include "ui/DrawingView.h"
#include "ui/SectionWindow.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>

namespace strativo {

/// The section beside the windows of two constructions.
class SectionStory : public TwoWindows {
protected:
    SectionWindow* Section() const {
        return window->findChild<SectionWindow*>(QStringLiteral("SectionWindow"));
    }
    bool IsOpen() {
        return InGui([this] { return Section() != nullptr && Section()->isVisible(); });
    }
    std::string Heading() {
        return InGui([this] {
            return Section()->findChild<QLabel*>(QStringLiteral("Heading"))->text().toStdString();
        });
    }
    std::string Figures() {
        return InGui([this] {
            auto* figures = Section()->findChild<QPlainTextEdit*>(QStringLiteral("Figures"));
            return figures->toPlainText().toStdString();
        });
    }
    /// Brings the section where it hides neither construction.
    void PutAside() {
        InGui([this] {
            const QRect screen = window->screen()->availableGeometry();
            Section()->resize(screen.width() / 2, screen.height() / 3);
            Section()->move(screen.left(), screen.bottom() - screen.height() / 3 - 40);
            return true;
        });
        WaitForInput();
    }
    void WaitForFigures(const std::string& part) {
        WaitFor("the section to show " + part,
                [&] { return Figures().find(part) != std::string::npos; });
    }
};

TEST_F(SectionStory, TheKeyF9ShowsTheSectionWhichFollowsTheWork) {
    Open();
    Click(LayerRow(1, 0));
    Press(Key::f9);
    WaitFor("the section", [this] { return IsOpen(); });
    EXPECT_NE(Heading().find("Construction 1  First  (Opaque)"), std::string::npos);
    EXPECT_NE(Figures().find("    1 FACE BRICK"), std::string::npos);
    EXPECT_EQ(ActiveWindow(), 1);
    PutAside();

    Click(LayerRow(1, 1));
    Enter("140");
    WaitForFigures("BLOCK                            140.0");
    Click(LayerRow(2, 0));
    WaitForFigures("INSULATION");
    EXPECT_NE(Heading().find("Construction 2  Second"), std::string::npos);

    ChooseMenu("Filemenu", "SaveProject");
    EXPECT_NE(Read("pair.con").find("0.140"), std::string::npos);
    EXPECT_TRUE(IsOpen()) << "the section does not go with what the main window does";
}

} // namespace strativo
