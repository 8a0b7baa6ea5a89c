#include "ui/HelpViewer.h"

#include "WindowTest.h"
#include "ui/MainWindowPlace.h"

#include <QImage>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextLayout>
#include <QToolButton>

namespace strativo {
namespace {

class HelpWindow : public WindowTest {
protected:
    HelpWindow() : page(Find<QTextBrowser>(viewer, "Page")) {}

    std::string Write(const char* name, const char* text) { return folder.Write(name, text); }

    void Open(const std::string& path) {
        viewer.ShowContents(QString::fromStdString(path));
        ASSERT_TRUE(QTest::qWaitForWindowActive(&viewer));
    }

    std::string Text() const { return Bytes(page->toPlainText()); }
    std::string Notice() const { return Bytes(Find<QLabel>(viewer, "Notice")->text()); }
    QToolButton* Button(const char* name) { return Find<QToolButton>(viewer, name); }

    /// Follows a link as a click on it does.
    void Follow(const char* link) { emit page->anchorClicked(QUrl(QLatin1String(link))); }

    void Search(const char* text) {
        PressKey(page, Qt::Key_F, Qt::ControlModifier);
        Type(text);
        PressKey(QApplication::focusWidget(), Qt::Key_Return);
    }

    TemporaryFolder folder;
    HelpViewer viewer;
    QTextBrowser* page;
};

TEST_F(HelpWindow, IsAWindowOfItsOwn) {
    EXPECT_TRUE(viewer.isWindow());
    EXPECT_EQ(Bytes(viewer.windowTitle()), "Strativo Help");
    for (const char* name : {"Back", "Forward", "Home", "FindNext", "FindPrevious"}) {
        EXPECT_FALSE(Button(name)->accessibleName().isEmpty()) << name;
        EXPECT_FALSE(Button(name)->toolTip().isEmpty()) << name;
    }
}

TEST_F(HelpWindow, FitsOnTheScreen) {
    const QSize wanted(30000, 20000);
    const QSize fitting = FittingSize(wanted, viewer);
    const QSize available = viewer.screen()->availableSize();
    EXPECT_LT(fitting.width(), available.width());
    EXPECT_LT(fitting.height(), available.height());
    EXPECT_LE(viewer.height(), fitting.height());
}

TEST_F(HelpWindow, ShowsHtml) {
    Open(Write("help.html", "<h1>Walls</h1><p>5 &lt; 6</p>"));
    EXPECT_EQ(Text(), "Walls\n5 < 6");
    EXPECT_TRUE(viewer.isVisible());
    EXPECT_TRUE(page->hasFocus());
}

TEST_F(HelpWindow, ShowsMarkdown) {
    Open(Write("help.md", "# Walls\n\nLayers *count*.\n"));
    EXPECT_EQ(Text(), "Walls\nLayers count.");
}

TEST_F(HelpWindow, ShowsPlainText) {
    Open(Write("help.txt", "first line\nsecond line"));
    EXPECT_EQ(Text(), "first line\nsecond line");
}

TEST_F(HelpWindow, ShowsPlainTextOfAnyLetters) {
    Open(Write("help.txt", "5 < 6 & caf\xE9"));
    EXPECT_EQ(Text(), "5 < 6 & café");
}

struct FailureRow {
    const char* test;
    const char* name;
    const char* reason;
};

class UnreadableHelp : public HelpWindow, public testing::WithParamInterface<FailureRow> {};

TEST_P(UnreadableHelp, GivesAPageThatSaysSo) {
    folder.Write("folder/help.html", "");
    const std::string path = (folder.Path() / GetParam().name).string();
    Open(path);
    EXPECT_EQ(Text(), "This help page cannot be shown\n" + path + "\n" + GetParam().reason);
}

constexpr FailureRow failures[] = {
    {"MissingHtml", "gone.html", "There is no such file."},
    {"MissingMarkdown", "gone.md", "There is no such file."},
    {"MissingOther", "gone.hlp", "There is no such file."},
    {"Folder", "folder", "There is no such file."},
};

INSTANTIATE_TEST_SUITE_P(Reasons, UnreadableHelp, testing::ValuesIn(failures),
                         [](const auto& row) { return row.param.test; });

TEST_F(HelpWindow, SaysThatABinaryFileIsNoPage) {
    const std::string path = folder.Write("old.hlp", std::string_view("?_\3\0\0\0", 6));
    Open(path);
    EXPECT_EQ(Text(), "This help page cannot be shown\n" + path
                          + "\nThe file is neither a page of HTML or Markdown nor plain text.");
}

TEST_F(HelpWindow, ReadsAMissingFileAgainWhenItHasAppeared) {
    Open((folder.Path() / "late.html").string());
    Write("late.html", "<p>here now</p>");
    Open((folder.Path() / "late.html").string());
    EXPECT_EQ(Text(), "here now");
}

TEST_F(HelpWindow, FollowsLinksBackForwardAndHome) {
    Write("second.html", "<p>second</p>");
    Open(Write("first.html", "<p>first</p>"));
    EXPECT_FALSE(Button("Back")->isEnabled());
    Follow("second.html");
    EXPECT_EQ(Text(), "second");
    EXPECT_FALSE(Button("Forward")->isEnabled());
    Button("Back")->click();
    EXPECT_EQ(Text(), "first");
    Button("Forward")->click();
    EXPECT_EQ(Text(), "second");
    Button("Home")->click();
    EXPECT_EQ(Text(), "first");
}

TEST_F(HelpWindow, OpensNoLinkToOtherPlaces) {
    Open(Write("first.html", "<p>first</p>"));
    Follow("https://example.org/page.html");
    EXPECT_EQ(Text(), "first");
    EXPECT_EQ(Notice(), "Not opened: https://example.org/page.html");
}

TEST_F(HelpWindow, FindsOnAndRoundFromTheEnd) {
    Open(Write("help.txt", "brick one\nbrick two"));
    Search("brick");
    EXPECT_EQ(page->textCursor().selectionStart(), 0);
    PressKey(&viewer, Qt::Key_F3);
    EXPECT_EQ(page->textCursor().selectionStart(), 10);
    PressKey(&viewer, Qt::Key_F3);
    EXPECT_EQ(page->textCursor().selectionStart(), 0);
    PressKey(&viewer, Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(page->textCursor().selectionStart(), 10);
}

TEST_F(HelpWindow, SaysWhatItDidNotFind) {
    Open(Write("help.txt", "brick"));
    Search("glass");
    EXPECT_EQ(Notice(), "Not found: glass");
    EXPECT_FALSE(page->textCursor().hasSelection());
}

TEST_F(HelpWindow, GoesOnSearchingInTheOtherPages) {
    Write("deeper/third.html", "<p>A pane of glass</p>");
    Write("second.md", "Glass\n\n[third](deeper/third.html#top)\n");
    Open(Write("first.html", "<p>glass</p><p><a href='second.md'>second</a></p>"));
    Search("glass");
    EXPECT_EQ(Text(), "glass\nsecond");
    PressKey(&viewer, Qt::Key_F3);
    EXPECT_EQ(Text(), "Glass\nthird");
    EXPECT_EQ(Bytes(page->textCursor().selectedText()), "Glass");
    PressKey(&viewer, Qt::Key_F3);
    EXPECT_EQ(Text(), "A pane of glass");
    EXPECT_EQ(page->textCursor().selectionStart(), 10);
    PressKey(&viewer, Qt::Key_F3);
    EXPECT_EQ(Text(), "glass\nsecond");
    PressKey(&viewer, Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Text(), "A pane of glass");
    PressKey(&viewer, Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Text(), "Glass\nthird");
    Button("Back")->click();
    EXPECT_EQ(Text(), "A pane of glass");
}

TEST_F(HelpWindow, SearchesNoPagesOutsideItsFolder) {
    Write("secret.html", "<p>glass</p>");
    Write("manual/second.html", "<p>block</p>");
    Open(Write("manual/first.html",
               "<p>brick</p><p><a href='../secret.html'>secret</a>"
               "<a href='second.html'>second</a><a href='gone.html'>g</a></p>"));
    Search("glass");
    EXPECT_EQ(Notice(), "Not found: glass");
    EXPECT_EQ(Text(), "brick\nsecretsecondg");
}

TEST_F(HelpWindow, PicturesAreNeverWiderThanThePage) {
    QImage picture(900, 300, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    ASSERT_TRUE(picture.save(QString::fromStdString((folder.Path() / "wide.png").string())));
    Open(Write("first.html", "<p><img src='wide.png' width='800'></p><p><img src='wide.png'></p>"
                             "<p><img src='wide.png' width='90'></p>"));
    const auto widths = [this] {
        std::vector<qreal> found;
        for (QTextBlock block = page->document()->begin(); block.isValid(); block = block.next())
            found.push_back(block.begin().fragment().charFormat().toImageFormat().width());
        return found;
    };
    viewer.resize(500, 400);
    QTRY_COMPARE(page->horizontalScrollBar()->maximum(), 0);
    const qreal room = page->viewport()->width() - 2 * page->document()->documentMargin();
    EXPECT_EQ(widths(), (std::vector<qreal>{room, room, 90}));
    EXPECT_NEAR(page->document()->begin().layout()->boundingRect().height(), room / 3, 20);
    viewer.resize(1200, 400);
    EXPECT_EQ(widths(), (std::vector<qreal>{800, 900, 90}));
}

TEST_F(HelpWindow, EscapeClosesTheFindBar) {
    Open(Write("help.txt", "brick"));
    Search("glass");
    PressKey(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(Find(viewer, "FindBar")->isVisible());
    EXPECT_TRUE(page->hasFocus());
    EXPECT_EQ(Notice(), "");
}

} // namespace
} // namespace strativo
