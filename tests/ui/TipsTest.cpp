#include "ui/Tips.h"

#include "MainWindowTest.h"
#include "edit/GlassTypes.h"
#include "ui/Text.h"
#include "ui/UValue.h"
#include "ui/UvalsDialog.h"
#include "ui/WindowArea.h"

#include <QHelpEvent>
#include <QLabel>
#include <QTextDocument>
#include <QToolTip>

namespace strativo {
namespace {

struct LinesRow {
    const char* name;
    const char* text;
    const char* lines;
};

class TipLines : public testing::TestWithParam<LinesRow> {};

TEST_P(TipLines, AreBrokenAtBlanks) {
    EXPECT_EQ(InLines(QString::fromUtf8(GetParam().text), 10).toStdString(), GetParam().lines);
}

constexpr LinesRow rows[] = {
    {"Short", "short", "short"},
    {"Exactly", "1234567890", "1234567890"},
    {"AtABlank", "one two three", "one two\nthree"},
    {"BlankRightBehind", "1234567890 x", "1234567890\nx"},
    {"ALongWord", "123456789012345", "1234567890\n12345"},
    {"ItsOwnLineEnds", "one\ntwo three four", "one\ntwo three\nfour"},
    {"Empty", "", ""},
    {"LettersAreCountedNotBytes", "°°°°°°°°°° °", "°°°°°°°°°°\n°"},
};

INSTANTIATE_TEST_SUITE_P(Texts, TipLines, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

class ToolTips : public MainWindowTest {
protected:
    /// Rests the pointer on a place of the control until its tip shows, and returns the tip.
    static QLabel* TipOf(QWidget* control, QPoint place) {
        QHelpEvent rest(QEvent::ToolTip, place, control->mapToGlobal(place));
        QApplication::sendEvent(control, &rest);
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->inherits("QTipLabel") && widget->isVisible())
                return qobject_cast<QLabel*>(widget);
        return nullptr;
    }

    static void ExpectBesideAndNarrow(QWidget* control, const QLabel* tip) {
        const std::string name = control->objectName().toStdString();
        ASSERT_NE(tip, nullptr) << name;
        for (const QString& line : tip->text().split(QLatin1Char('\n')))
            EXPECT_LE(line.size(), 60) << line.toStdString();
        const QRect place(control->mapToGlobal(QPoint(0, 0)), control->size());
        EXPECT_FALSE(place.intersects(tip->geometry())) << name;
    }
};

TEST_F(ToolTips, OfALineThatIsCutOffTellAllOfIt) {
    Start();
    Choose("NewUValue");
    const std::string name = "<b>LOW</b>&HIGH" + std::string(60, 'x') + std::string(50, 'y');
    for (const std::string& each : {name, std::string("CLEAR")})
        AddGlassType(TheProject(), each);
    Choose("EditWin");
    auto* list = program->findChild<QListWidget*>(QStringLiteral("WinList"));
    const auto tipOfLine = [&](int line) {
        return TipOf(list->viewport(), list->visualItemRect(list->item(line)).center());
    };
    const QLabel* whole = tipOfLine(0);
    ASSERT_NE(whole, nullptr);
    EXPECT_TRUE(Qt::mightBeRichText(whole->text()));
    QTextDocument shown;
    shown.setHtml(whole->text());
    EXPECT_EQ(shown.toPlainText().remove(QLatin1Char('\n')).toStdString(), name);
    EXPECT_FALSE(
        QRect(list->mapToGlobal(QPoint(0, 0)), list->size()).intersects(whole->geometry()));
    EXPECT_TRUE(tipOfLine(1)->text().startsWith(QStringLiteral("Glass types of")));
}

TEST_F(ToolTips, OfAMaterialWhoseNameIsCutOffTellItsName) {
    folder.Write("library/stdmat.lby", "1'<B>OAK " + std::string(40, 'X') + "' 0.2 700 1600\n");
    Start();
    Choose("NewUValue");
    auto* list = Materials();
    const int line = list->row(list->findItems(QStringLiteral("<B>"), Qt::MatchStartsWith).front());
    list->scrollToItem(list->item(line));
    const QLabel* tip = TipOf(list->viewport(), list->visualItemRect(list->item(line)).center());
    ASSERT_NE(tip, nullptr);
    QTextDocument shown;
    shown.setHtml(tip->text());
    EXPECT_EQ(shown.toPlainText().toStdString(), "<B>OAK " + std::string(40, 'X'));
}

TEST_F(ToolTips, AreNarrowAndCoverNothingOfTheirControl) {
    Start();
    Choose("NewUValue");
    for (const char* name : {"NameText", "EditThick", "Result", "Draglabel_3", "TypeCombo"})
        ExpectBesideAndNarrow(Find(1, name), TipOf(Find(1, name), {3, 3}));
    for (QListWidget* list : {List(1), Materials()}) {
        QWidget* part = list->viewport(); // where the pointer is
        ExpectBesideAndNarrow(list, TipOf(part, part->rect().center()));
    }
}

TEST_F(ToolTips, ShowNamesThatLookLikeMarkup) {
    Start();
    QLabel control(QStringLiteral("x"));
    control.setToolTip(QStringLiteral("/a/<b>wall</b>.con"));
    control.show();
    const QLabel* tip = TipOf(&control, {1, 1});
    ASSERT_NE(tip, nullptr);
    EXPECT_TRUE(tip->text().contains(QStringLiteral("&lt;b&gt;wall")));
}

TEST_F(ToolTips, ShowPlainTextAsItStands) {
    Start();
    QLabel control(QStringLiteral("x"));
    const QString text = QStringLiteral("/a/<b>wall</b> &lt; & \"x\" 'y'.con");
    SetPlainToolTip(control, text);
    EXPECT_EQ(PlainToolTip(control), text);
    control.show();
    const QLabel* tip = TipOf(&control, {1, 1});
    ASSERT_NE(tip, nullptr);
    QTextDocument shown;
    shown.setHtml(tip->text());
    EXPECT_EQ(shown.toPlainText(), text);
}

TEST_F(ToolTips, OfTitleBarsAndIconsNameTheConstruction) {
    Start();
    Choose("NewUValue");
    TheProject().constructions[1].name = "Flat roof <b>";
    auto* frame = Window(1)->parentWidget();
    const QLabel* tip = TipOf(frame, {60, 10});
    ASSERT_NE(tip, nullptr);
    EXPECT_TRUE(tip->text().contains(QStringLiteral("Flat roof &lt;b&gt;")));
    EXPECT_FALSE(tip->geometry().intersects(
        QRect(frame->mapToGlobal(QPoint(0, 0)), QSize(frame->width(), 20))));
    TheProject().constructions[1].name = "Pitched roof";
    Area().SetMinimised(1, true);
    tip = TipOf(frame, {60, 10});
    ASSERT_NE(tip, nullptr);
    EXPECT_EQ(tip->text(), QStringLiteral("Pitched roof"));
}

} // namespace
} // namespace strativo
