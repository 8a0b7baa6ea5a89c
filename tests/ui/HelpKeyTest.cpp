#include "MainWindowTest.h"
#include "ui/HelpViewer.h"
#include "ui/UValue.h"
#include "ui/UvalsDialog.h"
#include "ui/WindowArea.h"

#include <QTextBrowser>
#include <QToolButton>

namespace strativo {
namespace {

/// F1 and the page at which the manual opens.
class HelpKeys : public MainWindowTest {
protected:
    static QWidget* Viewer() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == QLatin1String("HelpViewer"))
                return widget;
        throw std::runtime_error("no help");
    }
    static std::string Page() {
        return Viewer()
            ->findChild<QTextBrowser*>(QStringLiteral("Page"))
            ->source()
            .fileName()
            .toStdString();
    }
    std::string PageAfterF1() {
        TakeKeyboard(*program);
        Press(Qt::Key_F1);
        return Page();
    }
    /// In the box that the item opens.
    std::string PageInBox(const char* item) {
        std::string page;
        InBox([&](QWidget& box) {
            EXPECT_EQ(box.windowModality(), Qt::WindowModal);
            QTest::keyClick(&box, Qt::Key_F1);
            page = Page();
            EXPECT_TRUE(Viewer()->isVisible());
        });
        Choose(item);
        return page;
    }
};

TEST_F(HelpKeys, OpenThePageOfTheActiveWindow) {
    Start();
    EXPECT_EQ(PageAfterF1(), "window-materials.html");
    Choose("NewUValue");
    EXPECT_EQ(PageAfterF1(), "window-construction.html");
    Find(1, "NameText")->setFocus();
    EXPECT_EQ(PageAfterF1(), "window-construction.html");
    Choose("EditWin");
    EXPECT_EQ(PageAfterF1(), "window-glass-types.html");
    Area().Activate(UValueMDI::dialogId);
    EXPECT_EQ(PageAfterF1(), "window-materials.html");
}

TEST_F(HelpKeys, OpenThatOfTheMainWindowWhereNoChildIsActive) {
    Start();
    Area().SetHidden(UValueMDI::dialogId, true);
    ASSERT_EQ(Area().Active(), WindowArea::noWindow);
    EXPECT_EQ(PageAfterF1(), "window-main.html");
}

TEST_F(HelpKeys, WorkWhileTheModalEditorIsOpen) {
    Start();
    Choose("EditWin");
    InBox([](QWidget& editor) {
        EXPECT_EQ(editor.objectName(), QStringLiteral("Profile"));
        EXPECT_EQ(editor.windowModality(), Qt::WindowModal);
        QTest::keyClick(editor.findChild<QWidget*>(QStringLiteral("Graph")), Qt::Key_F1);
        EXPECT_EQ(Page(), "window-glass-editor.html");
        Viewer()->findChild<QToolButton*>(QStringLiteral("Home"))->click();
        EXPECT_EQ(Page(), "index.html");
        EXPECT_TRUE(editor.isVisible());
    });
    program->findChild<QAbstractButton*>(QStringLiteral("Addbut"))->click();
}

TEST_F(HelpKeys, WorkInBoxes) {
    Start();
    Choose("NewUValue");
    EXPECT_EQ(PageInBox("HelpAbout"), "boxes.html");
    EXPECT_EQ(PageInBox("SaveProjectAs"), "window-main.html");
    InBox([](QWidget& box) {
        QTest::keyClick(&box, Qt::Key_F1);
        EXPECT_EQ(Page(), "boxes.html");
    });
    Find<QAbstractButton>(1, "VWConComments")->click();
}

TEST_F(HelpKeys, OpenAHelpFileOfOnesOwnAtItsBeginning) {
    Start();
    TheProject().helpFile = folder.Write("mine.html", "<p>mine</p>");
    EXPECT_EQ(PageAfterF1(), "mine.html");
}

TEST_F(HelpKeys, LeadHomeToTheFirstPageOfTheManual) {
    Start();
    PageAfterF1();
    Viewer()->findChild<QToolButton*>(QStringLiteral("Home"))->click();
    EXPECT_EQ(Page(), "index.html");
}

} // namespace
} // namespace strativo
