#include "edit/Saying.h"

#include "MainWindowTest.h"
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
    EXPECT_GT(Telling().remainingTime(), 9000);
    EXPECT_LE(Telling().remainingTime(), 10000);
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

} // namespace
} // namespace strativo
