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
    // In the windows' thread only.
    bool IsOpen() const { return Section() != nullptr && Section()->isVisible(); }
    std::string Figures() const {
        auto* figures = Section()->findChild<QPlainTextEdit*>(QStringLiteral("Figures"));
        return figures->toPlainText().toStdString();
    }
    std::string Heading() const {
        return Section()->findChild<QLabel*>(QStringLiteral("Heading"))->text().toStdString();
    }

    void WaitForSection(const std::string& heading, const std::string& figures) {
        WaitFor("the section to show " + figures, [&] {
            return IsOpen() && Heading().find(heading) != std::string::npos
                   && Figures().find(figures) != std::string::npos;
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
};

TEST_F(SectionStory, TheKeyF9ShowsTheSectionWhichFollowsTheWork) {
    Open();
    Click(LayerRow(1, 0));
    Press(Key::f9);
    WaitForSection("Construction 1  First  (Opaque)", "    1 FACE BRICK");
    EXPECT_EQ(ActiveWindow(), 1);
    PutAside();

    Click(LayerRow(1, 1));
    Enter("140");
    WaitForSection("Construction 1  First", "BLOCK                            140.0");
    Click(LayerRow(2, 0));
    WaitForSection("Construction 2  Second", "INSULATION");

    ChooseMenu("Filemenu", "SaveProject");
    EXPECT_NE(Read("pair.con").find("0.140"), std::string::npos);
    EXPECT_TRUE(InGui([this] { return IsOpen(); }))
        << "the section does not go with what the main window does";
}

TEST_F(SectionStory, HasTheKeysAgainWhenItsPromptGoes) {
    Open();
    Click(LayerRow(1, 0));
    Press(Key::f9);
    WaitForSection("Construction 1  First", "    1 FACE BRICK");
    const std::string layers = Layers(1);
    const auto hasTheKeys = [&] {
        WaitFor("the section to have the keys", [this] { return Section()->isActiveWindow(); });
    };
    hasTheKeys();
    Press({Key::alt, KeyOf('v')});
    CancelPrompt("Save section");
    hasTheKeys();
    Press({Key::alt, KeyOf('v')});
    ChooseFile("Save section", PathOf("wall.svg"));
    hasTheKeys();
    EXPECT_NE(Read("wall.svg").find("<svg "), std::string::npos);
    Press(Key::escape);
    WaitFor("the section to close", [this] { return !IsOpen() && window->isActiveWindow(); });
    EXPECT_EQ(Layers(1), layers);
}

} // namespace strativo
