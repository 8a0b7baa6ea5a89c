#include "WindowTest.h"
#include "edit/InfoTexts.h"
#include "ui/About_Strativo.h"
#include "ui/ConCommentBox.h"

#include <QPlainTextEdit>
#include <QPushButton>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CommentsBox : public WindowTest {
protected:
    void Comment(int construction, const std::string& text) {
        project.comments.constructions.Add(construction, text);
    }

    std::string ShownText() {
        const ConCommentBox box(program);
        return Bytes(Find<QPlainTextEdit>(box, "Comment")->toPlainText());
    }
};

TEST_F(CommentsBox, HasItsCaptions) {
    const ConCommentBox box(program);
    EXPECT_EQ(Bytes(box.windowTitle()), "Comments");
    EXPECT_EQ(Bytes(Find<QPushButton>(box, "OKButton")->text()), "OK");
    EXPECT_EQ(Bytes(Find<QPushButton>(box, "CancelButton")->text()), "Cancel");
    EXPECT_FALSE(Find<QPlainTextEdit>(box, "Comment")->accessibleName().isEmpty());
    for (const char* name : {"Comment", "OKButton", "CancelButton"})
        EXPECT_FALSE(Find(box, name)->toolTip().isEmpty()) << name;
}

TEST_F(CommentsBox, IsEmptyForAConstructionWithoutComments) {
    EXPECT_EQ(ShownText(), "");
}

TEST_F(CommentsBox, ShowsOneLineForEachCommentInFileOrder) {
    Comment(1, "second wall");
    Comment(1, "as built");
    EXPECT_EQ(ShownText(), "second wall\nas built");
}

TEST_F(CommentsBox, ShowsTheCurrentConstructionsOnly) {
    Comment(1, "of the first");
    Comment(2, "of the second");
    project.currentConstruction = 2;
    EXPECT_EQ(ShownText(), "of the second");
}

TEST_F(CommentsBox, ShowsTextAsItStands) {
    Comment(1, "<b>5 \xB0"
               "C</b> & more");
    EXPECT_EQ(ShownText(), "<b>5 °C</b> & more");
}

TEST_F(CommentsBox, IsUnmodifiedUntilSomethingIsTyped) {
    Comment(1, "as read");
    ConCommentBox box(program);
    auto* text = Find<QPlainTextEdit>(box, "Comment");
    EXPECT_FALSE(box.IsModified());
    Show(box);
    text->setFocus();
    Type("x");
    EXPECT_TRUE(box.IsModified());
}

TEST_F(CommentsBox, KeepsNothingThatWasTyped) {
    Comment(1, "as read");
    for (const char* button : {"OKButton", "CancelButton"}) {
        ConCommentBox box(program);
        Show(box);
        Find(box, "Comment")->setFocus();
        Type("typed");
        Find<QPushButton>(box, button)->click();
        EXPECT_FALSE(box.isVisible()) << button;
        EXPECT_EQ(ShownText(), "as read") << button;
    }
    EXPECT_THAT(project.comments.constructions.Of(1), ElementsAre("as read"));
    EXPECT_FALSE(project.changed);
}

TEST_F(CommentsBox, TabLeavesTheText) {
    ConCommentBox box(program);
    Show(box);
    Find(box, "Comment")->setFocus();
    PressKey(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Bytes(QApplication::focusWidget()->objectName()), "OKButton");
}

class AboutBox : public WindowTest {
protected:
    /// Shows the box and presses a mouse button on the middle of a control, or on the background.
    void Press(Qt::MouseButton button, const char* name) {
        About_Strativo box(program, QStringLiteral("The caption"));
        Show(box);
        QWidget* target = name == nullptr ? &box : Find(box, name);
        const QPoint place = name == nullptr ? QPoint(3, 3) : target->rect().center();
        QTest::mousePress(target, button, {}, place);
        QTest::mouseRelease(target, button, {}, place);
    }
};

TEST_F(AboutBox, HasItsCaptions) {
    const About_Strativo box(program, QStringLiteral("Brevan Strativo V2.1"));
    EXPECT_EQ(Bytes(box.windowTitle()), "About Strativo");
    EXPECT_EQ(Bytes(Find<QLabel>(box, "Label1_0")->text()), "Brevan Strativo V2.1");
    EXPECT_EQ(Bytes(Find<QLabel>(box, "Label1_2")->text()), "Strativo Version 2.1");
    EXPECT_EQ(Bytes(Find<QPushButton>(box, "Close_But")->text()), "OK");
    EXPECT_FALSE(Find<QLabel>(box, "Label1_1")->text().isEmpty()) << "the holder of the rights";
}

TEST_F(AboutBox, ShowsThePictureOfTheProgram) {
    const About_Strativo box(program, QString());
    EXPECT_FALSE(Find<QLabel>(box, "Picture1")->pixmap().isNull());
}

TEST_F(AboutBox, ARightPressOnPictureLabelsOrBackgroundShowsTheSources) {
    RecordSource(project, ProgramWindow::mainWindow);
    for (const char* place :
         {static_cast<const char*>(nullptr), "Picture1", "Label1_0", "Label1_1", "Label1_2"}) {
        prompts.messages.clear();
        Press(Qt::RightButton, place);
        EXPECT_THAT(prompts.messages,
                    ElementsAre(Message{"\r\rSTRATVMD.cpp 2.1 2026-11-21\r\r\r"
                                        "LayerClipboard.cpp 2.1 2026-11-21\r",
                                        "Source code", Buttons::ok, Icon::exclamation}))
            << (place == nullptr ? "background" : place);
    }
}

TEST_F(AboutBox, OtherPressesShowNothing) {
    Press(Qt::LeftButton, "Picture1");
    Press(Qt::MiddleButton, "Label1_0");
    Press(Qt::LeftButton, nullptr);
    Press(Qt::RightButton, "Close_But");
    EXPECT_THAT(prompts.messages, IsEmpty());
}

TEST_F(AboutBox, OkClosesIt) {
    About_Strativo box(program, QString());
    Show(box);
    Find<QPushButton>(box, "Close_But")->click();
    EXPECT_FALSE(box.isVisible());
}

} // namespace
} // namespace strativo
