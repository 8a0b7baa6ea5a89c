#include "ui/SectionWindow.h"

#include "MainWindowTest.h"
#include "ui/Appearance.h"
#include "ui/DrawingView.h"
#include "ui/ElidedLabel.h"
#include "ui/Printing.h"
#include "ui/StatusBar.h"
#include "ui/WindowArea.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

namespace strativo {
namespace {

using testing::HasSubstr;
using testing::Not;

class Section : public MainWindowTest {
protected:
    /// One construction with a layer of brick, and its section.
    void Open() {
        Start();
        Choose("NewUValue");
        Insert("FACE BRICK");
        Press(Qt::Key_F9);
        ASSERT_NE(Shown(), nullptr);
        ASSERT_TRUE(Shown()->isVisible());
    }
    void SetThickness(int slot, double thickness) {
        TheProject().constructions[1].layers.Edit(slot).thickness = thickness;
    }
    SectionWindow* Shown() const {
        return program->findChild<SectionWindow*>(QStringLiteral("SectionWindow"));
    }
    template <class Control>
    Control* In(const char* name) const {
        return Shown()->findChild<Control*>(QLatin1String(name));
    }
    std::string Figures() const {
        return In<QPlainTextEdit>("Figures")->toPlainText().toStdString();
    }
    std::string Heading() const { return In<QLabel>("Heading")->text().toStdString(); }
    bool Draws(const std::string& text) const {
        for (const DrawnShape& shape : In<DrawingView>("Section")->Shown().shapes)
            if (const auto* drawn = std::get_if<DrawnText>(&shape); drawn && drawn->utf8 == text)
                return true;
        return false;
    }
    void EnterIn(const char* field, const char* text) const {
        In<QLineEdit>(field)->setText(QLatin1String(text));
    }
};

TEST_F(Section, IsAWindowOfItsOwnThatLeavesTheMainWindowAsItIs) {
    Start();
    Choose("NewUValue");
    Insert("FACE BRICK");
    const int current = TheProject().currentConstruction;
    const int active = Area().Active();
    const bool cut = IsEnabled("Edit_Cut");
    const bool save = IsEnabled("SaveProject");
    Press(Qt::Key_F9);
    ASSERT_NE(Shown(), nullptr);
    EXPECT_TRUE(Shown()->isWindow());
    EXPECT_EQ(Shown()->parentWidget(), program.get());
    EXPECT_FALSE(Shown()->isModal());
    EXPECT_EQ(TheProject().currentConstruction, current);
    EXPECT_EQ(Area().Active(), active);
    EXPECT_EQ(IsEnabled("Edit_Cut"), cut);
    EXPECT_EQ(IsEnabled("SaveProject"), save);
}

TEST_F(Section, ShowsTheCurrentConstructionAndItsFigures) {
    Open();
    EXPECT_THAT(Heading(), HasSubstr("Construction 1"));
    EXPECT_THAT(Heading(), HasSubstr("(Opaque)"));
    SetThickness(1, 105);
    Shown()->ShowConstruction();
    EXPECT_THAT(Figures(), HasSubstr("    1 FACE BRICK                       105.0  0.125"));
    EXPECT_THAT(In<QLabel>("Note")->text().toStdString(),
                HasSubstr("Cavities have the fixed resistances"));
    EXPECT_TRUE(Draws("Inside air 20.0 °C"));
}

TEST_F(Section, FollowsEveryEditAtOnce) {
    Open();
    SetThickness(1, 105);
    TakeKeyboard(*program);
    Insert("PLASTER");
    EXPECT_THAT(Figures(), HasSubstr("not available: layer 1: zero thickness"));
    auto* thickness = Find<QLineEdit>(1, "EditThick");
    thickness->setFocus();
    thickness->selectAll();
    Type("215");
    QTest::keyClick(thickness, Qt::Key_Return);
    EXPECT_THAT(Figures(), HasSubstr("    1 PLASTER                          215.0"));
    Choose("NewUValue");
    EXPECT_THAT(Heading(), HasSubstr("Construction 2"));
    EXPECT_THAT(Figures(), HasSubstr("not available: no layers"));
    Area().Activate(1);
    EXPECT_THAT(Heading(), HasSubstr("Construction 1"));
}

TEST_F(Section, OfATransparentConstructionSaysWhyItHasNoFigures) {
    Open();
    Find<QComboBox>(1, "TypeCombo")->setFocus();
    auto* type = Find<QComboBox>(1, "TypeCombo");
    QTest::keyClick(type, Qt::Key_Down);
    ASSERT_EQ(TheProject().constructions[1].type, transparentType);
    EXPECT_THAT(Figures(), HasSubstr("not available: transparent construction"));
    EXPECT_TRUE(Draws("Not available: transparent construction"));
    EXPECT_TRUE(In<QPushButton>("Print")->isEnabled());
}

TEST_F(Section, TakesFlowFilmsTemperaturesAndSide) {
    Open();
    SetThickness(1, 105);
    In<QComboBox>("Flow")->setCurrentIndex(2);
    EXPECT_THAT(Figures(), HasSubstr("Downward, inside 20.0, outside 0.0"));
    EXPECT_EQ(In<QLineEdit>("Rsi")->placeholderText(), QStringLiteral("0.17"));
    EnterIn("Outside", "-5");
    EnterIn("Inside", "22.5");
    EnterIn("Rsi", "0.25");
    EXPECT_THAT(Figures(), HasSubstr("Downward, inside 22.5, outside -5.0"));
    EXPECT_THAT(Figures(), HasSubstr("horizontal    0.25   0.04"));
    EnterIn("Rsi", "");
    EXPECT_THAT(Figures(), HasSubstr("horizontal    0.13   0.04"));
    EnterIn("Outside", "cold");
    EXPECT_THAT(Figures(), HasSubstr("outside -5.0")) << "what is no number changes nothing";
    EnterIn("Outside", "");
    EXPECT_THAT(Figures(), HasSubstr("outside 0.0"));
    TakeKeyboard(*program);
    Insert("PLASTER");
    SetThickness(1, 13);
    In<QComboBox>("FirstLayer")->setCurrentIndex(1);
    const std::string figures = Figures();
    EXPECT_LT(figures.find("    2 "), figures.find("    1 "));
}

TEST_F(Section, WithoutAConstructionIsEmpty) {
    Start();
    Press(Qt::Key_F9);
    ASSERT_NE(Shown(), nullptr);
    EXPECT_EQ(Heading(), "No construction");
    EXPECT_EQ(Figures(), "");
    EXPECT_FALSE(In<QPushButton>("Print")->isEnabled());
    EXPECT_FALSE(In<QPushButton>("Save")->isEnabled());
}

TEST_F(Section, SavesItsDrawingAsSvg) {
    Open();
    ChooseFile((folder.Path() / "wall.svg").string());
    QTest::mouseClick(In<QPushButton>("Save"), Qt::LeftButton);
    const std::string svg = folder.Read("wall.svg");
    EXPECT_THAT(svg, HasSubstr("<svg xmlns=\"http://www.w3.org/2000/svg\""));
    EXPECT_THAT(svg, HasSubstr("</svg>"));
}

TEST_F(Section, AsksInFrontOfItself) {
    Open();
    TakeKeyboard(*Shown());
    const QWidget* asking = nullptr;
    InBox([&](QWidget& box) {
        asking = box.parentWidget();
        dynamic_cast<QDialog&>(box).reject();
    });
    QTest::mouseClick(In<QPushButton>("Save"), Qt::LeftButton);
    EXPECT_EQ(asking, Shown());
    TakeKeyboard(*program);
    InBox([&](QWidget& box) {
        asking = box.parentWidget();
        dynamic_cast<QDialog&>(box).reject();
    });
    Press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(asking, program.get());
}

TEST_F(Section, SavesTheProjectByKey) {
    Open();
    SetThickness(1, 105);
    const std::string file = (folder.Path() / "wall.con").string();
    TakeKeyboard(*Shown());
    ChooseFile(file);
    QTest::keyClick(Shown(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(folder.Read("wall.con"), HasSubstr("FACE BRICK"));
    EXPECT_EQ(TheProject().constructionFile, file);
    TakeKeyboard(*Shown());
    QTest::keyClick(Shown(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(TheProject().constructionCount, 0);
    ChooseFile(file);
    QTest::keyClick(Shown(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(TheProject().constructionCount, 1);
}

TEST_F(Section, IsPrintedByKeyWhateverHasTheFocus) {
    Open();
    for (const char* focus : {"Flow", "Inside", "Figures"}) {
        TakeKeyboard(*Shown());
        In<QWidget>(focus)->setFocus();
        bool asked = false;
        InBox([&](QWidget& box) {
            asked = true;
            dynamic_cast<QDialog&>(box).reject();
        });
        QTest::keyClick(In<QWidget>(focus), Qt::Key_P, Qt::ControlModifier);
        EXPECT_TRUE(asked) << focus;
    }
}

TEST_F(Section, PrintsAPage) {
    Open();
    SetThickness(1, 105);
    Shown()->ShowConstruction();
    const QString file = QString::fromStdString((folder.Path() / "wall.pdf").string());
    Shown()->Print(file);
    EXPECT_THAT(folder.Read("wall.pdf"), testing::StartsWith("%PDF-"));
    EXPECT_THAT(boxes, testing::IsEmpty());
}

TEST_F(Section, SaysWhyItCannotBePrinted) {
    Open();
    Answer("OK");
    Shown()->Print(QString::fromStdString((folder.Path() / "missing/wall.pdf").string()));
    EXPECT_THAT(LastBox().text, HasSubstr("The section cannot be printed"));
}

TEST_F(Section, SaysThatTheFileOfThePrintersBoxCannotBeWritten) {
    Open();
    Answer("OK");
    QTimer::singleShot(0, [this] {
        auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        auto* file = box->findChild<QLineEdit*>(QStringLiteral("filename"));
        file->setText(QString::fromStdString((folder.Path() / "missing/wall.pdf").string()));
        box->accept();
    });
    QTest::mouseClick(In<QPushButton>("Print"), Qt::LeftButton);
    EXPECT_THAT(LastBox().text, HasSubstr("The section cannot be printed"));
}

TEST_F(Section, IsPrintedUnderANameThatIsNoPath) {
    EXPECT_EQ(DocumentName(QStringLiteral("Construction 1  Wall 1/2 brick  (Opaque)")),
              QStringLiteral("Construction 1 Wall 1-2 brick (Opaque)"));
}

TEST_F(Section, IsPrintedUnderANameThatAFileCanHave) {
    const QString name = DocumentName(QString(200, QChar(0xC4)) + QStringLiteral(" wall"));
    EXPECT_TRUE(name.startsWith(QString(60, QChar(0xC4)))) << name.toStdString();
    EXPECT_TRUE(name.endsWith(QStringLiteral(" wall"))) << name.toStdString();
    EXPECT_LE(QFile::encodeName(name + QStringLiteral(".pdf")).size(), 255);
}

TEST_F(Section, ShowsALongNameWithItsMiddleLeftOut) {
    Open();
    TheProject().constructions[1].name = std::string(300, 'x');
    program->ShowProject();
    auto* heading = In<QLabel>("Heading");
    EXPECT_GT(Shown()->width(), heading->width());
    ElidedLabel same(1000, Shown());
    same.setFont(heading->font());
    same.setText(heading->text());
    same.resize(heading->size());
    EXPECT_TRUE(heading->text().endsWith(QStringLiteral("outside to inside")));
    EXPECT_EQ(heading->grab().toImage(), same.grab().toImage());
}

TEST_F(Section, PrintsALongNameInSeveralLines) {
    Open();
    const std::string pdf = (folder.Path() / "wall.pdf").string();
    TheProject().constructions[1].name =
        "Wall " + std::string(60, 'x') + ' ' + std::string(60, 'y') + " last";
    program->ShowProject();
    Shown()->Print(QString::fromStdString(pdf));
    if (std::system("command -v pdftotext > which.txt 2>&1") != 0)
        GTEST_SKIP() << "pdftotext is not installed";
    ASSERT_EQ(std::system(("pdftotext -layout " + pdf + " wall.txt").c_str()), 0);
    EXPECT_THAT(folder.Read("wall.txt"), HasSubstr("last (Opaque)"));
}

TEST_F(Section, IsSavedWhereTheConstructionFileIsUnderANameOfItsOwn) {
    Open();
    TheProject().constructions[1].name = "Wall 1/2";
    std::filesystem::create_directory(folder.Path() / "house");
    TheProject().constructionFile = (folder.Path() / "house/house.con").string();
    program->ShowProject();
    InBox([](QWidget& box) {
        auto& prompt = dynamic_cast<QFileDialog&>(box);
        EXPECT_EQ(prompt.directory().dirName(), QStringLiteral("house"));
        EXPECT_EQ(prompt.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
                  QStringLiteral("Construction 1 Wall 1-2.svg"));
        static_cast<QDialog&>(prompt).accept();
    });
    In<QPushButton>("Save")->click();
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "house/Construction 1 Wall 1-2.svg"));
    auto* status = program->findChild<StatusBar*>();
    EXPECT_THAT(status->currentMessage().toStdString(), HasSubstr("Construction 1 Wall 1-2.svg"));
}

TEST_F(Section, MarksAnUnusableNumberReadablyInADarkPaletteToo) {
    QPalette dark(QColor(53, 53, 53));
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    QApplication::setPalette(dark);
    Open();
    EnterIn("Rsi", "many");
    const QPalette marked = In<QLineEdit>("Rsi")->palette();
    const QColor text = marked.color(QPalette::Text);
    QApplication::setPalette(QPalette());
    EXPECT_NE(text, dark.color(QPalette::Text));
    EXPECT_EQ(Readable(text, dark.color(QPalette::Base)), text);
}

TEST_F(Section, IsClosedByEscapeAndOpensAgainWithItsConditions) {
    Open();
    SetThickness(1, 105);
    EnterIn("Inside", "18");
    QTest::keyClick(Shown(), Qt::Key_Escape);
    EXPECT_FALSE(Shown()->isVisible());
    TakeKeyboard(*program);
    Press(Qt::Key_F9);
    EXPECT_TRUE(Shown()->isVisible());
    EXPECT_THAT(Figures(), HasSubstr("inside 18.0"));
}

TEST_F(Section, NamesItsControlsForThoseWhoCannotSeeThem) {
    Open();
    for (const char* name :
         {"Flow", "FirstLayer", "Inside", "Outside", "Rsi", "Rse", "Section", "Figures"})
        EXPECT_FALSE(In<QWidget>(name)->accessibleName().isEmpty()) << name;
    EXPECT_FALSE(In<QWidget>("Section")->accessibleDescription().isEmpty());
}

} // namespace
} // namespace strativo
