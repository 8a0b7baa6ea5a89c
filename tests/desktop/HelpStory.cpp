#include "desktop/GlassWindows.h"

#include <QApplication>
#include <QTextBrowser>
#include <QUrl>

namespace strativo {

/// F1 and the manual beside the work.
class HelpStory : public GlassWindows {
protected:
    static QWidget* Viewer() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == QLatin1String("HelpViewer"))
                return widget;
        return nullptr;
    }
    void WaitForPage(const char* name) {
        WaitFor(name, [name] {
            QWidget* viewer = Viewer();
            return viewer != nullptr && viewer->isActiveWindow()
                   && viewer->findChild<QTextBrowser*>(QStringLiteral("Page"))->source().fileName()
                          == QLatin1String(name);
        });
        WaitForInput();
    }
    /// The main window or the box over it gets the keyboard back.
    void BackToWork() {
        Press({Key::alt, Key::f4});
        WaitFor("the work", [] { return !Viewer()->isVisible(); });
        WaitForInput();
    }
};

TEST_F(HelpStory, F1OpensThePageOfTheWindowInWhichOneIs) {
    Start();
    Press(Key::f1);
    WaitForPage("window-materials.html");
    BackToWork();
    ChooseMenu("Filemenu", "NewUValue");
    Press(Key::f1);
    WaitForPage("window-construction.html");
    BackToWork();
    WaitFor("the main window", [this] { return window->isActiveWindow(); });
    EXPECT_EQ(Focus(), "Construction");
}

TEST_F(HelpStory, TheManualIsReadWhileTheGlassEditorIsOpen) {
    OpenGlassTypes();
    AddType();
    Press(Key::f1);
    WaitForPage("window-glass-editor.html");
    const auto scrolled = [] {
        return InGui([] {
            const auto* page = Viewer()->findChild<QTextBrowser*>(QStringLiteral("Page"));
            return page->textCursor().position();
        });
    };
    // It takes keys: the search finds a word of the page.
    EXPECT_EQ(scrolled(), 0);
    Press({Key::ctrl, KeyOf('f')});
    Type("point");
    Press(Key::enter);
    EXPECT_GT(scrolled(), 0);
    BackToWork();
    WaitFor("the editor", [] {
        return QApplication::activeModalWidget() != nullptr
               && QApplication::activeModalWidget()->isActiveWindow();
    });
    Enter("CLEAR");
    Click(PlaceOf(box, "OkBut"));
    WaitFor("the end of the editor", [] { return QApplication::activeModalWidget() == nullptr; });
    EXPECT_TRUE(IsVisible(glass, "WinList"));
}

} // namespace strativo
