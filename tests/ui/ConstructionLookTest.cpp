#include "MainWindowTest.h"
#include "ui/ChildWindow.h"
#include "ui/EntryField.h"
#include "ui/LayerList.h"
#include "ui/UValue.h"
#include "ui/UvalsDialog.h"
#include "ui/WindowArea.h"

#include <QComboBox>
#include <QFontInfo>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace strativo {
namespace {

using testing::ElementsAre;

/// What a construction window and the dialog look like, and what they say of themselves.
class Look : public MainWindowTest {
protected:
    void StartWithTransparentConstruction() {
        Start();
        Choose("NewUValue");
        TheProject().constructions[1].type = transparentType;
        program->ShowProject();
    }

    QLabel* Label(const char* name) { return Find<QLabel>(1, name); }

    static std::vector<QWidget*> Controls(QWidget& window) {
        std::vector<QWidget*> controls;
        for (QWidget* child : window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (!child->isHidden())
                controls.push_back(child);
        return controls;
    }
};

TEST_F(Look, ConstructionWindowsAreCaptionedLetterForLetter) {
    StartWithTransparentConstruction();
    const std::pair<const char*, const char*> captions[] = {
        {"NameLabel", "&Construction Name"},
        {"TypeLabel", "T&ype"},
        {"IndexLabel", "Construction Index :"},
        {"ThicknessLabel", "&Thickness"},
        {"AbsorptionLabel", "&Absorption"},
        {"Label6", "Indicative Uvalue W/Cm2"},
        {"Draglabel_0", "&Name of Component "},
        {"Draglabel_1", "  Resistance      m2C/W"},
        {"Draglabel_2", "Material Thickness  mm"},
        {"Draglabel_3", "First"},
        {"Draglabel_4", "Last"},
        {"IndexText", "1"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(Label(name)->text().toStdString(), caption) << name;
    EXPECT_EQ(Find<QPushButton>(1, "VWConComments")->text(), QStringLiteral("Comments"));
    const auto* type = Find<QComboBox>(1, "TypeCombo");
    EXPECT_EQ(type->itemText(0), QStringLiteral("Opaque"));
    EXPECT_EQ(type->itemText(1), QStringLiteral("Transparent"));
    EXPECT_EQ(type->count(), 2);
}

TEST_F(Look, NineInvisibleLabelsStandReadyAsDragImages) {
    StartWithTransparentConstruction();
    for (int row = 0; row < 9; ++row) {
        const QLabel* label = Label(("Label2_" + std::to_string(row)).c_str());
        EXPECT_EQ(label->text().toStdString(), "  Conductivity                    W/m/\xC2\xB0"
                                               "C");
        EXPECT_TRUE(label->isHidden());
    }
}

TEST_F(Look, ConstructionWindowsHaveTheirFixedSize) {
    StartWithTransparentConstruction();
    EXPECT_EQ(Window(1)->parentWidget()->size(), QSize(481, 357)) << "7215 by 5350 twips";
    EXPECT_EQ(Window(1)->minimumSize(), Window(1)->maximumSize());
}

TEST_F(Look, TheListShowsNineRowsOfItsRowHeight) {
    StartWithTransparentConstruction();
    Insert("PLASTER");
    EXPECT_EQ(List(1)->height(), 146) << "2190 twips";
    EXPECT_EQ(List(1)->visualItemRect(List(1)->item(0)).height(), rowHeight);
    EXPECT_EQ(List(1)->viewport()->height() / rowHeight, 9);
}

TEST_F(Look, LinesAreInAFixedPitchFontAndFitTheList) {
    StartWithTransparentConstruction();
    for (int i = 0; i < 15; ++i)
        Insert("PLASTER");
    EXPECT_TRUE(QFontInfo(List(1)->font()).fixedPitch());
    const QFontMetrics metrics(List(1)->font());
    EXPECT_LE(metrics.horizontalAdvance(List(1)->item(0)->text()) + 6,
              List(1)->viewport()->width());
}

TEST_F(Look, NothingIsClippedOrOverlaps) {
    StartWithTransparentConstruction();
    for (QWidget* window :
         {static_cast<QWidget*>(Window(1)), static_cast<QWidget*>(&program->Dialog())}) {
        const std::vector<QWidget*> controls = Controls(*window);
        for (const QWidget* control : controls) {
            EXPECT_TRUE(window->rect().contains(control->geometry()))
                << control->objectName().toStdString();
            for (const QWidget* other : controls)
                EXPECT_FALSE(control < other && control->geometry().intersects(other->geometry()))
                    << control->objectName().toStdString() << " and "
                    << other->objectName().toStdString();
        }
    }
}

TEST_F(Look, CaptionsFitTheirLabels) {
    StartWithTransparentConstruction();
    for (QWidget* window :
         {static_cast<QWidget*>(Window(1)), static_cast<QWidget*>(&program->Dialog())})
        for (QWidget* control : Controls(*window)) {
            const auto* label = qobject_cast<QLabel*>(control);
            if (label == nullptr)
                continue;
            const int needed = label->wordWrap() ? label->heightForWidth(label->width())
                                                 : label->sizeHint().height();
            EXPECT_LE(needed, label->height()) << label->objectName().toStdString();
            EXPECT_TRUE(label->wordWrap() || label->sizeHint().width() <= label->width())
                << label->objectName().toStdString();
        }
}

TEST_F(Look, HeadingsBreakBeforeTheirUnits) {
    StartWithTransparentConstruction();
    const std::pair<QWidget*, const char*> headings[] = {
        {Window(1), "Draglabel_1"},       {Window(1), "Draglabel_2"},
        {&program->Dialog(), "Label1_0"}, {&program->Dialog(), "Label1_1"},
        {&program->Dialog(), "Label1_2"},
    };
    for (const auto& [window, name] : headings) {
        const auto* heading = window->findChild<QLabel*>(QLatin1String(name));
        ASSERT_NE(heading, nullptr) << name;
        const QString text = heading->text();
        const int unit = static_cast<int>(text.lastIndexOf(QLatin1Char(' '))) + 1;
        const QFontMetrics font = heading->fontMetrics();
        EXPECT_LE(font.horizontalAdvance(text.left(unit).trimmed()), heading->width())
            << name << " has no room for its words on the first line";
        EXPECT_GT(font.horizontalAdvance(text.left(unit + 1)), heading->width())
            << name << " has room for the start of its unit on the first line";
        EXPECT_LT(heading->heightForWidth(heading->width()), 3 * font.lineSpacing())
            << name << " takes more than two lines";
    }
}

TEST_F(Look, EveryControlHasAnAccessibleNameOrACaption) {
    StartWithTransparentConstruction();
    const auto isNamed = [](const QWidget& control) {
        if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
            return !button->text().isEmpty() || !button->accessibleName().isEmpty();
        return !control.accessibleName().isEmpty();
    };
    for (QWidget* window :
         {static_cast<QWidget*>(Window(1)), static_cast<QWidget*>(&program->Dialog())}) {
        for (const QWidget* control : Controls(*window)) {
            if (control->focusPolicy() != Qt::NoFocus) {
                EXPECT_TRUE(isNamed(*control)) << control->objectName().toStdString();
            }
        }
        for (const auto* button : window->parentWidget()->findChildren<QToolButton*>())
            EXPECT_TRUE(isNamed(*button)) << button->objectName().toStdString();
    }
}

TEST_F(Look, LabelsWithAValueHaveCaptionAndValueAsAccessibleName) {
    StartWithTransparentConstruction();
    const auto name = [this](const char* label) { return Label(label)->accessibleName(); };
    EXPECT_EQ(name("IndexText"), QStringLiteral("Construction index: 1"));
    EXPECT_EQ(name("Result"), QStringLiteral("Indicative U-value: n/a"));
    EXPECT_EQ(name("ConName"), QStringLiteral("Current layer: "));
    Insert("PLASTER");
    EXPECT_EQ(name("ConName"), QStringLiteral("Current layer: PLASTER"));
    Area().Activate(1);
    Type("100");
    Press(Qt::Key_Return);
    EXPECT_NE(Label("Result")->text(), QStringLiteral("n/a"));
    EXPECT_EQ(name("Result"), QStringLiteral("Indicative U-value: ") + Label("Result")->text());
}

TEST_F(Look, ListsNameTheirColumns) {
    StartWithTransparentConstruction();
    EXPECT_EQ(List(1)->accessibleName(),
              QStringLiteral("Layers: name, resistance in m2C/W, thickness in mm"));
    EXPECT_EQ(Materials()->accessibleName(),
              QStringLiteral("Materials: name, conductivity in W/m C, density in kg/m3, specific "
                             "heat in J/kg C"));
}

TEST_F(Look, TheTabKeyGoesThroughTheControlsInOrder) {
    StartWithTransparentConstruction();
    Find(1, "NameText")->setFocus();
    std::vector<std::string> visited;
    for (int i = 0; i < 5; ++i) {
        visited.push_back(Focus());
        Press(Qt::Key_Tab);
    }
    visited.push_back(Focus());
    EXPECT_THAT(visited, ElementsAre("NameText", "TypeCombo", "Construction", "EditThick",
                                     "AbsorpText", "VWConComments"));
}

TEST_F(Look, TheTabKeyStaysInTheWindow) {
    StartWithTransparentConstruction();
    Choose("NewUValue");
    Find(2, "VWConComments")->setFocus();
    Press(Qt::Key_Tab);
    EXPECT_TRUE(Find(2, "NameText")->hasFocus());
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(Find(2, "VWConComments")->hasFocus());
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(Find(2, "EditThick")->hasFocus()) << "the absorption is hidden";
    Area().Activate(UValueMDI::dialogId);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "MatOption_0");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "UValueList");
}

TEST_F(Look, TooltipsStateTheUnitsAndWhatTheUValueAssumes) {
    StartWithTransparentConstruction();
    const auto tip = [this](const char* name) { return Find(1, name)->toolTip().toStdString(); };
    EXPECT_THAT(tip("EditThick"), testing::HasSubstr("mm"));
    EXPECT_THAT(tip("Construction"), testing::HasSubstr("m2C/W"));
    EXPECT_THAT(tip("Result"),
                testing::AllOf(testing::HasSubstr("W/m2C"), testing::HasSubstr("0.06"),
                               testing::HasSubstr("0.12"), testing::HasSubstr("steady state")));
    EXPECT_THAT(tip("AbsorpText"), testing::Not(testing::HasSubstr("0 to 1")))
        << "any absorption is taken";
    EXPECT_THAT(tip("Construction"), testing::Not(testing::HasSubstr("outside")))
        << "files do not say on which side they begin";
    EXPECT_THAT(Materials()->toolTip().toStdString(),
                testing::AllOf(testing::HasSubstr("W/m/\xC2\xB0"
                                                  "C"),
                               testing::HasSubstr("kg/m3"),
                               testing::HasSubstr("J/kg/\xC2\xB0"
                                                  "C")));
}

TEST_F(Look, NamesOfLayersAreNoMarkup) {
    StartWithTransparentConstruction();
    Insert("PLASTER");
    TheProject().constructions[1].layers.Edit(1).name = "<b>A&B</b>";
    program->ShowProject();
    EXPECT_EQ(Label("ConName")->textFormat(), Qt::PlainText);
    EXPECT_EQ(TextOf(1, "ConName"), "<b>A&B</b>");
}

TEST_F(Look, CommentsAreShownInTheirBox) {
    Start(folder.Write("a.con", "!MATERIALS FILE = '" + library
                                    + "'\r\n!CONSTRUCTION 'A' * seen on site\r\n!END\r\n"));
    InBox([](QWidget& box) {
        EXPECT_EQ(box.objectName(), QStringLiteral("ConCommentBox"));
        EXPECT_TRUE(box.isModal());
        EXPECT_EQ(box.parentWidget(), nullptr) << "it has no owner window";
    });
    Find<QPushButton>(1, "VWConComments")->click();
    EXPECT_EQ(boxes.size(), 1U);
}

} // namespace
} // namespace strativo
