#include "ui/MessageBox.h"

#include "WindowTest.h"

#include <QPushButton>
#include <QScrollArea>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

class MessageBoxes : public WindowTest {
protected:
    Answer Show(const Message& message, std::function<void(QDialog&)> steps) {
        InDialog(std::move(steps));
        return ShowMessageBox(message, nullptr);
    }

    static std::function<void(QDialog&)> Key(Qt::Key key) {
        return [key](QDialog& box) { PressKey(&box, key); };
    }
    static std::function<void(QDialog&)> Button(const char* caption) {
        return [caption](QDialog& box) {
            for (QPushButton* button : box.findChildren<QPushButton*>())
                if (Bytes(QString(button->text()).remove(QLatin1Char('&'))) == caption)
                    return button->click();
            ADD_FAILURE() << caption;
        };
    }
    static std::function<void(QDialog&)> CloseBox() {
        return [](QDialog& box) { box.close(); };
    }
    static std::string TextOf(QDialog& box) {
        return Bytes(Find<QLabel>(box, "MessageText")->text());
    }

    const Message question{"?", "Title", Buttons::yesNoCancel, Icon::question};
};

TEST_F(MessageBoxes, TheProgramsTitleStandsForNone) {
    Show({"text", ""}, [](QDialog& box) { EXPECT_EQ(Bytes(box.windowTitle()), "Strativo"); });
    Show({"text", "Own"}, [](QDialog& box) { EXPECT_EQ(Bytes(box.windowTitle()), "Own"); });
}

TEST_F(MessageBoxes, AreAsLargeAsTheirTextAndTitleAndHaveNoButtonsForOtherSizes) {
    Show({"?", "A title of some length that can be read"}, [](QDialog& box) {
        EXPECT_EQ(box.minimumSize(), box.maximumSize());
        EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(box.windowTitle()) + 80);
        EXPECT_FALSE(box.windowFlags() & Qt::WindowMinMaxButtonsHint);
    });
}

TEST_F(MessageBoxes, AnswersAreThoseOfTheButtons) {
    EXPECT_EQ(Show({"text", ""}, Button("OK")), Answer::ok);
    EXPECT_EQ(Show(question, Button("Yes")), Answer::yes);
    EXPECT_EQ(Show(question, Button("No")), Answer::no);
    EXPECT_EQ(Show(question, Button("Cancel")), Answer::cancel);
}

TEST_F(MessageBoxes, EscapeAndTheCloseBoxAreTheLeastHarmfulAnswer) {
    for (const auto& way : {Key(Qt::Key_Escape), CloseBox()}) {
        EXPECT_EQ(Show(question, way), Answer::cancel);
        EXPECT_EQ(Show(YesNoQuestion("?", ""), way), Answer::no);
        EXPECT_EQ(Show({"text", ""}, way), Answer::ok);
    }
}

TEST_F(MessageBoxes, EnterIsTheAnswerOfTheMessage) {
    EXPECT_EQ(Show(YesNoQuestion("?", ""), Key(Qt::Key_Return)), Answer::yes);
    EXPECT_EQ(Show(YesNoQuestion("?", "", Answer::no), Key(Qt::Key_Return)), Answer::no);
    EXPECT_EQ(Show(question, Key(Qt::Key_Return)), Answer::yes);
    EXPECT_EQ(Show({"text", ""}, Key(Qt::Key_Return)), Answer::ok);
}

TEST_F(MessageBoxes, EveryKindOfLineBreakIsOneBreak) {
    EXPECT_EQ(Bytes(WithPlainLineBreaks(QStringLiteral("a\rb\nc\r\nd\n\re\r\rf\n\ng"))),
              "a\nb\nc\nd\ne\n\nf\n\ng");
    Show({"a\rb", ""}, [](QDialog& box) { EXPECT_EQ(TextOf(box), "a\nb"); });
}

TEST_F(MessageBoxes, NamesAreNeverTakenForMarkup) {
    Show({"Wall <b>x</b> & Co", ""}, [](QDialog& box) {
        EXPECT_EQ(Find<QLabel>(box, "MessageText")->textFormat(), Qt::PlainText);
        EXPECT_EQ(TextOf(box), "Wall <b>x</b> & Co");
    });
}

TEST_F(MessageBoxes, BytesAreShownAsTheLettersTheyStandFor) {
    Show({"W\xE4nde", ""}, [](QDialog& box) { EXPECT_EQ(TextOf(box), "W\xC3\xA4nde"); });
    Message path{"/tmp/W\xC3\xA4nde.con", ""};
    path.encoding = Encoding::utf8;
    Show(path, [](QDialog& box) { EXPECT_EQ(TextOf(box), "/tmp/W\xC3\xA4nde.con"); });
}

TEST_F(MessageBoxes, QuestionsHaveAnIconAndMessagesHaveNone) {
    const auto labels = [](QDialog& box) { return box.findChildren<QLabel*>().size(); };
    Show(question, [&](QDialog& box) { EXPECT_EQ(labels(box), 2); });
    Show({"text", ""}, [&](QDialog& box) { EXPECT_EQ(labels(box), 1); });
}

TEST_F(MessageBoxes, ATextLongerThanTheScreenCanBeScrolled) {
    std::string text;
    for (int i = 0; i < 5000; ++i)
        text += "Construction " + std::to_string(i) + "\r";
    Show({text, ""}, [](QDialog& box) {
        EXPECT_EQ(box.findChildren<QScrollArea*>().size(), 1);
        EXPECT_LE(box.height(), box.screen()->availableSize().height());
    });
}

TEST_F(MessageBoxes, HaveFocusOnTheAnswerOfEnter) {
    Show(YesNoQuestion("?", "", Answer::no), [](QDialog& box) {
        const auto* focused = qobject_cast<QPushButton*>(box.focusWidget());
        ASSERT_NE(focused, nullptr);
        EXPECT_TRUE(focused->isDefault());
        EXPECT_EQ(Bytes(QString(focused->text()).remove(QLatin1Char('&'))), "No");
    });
}

TEST_F(MessageBoxes, CannotBeMinimisedOrMaximised) {
    Show({"Text", "Title"}, [](QDialog& box) {
        EXPECT_FALSE(box.windowFlags() & Qt::WindowMinimizeButtonHint);
        EXPECT_FALSE(box.windowFlags() & Qt::WindowMaximizeButtonHint);
        EXPECT_TRUE(box.windowFlags() & Qt::WindowCloseButtonHint);
    });
}

} // namespace
} // namespace strativo
