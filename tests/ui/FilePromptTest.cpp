#include "MainWindowTest.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QListView>

namespace strativo {
namespace {

using testing::HasSubstr;

class FilePrompts : public MainWindowTest {
protected:
    /// Looks where the next prompt starts and cancels it.
    void ExpectFolder(const std::string& expected) {
        InBox([expected](QWidget& box) {
            const auto* prompt = qobject_cast<QFileDialog*>(&box);
            ASSERT_NE(prompt, nullptr);
            EXPECT_EQ(prompt->directory().absolutePath().toStdString(), expected);
        });
    }
    static QStringList Listed(const QListView& list) {
        QStringList names;
        for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row)
            names.append(list.model()->index(row, 0, list.rootIndex()).data().toString());
        return names;
    }
    std::string Path(const char* name) { return (folder.Path() / name).string(); }
};

TEST_F(FilePrompts, StartInTheWorkingDirectoryAtFirst) {
    Start();
    ExpectFolder(folder.Path().string());
    Choose("OpenProject");
}

TEST_F(FilePrompts, StartInTheFolderUsedLast) {
    Start();
    Choose("NewUValue");
    ChooseFile(folder.Write("mine/user.lby", "12* HEMP,0.04 40 1600\r\n"));
    Choose("LoadMaterials");
    ExpectFolder(Path("mine"));
    Choose("OpenProject");
}

TEST_F(FilePrompts, StartInTheFolderOfTheConstructionFileAndOfTheLibrary) {
    Start(folder.Write("house/a.con", "!MATERIALS FILE = '" + library
                                          + "'\r\n"
                                            "!CONSTRUCTION 'A'\r\n!END\r\n"));
    ChooseFile(folder.Write("mine/user.lby", "12* HEMP,0.04 40 1600\r\n"));
    Choose("LoadMaterials");
    ExpectFolder(Path("mine"));
    Choose("LoadMaterials");
    ExpectFolder(Path("library"));
    Choose("LoadStandard");
    ExpectFolder(Path("house"));
    Choose("OpenProject");
    ExpectFolder(Path("house"));
    Choose("OpenProject");
}

TEST_F(FilePrompts, ProposeTheNameOfTheFileToSaveAs) {
    Start(folder.Write("house/a.con", "!MATERIALS FILE = '" + library + "'\r\n"));
    InBox([this](QWidget& box) {
        const auto* name = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(name, nullptr);
        EXPECT_EQ(name->text(), QStringLiteral("a.con"));
        EXPECT_EQ(qobject_cast<QFileDialog*>(&box)->directory().absolutePath().toStdString(),
                  Path("house"));
    });
    Choose("SaveProjectAs");
}

TEST_F(FilePrompts, MatchLibrariesWhateverTheirLetterCase) {
    Start();
    Choose("NewUValue");
    folder.Write("library/notes.txt", "mine");
    folder.Write("library/UPPER.LBY", "1'WOOD' 0.12 500 1600\r\n");
    InBox([](QWidget& box) {
        auto* prompt = qobject_cast<QFileDialog*>(&box);
        EXPECT_EQ(prompt->nameFilters(), QStringList(QStringLiteral("Material Files (*.lby)")));
        EXPECT_EQ(prompt->fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(prompt->acceptMode(), QFileDialog::AcceptOpen);
        const auto* list = box.findChild<QListView*>(QStringLiteral("listView"));
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return Listed(*list).contains(QLatin1String("UPPER.LBY")); }));
        EXPECT_FALSE(Listed(*list).contains(QLatin1String("notes.txt")));
    });
    Choose("LoadStandard");
}

TEST_F(FilePrompts, ChosenPathsGoIntoFilesAsTheFileSystemsBytes) {
    Start();
    Choose("NewUValue");
    const std::string umlaut = folder.Write("b\xC3\xBC"
                                            "cher.lby",
                                            "1'WOOD' 0.12 500 1600\r\n");
    ChooseFile(umlaut);
    Choose("LoadStandard");
    Insert("WOOD");
    TheProject().constructions[1].layers.Edit(1).thickness = 10;
    ChooseFile(Path("w\xC3\xA4nde.con"));
    Choose("SaveProjectAs");
    EXPECT_EQ(TheProject().constructionFile, Path("w\xC3\xA4nde.con"));
    EXPECT_THAT(folder.Read("w\xC3\xA4nde.con"), HasSubstr("'" + umlaut + "'"));
    EXPECT_EQ(StatusText("FileStatus"), "w\xC3\xA4nde.con");
}

} // namespace
} // namespace strativo
