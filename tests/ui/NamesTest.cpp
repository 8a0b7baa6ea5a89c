#include "MainWindowTest.h"
#include "edit/ConstructionSlots.h"
#include "ui/ChildWindow.h"
#include "ui/ElidedLabel.h"
#include "ui/Tips.h"
#include "ui/UValue.h"
#include "ui/UvalsDialog.h"
#include "ui/WindowArea.h"

#include <QLineEdit>
#include <QStatusBar>

namespace strativo {
namespace {

/// What names and captions look like where there is little room, and what they tell.
class ShownNames : public MainWindowTest {
protected:
    QWidget* Frame(int number) { return Area().Content(number)->parentWidget(); }
    QColor BarColour(int number) {
        return Frame(number)->grab().toImage().pixelColor(Frame(number)->width() / 2, 4);
    }
    QLabel* StatusLabel(const char* name) {
        return program->findChild<QLabel*>(QLatin1String(name));
    }
};

TEST_F(ShownNames, LongerThanTheFieldShowTheirBeginning) {
    Start();
    Choose("NewUValue");
    const std::string name = "Flat roof " + std::string(200, 'x');
    TheProject().constructions[1].name = name;
    program->ShowProject();
    auto* field = Find<QLineEdit>(1, "NameText");
    EXPECT_EQ(field->text().toStdString(), name);
    EXPECT_EQ(field->cursorPosition(), 0);
    TakeKeyboard(*program);
    field->setFocus();
    Press(Qt::Key_End);
    EXPECT_EQ(field->cursorPosition(), field->text().size());
    Press(Qt::Key_Escape);
    EXPECT_EQ(field->cursorPosition(), 0);
}

TEST_F(ShownNames, LongerThanTheFieldGoOnShowingTheirBeginningWhileLayersAreChosen) {
    Start();
    Choose("NewUValue");
    for (const char* material : {"PLASTER", "FACE BRICK"})
        Insert(material);
    TheProject().constructions[1].name = "Flat roof " + std::string(200, 'x');
    Area().Activate(1);
    auto* field = Find<QLineEdit>(1, "NameText");
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Down}) {
        Press(key);
        EXPECT_EQ(field->cursorPosition(), 0);
    }
}

TEST_F(ShownNames, AreElidedInTheMiddleByLabelsWithoutRoom) {
    ElidedLabel label(20, nullptr);
    label.setText(QStringLiteral("Select Material : /a/folder/of/libraries/stdmat.lby"));
    EXPECT_LT(label.sizeHint().width(), label.fontMetrics().horizontalAdvance(label.text()));
    label.resize(label.fontMetrics().averageCharWidth() * 25, 20);
    const QImage elided = label.grab().toImage();
    ElidedLabel same(20, nullptr);
    same.setText(label.fontMetrics().elidedText(label.text(), Qt::ElideMiddle, label.width()));
    EXPECT_TRUE(same.text().endsWith(QLatin1String("mat.lby"))) << same.text().toStdString();
    same.resize(label.size());
    EXPECT_EQ(elided, same.grab().toImage());
    EXPECT_EQ(label.text().size(), 51) << "the text stays whole";
}

TEST_F(ShownNames, TheCaptionStaysWholeAsText) {
    const std::string deep = "a/" + std::string(60, 'b') + "/" + std::string(60, 'c');
    library = folder.Write(deep + "/stdmat.lby", folder.Read("library/stdmat.lby"));
    folder.Write("settings/Stratv.ini", "[Files]\nStdMat=" + library + "\n");
    Start();
    Choose("NewUValue");
    EXPECT_EQ(Frame(UValueMDI::dialogId)->windowTitle().toStdString(),
              "Select Material : " + library);
}

TEST_F(ShownNames, ALongOneLeavesTheOthersOfTheStatusBarTheirRoom) {
    Start();
    Choose("NewUValue");
    Insert("PLASTER");
    TheProject().constructionFile = "/x/" + std::string(300, 'n') + ".con";
    program->ShowProject();
    QTest::qWait(1);
    for (const char* name : {"ChangedStatus", "LibraryStatus"}) {
        const QLabel* label = StatusLabel(name);
        EXPECT_GE(label->width(), label->fontMetrics().horizontalAdvance(label->text())) << name;
    }
    EXPECT_EQ(StatusText("FileStatus").size(), 304U);
}

TEST_F(ShownNames, TheDialogTellsWhereMaterialsGo) {
    Start();
    EXPECT_EQ(StatusText("TargetStatus"), "");
    Choose("NewUValue");
    Choose("NewUValue");
    TheProject().constructions[2].name = "Flat roof";
    const QColor activeBar = BarColour(2);
    const QColor otherBar = BarColour(1);
    EXPECT_EQ(StatusText("TargetStatus"), "");
    Area().Activate(UValueMDI::dialogId);
    EXPECT_EQ(StatusText("TargetStatus"), "Materials go to Construction 2: Flat roof");
    EXPECT_NE(BarColour(2), activeBar);
    EXPECT_NE(BarColour(2), otherBar);
    EXPECT_EQ(BarColour(1), otherBar);
    Area().Activate(1);
    EXPECT_EQ(BarColour(1), activeBar);
    EXPECT_EQ(BarColour(2), otherBar);
    Area().Activate(UValueMDI::dialogId);
    EXPECT_EQ(StatusText("TargetStatus"), "Materials go to Construction 1");
    Area().SetHidden(UValueMDI::dialogId, true);
    EXPECT_EQ(StatusText("TargetStatus"), "");
}

TEST_F(ShownNames, TheDialogTellsTheNumberThatMaterialsGoToAlsoWhenTheNameIsLong) {
    Start();
    Choose("NewUValue");
    TheProject().constructions[1].name = "Flat roof " + std::string(300, 'x');
    Area().Activate(UValueMDI::dialogId);
    QTest::qWait(1);
    QLabel* label = StatusLabel("TargetStatus");
    const QString shown =
        label->fontMetrics().elidedText(label->text(), Qt::ElideRight, label->width());
    ASSERT_TRUE(shown.startsWith(QStringLiteral("Materials go to Construction 1: Flat roof")));
    ElidedLabel same(1000, label->parentWidget());
    same.setText(shown);
    same.resize(label->size());
    EXPECT_EQ(label->grab().toImage(), same.grab().toImage());
}

TEST_F(ShownNames, AMaterialWhoseNameIsCutOffTellsItInATooltip) {
    const std::string name = "OAK <B>& " + std::string(40, 'X');
    folder.Write("library/stdmat.lby",
                 "1'" + name + "' 0.2 700 1600\n2'" + std::string(33, 'Y') + "' 0.2 700 1600\n");
    Start();
    Choose("NewUValue");
    QListWidget* list = Materials();
    const auto* cut = list->findItems(QStringLiteral("OAK"), Qt::MatchStartsWith).front();
    EXPECT_EQ(cut->data(toldRole).toString().toStdString(), name);
    const auto* whole = list->findItems(QStringLiteral("YYY"), Qt::MatchStartsWith).front();
    EXPECT_EQ(whole->data(toldRole), QVariant()) << "the list's own is shown";
}

TEST_F(ShownNames, EnterInTheDialogBringsAMinimisedConstructionToSight) {
    Start();
    Choose("NewUValue");
    Area().SetMinimised(1, true);
    Area().Activate(UValueMDI::dialogId);
    ASSERT_EQ(TheProject().currentConstruction, 1);
    SelectMaterial("PLASTER");
    TakeKeyboard(*program);
    Materials()->setFocus();
    Press(Qt::Key_Return);
    EXPECT_FALSE(Area().IsMinimised(1));
    EXPECT_TRUE(Window(1)->isVisible());
    EXPECT_EQ(Area().Active(), UValueMDI::dialogId);
    EXPECT_EQ(Focus(), "UValueList");
    EXPECT_THAT(LayersShown(1), testing::ElementsAre("PLASTER"));
}

TEST_F(ShownNames, ACoveredConstructionComesRightBelowTheDialog) {
    Start();
    for (int i = 0; i < 12; ++i)
        Choose("NewUValue");
    Area().Activate(3);
    Area().Activate(12);
    ActivateConstruction(TheProject(), 3);
    Area().Activate(UValueMDI::dialogId);
    SelectMaterial("PLASTER");
    Materials()->setFocus();
    Press(Qt::Key_Return);
    QTest::qWait(1);
    const QPoint middle = Frame(3)->geometry().center();
    const QWidget* seen = Area().childAt(middle);
    EXPECT_TRUE(Frame(3)->isAncestorOf(seen) || Frame(UValueMDI::dialogId)->isAncestorOf(seen));
    EXPECT_EQ(Area().Active(), UValueMDI::dialogId);
}

TEST_F(ShownNames, AnEmptyMainWindowSaysHowToBegin) {
    Start();
    const QString hint = Area().accessibleDescription();
    EXPECT_TRUE(hint.startsWith(QLatin1String("New construction in the File menu")));
    const auto upperPart = [this] {
        return Area().grab(QRect(0, 0, Area().width(), Area().height() / 2)).toImage();
    };
    const QImage empty = upperPart();
    Choose("NewUValue");
    EXPECT_TRUE(Area().accessibleDescription().isEmpty());
    Choose("CloseUValue");
    EXPECT_EQ(Area().accessibleDescription(), hint);
    Area().Activate(UValueMDI::dialogId);
    EXPECT_EQ(upperPart(), empty);
    Area().SetHint(QString());
    EXPECT_NE(upperPart(), empty) << "it is drawn";
}

} // namespace
} // namespace strativo
