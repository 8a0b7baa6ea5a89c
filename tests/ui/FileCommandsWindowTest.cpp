#include "MainWindowTest.h"
#include "ui/QtPrompts.h"
#include "ui/WindowArea.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QProgressBar>
#include <QUrl>

#include <chrono>
#include <thread>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Opening, dropping and saving of files, and what the status bar says meanwhile.
class FileCommandsInWindow : public MainWindowTest {
protected:
    std::string Write(const std::string& name, const std::vector<std::string>& constructions) {
        std::string bytes = "!MATERIALS FILE = '" + library + "'\r\n";
        for (const std::string& construction : constructions)
            bytes += "!CONSTRUCTION '" + construction
                     + "'\r\n!TYPE OPAQUE\r\n!PARTS\r\n_ 1 = 12 0.105 0\r\n!END\r\n";
        return folder.Write(name, bytes + "!EOF\r\n");
    }

    bool DropFiles(const std::vector<std::string>& paths, QWidget* on) {
        QList<QUrl> urls;
        for (const std::string& path : paths)
            urls.append(QUrl::fromLocalFile(QString::fromStdString(path)));
        return DropUrls(urls, on);
    }
    static bool DropUrls(const QList<QUrl>& urls, QWidget* on) {
        auto* data = new QMimeData;
        data->setUrls(urls);
        const bool welcome = Drop(data, on, {5, 5});
        QCoreApplication::processEvents(); // the file is read after the drop was answered
        return welcome;
    }
    /// The drop is answered, and its file not read yet.
    bool DropUnread(const std::string& path) {
        auto* data = new QMimeData;
        data->setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
        return Drop(data, &Area(), {5, 5});
    }
    std::string Path(const char* name) { return (folder.Path() / name).string(); }
};

TEST_F(FileCommandsInWindow, TheCommandLineIsOnePathBlanksIncluded) {
    const std::string file = Write("a wall of ours.con", {"North", "South"});
    Start(file);
    EXPECT_EQ(TheProject().constructionFile, file);
    EXPECT_EQ(TheProject().constructionCount, 2);
    EXPECT_EQ(Area().Active(), 2);
    EXPECT_EQ(TextOf(2, "NameText"), "South");
    EXPECT_EQ(TextOf(2, "Result"), "3.28");
    EXPECT_TRUE(List(2)->hasFocus());
    EXPECT_FALSE(IsEnabled("SaveProject"));
    EXPECT_EQ(List(1)->currentRow(), 0);
    EXPECT_THAT(MarksShown(1), IsEmpty());
}

TEST_F(FileCommandsInWindow, ACommandLineThatCannotBeReadIsReported) {
    Answer("OK");
    Start(Path("missing.con"));
    EXPECT_EQ(LastBox().text, "Command line error\nConstruction file (p) is missing.");
    EXPECT_EQ(Area().Active(), UValueMDI::dialogId);
    EXPECT_EQ(StatusText("FileStatus"), "Untitled");
}

TEST_F(FileCommandsInWindow, OpenPromptsForAConstructionFile) {
    Start();
    Choose("NewUValue");
    const std::string file = Write("house.con", {"Roof"});
    InBox([this, file](QWidget& box) {
        auto* prompt = qobject_cast<QFileDialog*>(&box);
        EXPECT_EQ(prompt->windowTitle(), QStringLiteral("Open Construction file"));
        EXPECT_EQ(prompt->nameFilters(), QStringList(QStringLiteral("Construction Files (*.con)")));
        EXPECT_EQ(prompt->directory().path().toStdString(), folder.Path().string());
        auto* name = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        name->setText(QString::fromStdString(file));
        QTest::keyClick(name, Qt::Key_Return);
    });
    Choose("OpenProject");
    EXPECT_EQ(TheProject().constructionFile, file);
    EXPECT_EQ(TextOf(1, "NameText"), "Roof");
    EXPECT_THAT(Area().Windows(), ElementsAre(UValueMDI::dialogId, 1));
}

TEST_F(FileCommandsInWindow, ACancelledOpenHasAlreadyEmptiedTheProject) {
    Start(Write("house.con", {"Roof"}));
    CancelPrompt();
    Choose("OpenProject");
    EXPECT_THAT(Area().Windows(), ElementsAre(UValueMDI::dialogId));
    EXPECT_EQ(TheProject().constructionFile, "");
    EXPECT_EQ(Area().Active(), UValueMDI::dialogId);
    EXPECT_EQ(Materials()->count(), 9);
}

TEST_F(FileCommandsInWindow, AFileThatBreaksOffLeavesItsFragmentUntitledAndActive) {
    Start(Write("house.con", {"Roof"}));
    ChooseFile(folder.Write("bad.con", "!MATERIALS FILE = '" + library
                                           + "'\r\n!CONSTRUCTION 'First'\r\n!END\r\n"
                                             "!CONSTRUCTION Second\r\n!END\r\n"));
    Answer("OK");
    Choose("OpenProject");
    EXPECT_EQ(LastBox().text, "Construction file (p) is incorrect version");
    EXPECT_EQ(TheProject().constructionFile, "");
    ASSERT_GT(Area().Active(), 0);
    EXPECT_EQ(Area().Active(), TheProject().currentConstruction);
    EXPECT_EQ(TextOf(1, "NameText"), "First");
}

TEST_F(FileCommandsInWindow, SaveAsAppendsTheExtensionOnlyToANameWithoutOne) {
    Start(Write("house.con", {"Roof"}));
    ChooseFile(Path("plain"));
    Choose("SaveProjectAs");
    EXPECT_EQ(TheProject().constructionFile, Path("plain.con"));
    ChooseFile(Path("other.txt"));
    Choose("SaveProjectAs");
    EXPECT_EQ(TheProject().constructionFile, Path("other.txt"));
    CancelPrompt();
    Choose("SaveProjectAs");
    EXPECT_EQ(TheProject().constructionFile, Path("other.txt"));
    EXPECT_EQ(folder.Read("plain.con"), folder.Read("other.txt"));
}

TEST_F(FileCommandsInWindow, SaveAsAsksBeforeItOverwrites) {
    Start(Write("house.con", {"Roof"}));
    folder.Write("taken.con", "mine");
    ChooseFile(Path("taken.con"));
    Answer("No");
    Choose("SaveProjectAs");
    EXPECT_EQ(boxes.size(), 2U);
    EXPECT_EQ(folder.Read("taken.con"), "mine");
    EXPECT_EQ(TheProject().constructionFile, Path("house.con"));
}

TEST_F(FileCommandsInWindow, ADropIsAnsweredBeforeItsFileIsRead) {
    Start();
    EXPECT_TRUE(DropUnread(Path("missing.con")));
    EXPECT_TRUE(boxes.empty()) << "the other program must not wait for a message box";
    Answer("OK");
    QCoreApplication::processEvents();
    EXPECT_EQ(boxes.size(), 1U);
}

TEST_F(FileCommandsInWindow, AFileIsOpenedWhereverItIsDropped) {
    Start();
    Choose("NewUValue");
    const std::string file = Write("a w\xC3\xA4nd.con", {"Roof"});
    QWidget* places[] = {&Area(), List(1)->viewport(), Find(1, "NameText"), Materials()->viewport(),
                         program.get()};
    EXPECT_TRUE(DropFiles({file}, places[1]));
    EXPECT_EQ(TheProject().constructionFile, file);
    EXPECT_EQ(TextOf(1, "NameText"), "Roof");
    for (QWidget* place : {static_cast<QWidget*>(&Area()), Find(1, "NameText"),
                           Materials()->viewport(), static_cast<QWidget*>(program.get())}) {
        TheProject().constructionFile.clear();
        EXPECT_TRUE(DropFiles({file}, place->isVisible() ? place : &Area()));
        EXPECT_EQ(TheProject().constructionFile, file);
    }
}

TEST_F(FileCommandsInWindow, CaptionsNeverNameTheFile) {
    Start(Write("house.con", {"Roof"}));
    EXPECT_EQ(program->windowTitle(), QStringLiteral("Brevan Strativo V2.1"));
    EXPECT_EQ(Area().Caption(1), QStringLiteral("Construction 1"));
}

TEST_F(FileCommandsInWindow, TheLayerClipboardSurvivesOpeningAFile) {
    Start();
    Choose("NewUValue");
    Insert("PLASTER");
    EXPECT_TRUE(DropFiles({Write("house.con", {"Roof"})}, &Area()));
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(LayersShown(1), ElementsAre("FACE BRICK", "PLASTER"));
}

TEST_F(FileCommandsInWindow, ADropAsksNothing) {
    Start();
    Choose("NewUValue");
    Insert("PLASTER");
    EXPECT_TRUE(DropFiles({Write("house.con", {"Roof"})}, &Area()));
    EXPECT_THAT(boxes, IsEmpty());
    EXPECT_EQ(TextOf(1, "NameText"), "Roof");
    EXPECT_FALSE(TheProject().changed);
}

TEST_F(FileCommandsInWindow, OnlyOneLocalFileIsWelcome) {
    Start();
    Choose("NewUValue");
    const std::string file = Write("house.con", {"Roof"});
    EXPECT_FALSE(DropFiles({file, file}, &Area()));
    EXPECT_FALSE(DropFiles({folder.Path().string()}, &Area()));
    EXPECT_FALSE(DropUrls({QUrl(QStringLiteral("https://example.org/house.con"))}, &Area()));
    EXPECT_FALSE(DropUrls({QUrl(QStringLiteral("file://elsewhere/house.con"))}, &Area()));
    EXPECT_FALSE(DropUrls({}, &Area()));
    EXPECT_EQ(TheProject().constructionCount, 1);
    EXPECT_EQ(TextOf(1, "NameText"), "Construction 1");
}

TEST_F(FileCommandsInWindow, NothingCanBeDroppedWhileABoxIsOpen) {
    Start();
    const std::string file = Write("house.con", {"Roof"});
    InBox([this, file](QWidget&) { EXPECT_FALSE(DropFiles({file}, program.get())); });
    Choose("HelpAbout");
    EXPECT_EQ(TheProject().constructionCount, 0);
}

TEST_F(FileCommandsInWindow, ADropIsRefusedWhileAnotherWaits) {
    Start();
    EXPECT_TRUE(DropUnread(Path("missing.con")));
    EXPECT_FALSE(DropUnread(Write("house.con", {"Roof"})));
    Answer("OK");
    QCoreApplication::processEvents();
    EXPECT_EQ(boxes.size(), 1U);
    EXPECT_EQ(TheProject().constructionCount, 0);
    EXPECT_TRUE(DropFiles({Path("house.con")}, &Area()));
    EXPECT_EQ(TheProject().constructionCount, 1);
}

TEST_F(FileCommandsInWindow, AFileDroppedRightBeforeABoxOpensIsReadAfterIt) {
    Start();
    EXPECT_TRUE(DropUnread(Write("house.con", {"Roof"})));
    InBox([this](QWidget&) {
        QCoreApplication::processEvents();
        EXPECT_EQ(TheProject().constructionCount, 0);
    });
    Choose("HelpAbout");
    QCoreApplication::processEvents();
    EXPECT_EQ(TheProject().constructionCount, 1);
}

TEST_F(FileCommandsInWindow, AFailedDropHasRemovedTheOldConstructions) {
    Start(Write("house.con", {"Roof"}));
    Answer("OK");
    EXPECT_TRUE(DropFiles({folder.Write("bad.con", "!CONSTRUCTION x\r\n")}, &Area()));
    EXPECT_EQ(LastBox().text, "Command line error\nConstruction file (p) is incorrect version");
    EXPECT_EQ(program->ConstructionWindow(1) == nullptr, !InUse(TheProject(), 1));
    EXPECT_NE(Area().Active(), WindowArea::noWindow);
}

TEST_F(FileCommandsInWindow, TheStatusBarNamesTheFileTheChangesAndTheLibraries) {
    Start();
    EXPECT_EQ(StatusText("FileStatus"), "Untitled");
    EXPECT_EQ(StatusText("ChangedStatus"), "");
    EXPECT_EQ(StatusText("LibraryStatus"),
              "Standard library: none loaded   User library: none loaded");
    Choose("NewUValue");
    EXPECT_EQ(StatusText("LibraryStatus"),
              "Standard library: stdmat.lby   User library: none loaded");
    Insert("PLASTER");
    EXPECT_EQ(StatusText("ChangedStatus"), "* unsaved changes");
    TheProject().constructions[1].layers.Edit(1).thickness = 13;
    ChooseFile(Path("wall.con"));
    Choose("SaveProjectAs");
    EXPECT_EQ(StatusText("FileStatus"), "wall.con");
    EXPECT_EQ(StatusText("ChangedStatus"), "");
    ChooseFile(folder.Write("user.lby", "12* HEMP,0.04 40 1600\r\n"));
    Choose("LoadMaterials");
    EXPECT_EQ(StatusText("LibraryStatus"), "Standard library: stdmat.lby   User library: user.lby");
    EXPECT_EQ(
        program->findChild<QWidget*>(QStringLiteral("LibraryStatus"))->toolTip().toStdString(),
        "Standard library: " + library + "   User library: " + Path("user.lby"));
}

TEST_F(FileCommandsInWindow, ALongFileNameDoesNotWidenTheMainWindow) {
    Start();
    const int before = program->minimumSizeHint().width();
    const std::string name = std::string(200, 'w') + ".con";
    EXPECT_TRUE(DropFiles({Write(name, {"Roof"})}, &Area()));
    EXPECT_EQ(StatusText("FileStatus"), name);
    EXPECT_EQ(program->minimumSizeHint().width(), before);
    EXPECT_EQ(program->width(), 1080);
}

TEST_F(FileCommandsInWindow, ProgressIsShownOnlyAfterHalfASecondAndTheBusyPointerSooner) {
    Start();
    auto* bar = program->findChild<QProgressBar*>(QStringLiteral("Progress"));
    program->ShowProgress(10, 100);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    std::this_thread::sleep_for(std::chrono::milliseconds(110));
    program->ShowProgress(15, 100);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    std::this_thread::sleep_for(std::chrono::milliseconds(400));
    program->ShowProgress(20, 100);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->value(), 200);
    program->ShowProgress(100, 100);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(FileCommandsInWindow, ABoxDuringReadingHasAnOrdinaryPointer) {
    Start();
    program->ShowProgress(10, 100);
    std::this_thread::sleep_for(std::chrono::milliseconds(110));
    program->ShowProgress(20, 100);
    InBox([](QWidget&) { EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor); });
    QtPrompts prompts(*program);
    prompts.ShowMessage({"text", ""});
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    program->ShowProgress(100, 100);
}

} // namespace
} // namespace strativo
