#include "edit/Saying.h"

#include "MainWindowTest.h"
#include "ui/UValue.h"
#include "ui/WindowArea.h"

#include <QMenuBar>
#include <QStatusBar>
#include <QStatusTipEvent>

namespace strativo {
namespace {

/// What the status bar tells for some seconds.
class SaidInStatusBar : public MainWindowTest {
protected:
    void Do(const char* said) {
        Say(TheProject(), said);
        program->ShowProject();
    }
    void Tip(const QString& text) {
        QStatusTipEvent tip(text);
        QApplication::sendEvent(program->menuBar(), &tip);
    }
    std::string Said() const { return program->statusBar()->currentMessage().toStdString(); }
    QTimer& Telling() const {
        return *program->statusBar()->findChild<QTimer*>(QStringLiteral("Telling"));
    }
};

TEST_F(SaidInStatusBar, IsToldOnceAndForSomeSeconds) {
    Start();
    Telling().setInterval(300);
    Do("3 layers cut");
    EXPECT_EQ(Said(), "3 layers cut");
    EXPECT_EQ(TheProject().said, "");
    program->ShowProject();
    EXPECT_EQ(Said(), "3 layers cut");
    EXPECT_TRUE(QTest::qWaitFor([this] { return Said().empty(); }));
}

TEST_F(SaidInStatusBar, LastsTenSeconds) {
    Start();
    Do("3 layers cut");
    EXPECT_TRUE(Telling().isActive());
    EXPECT_EQ(Telling().interval(), 10000);
}

TEST_F(SaidInStatusBar, TheLatestIsTold) {
    Start();
    Do("3 layers cut");
    Do("6 glass types imported");
    EXPECT_EQ(Said(), "6 glass types imported");
}

TEST_F(SaidInStatusBar, ComesBackAfterTheTipOfAMenu) {
    Start();
    Do("3 layers cut");
    Tip(QStringLiteral("Flat roof"));
    EXPECT_EQ(Said(), "Flat roof");
    Tip(QString());
    EXPECT_EQ(Said(), "3 layers cut");
}

TEST_F(SaidInStatusBar, DoesNotTakeAwayATip) {
    Start();
    Tip(QStringLiteral("Flat roof"));
    Do("3 layers cut");
    EXPECT_EQ(Said(), "Flat roof");
    Tip(QString());
    EXPECT_EQ(Said(), "3 layers cut");
}

TEST_F(SaidInStatusBar, ATipIsNotCutShort) {
    Start();
    Telling().setInterval(100);
    Do("3 layers cut");
    Tip(QStringLiteral("Flat roof"));
    QTest::qWait(300);
    EXPECT_EQ(Said(), "Flat roof");
    Tip(QString());
    EXPECT_EQ(Said(), "");
}

TEST_F(SaidInStatusBar, AnImportSaysWhatItBrought) {
    Start();
    ChooseFile(folder.Write("glass.con", "!WINDOW = 'A'\n!END\n!WINDOW = 'B'\n!END\n"));
    Choose("ImportGlass");
    EXPECT_EQ(Said(), "2 glass types imported");
}

TEST_F(SaidInStatusBar, TheCloseBoxOfAConstructionNamesWhatClosesIt) {
    Start();
    Choose("NewUValue");
    auto* frame = Window(1)->parentWidget();
    QTest::mouseClick(frame->findChild<QWidget*>(QStringLiteral("CloseButton")), Qt::LeftButton);
    EXPECT_TRUE(Area().Has(1));
    EXPECT_EQ(Said(),
              "This button closes no construction: Remove construction in the File menu does");
}

TEST_F(SaidInStatusBar, AThicknessThatTheFileHoldsOtherwiseIsNamed) {
    Start();
    Choose("NewUValue");
    Insert("PLASTER");
    Area().Activate(1);
    TakeKeyboard(*program);
    Find(1, "EditThick")->setFocus();
    Type("12.5");
    Press(Qt::Key_Return);
    EXPECT_EQ(Said(), "12.5 mm will be 13 mm in the construction file");
}

TEST_F(SaidInStatusBar, ALayerTooManyIsNamed) {
    Start();
    Choose("NewUValue");
    for (int layer = 0; layer < 16; ++layer)
        Insert("PLASTER");
    EXPECT_EQ(LayersShown(1).size(), 15U);
    EXPECT_EQ(Said(), "1 layer not inserted: a construction has at most 15");
}

} // namespace
} // namespace strativo
