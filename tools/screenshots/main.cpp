#include "edit/ConstructionEntry.h"
#include "edit/LayerClipboard.h"
#include "project/NewProject.h"
#include "ui/Appearance.h"
#include "ui/ChildWindow.h"
#include "ui/QtPrompts.h"
#include "ui/STRATVMD.h"
#include "ui/UValue.h"
#include "ui/UvalsDialog.h"
#include "ui/WINPRO.h"
#include "ui/WindowArea.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include <string>
#include <string_view>
#include <vector>

// Drives the program's own windows and saves pictures of them for README and manual.

namespace {

using namespace strativo;

class Photographer {
public:
    Photographer(UValueMDI& mainWindow, const QString& targetFolder)
        : window(mainWindow), folder(targetFolder) {}

    void TakeAll() {
        Settle();
        Save(&window, "main-window");
        Save(Frame(3), "construction-window");
        Save(FrameOf(&window.Dialog()), "select-material");
        Trigger("EditWin");
        Settle();
        Save(FrameOf(Find("WinList")), "glass-types");
        SaveGlassEditor();
        BuildTutorialWall();
        BuildTutorialGlazing();
    }

private:
    void Settle() { QApplication::processEvents(); }

    void Save(QWidget* widget, const char* name) {
        Settle();
        widget->grab().save(folder + QLatin1Char('/') + QLatin1String(name)
                            + QStringLiteral(".png"));
    }

    QWidget* Find(const char* objectName) {
        return window.findChild<QWidget*>(QLatin1String(objectName));
    }

    void Trigger(const char* item) { window.findChild<QAction*>(QLatin1String(item))->trigger(); }

    QWidget* FrameOf(QWidget* widget) {
        while (qobject_cast<ChildWindow*>(widget) == nullptr)
            widget = widget->parentWidget();
        return widget;
    }

    QWidget* Frame(int construction) {
        window.Area().Activate(construction);
        Settle();
        return FrameOf(window.Area().Content(construction));
    }

    void SaveGlassEditor() {
        auto* list = static_cast<QListWidget*>(Find("WinList"));
        list->setCurrentRow(2);
        window.TheProject().selectedProfileColumn = 8;
        QTimer::singleShot(0, &window, [this] {
            Save(QApplication::activeModalWidget(), "glass-editor");
            static_cast<QDialog*>(QApplication::activeModalWidget())->reject();
        });
        emit list->itemClicked(list->item(2));
        static_cast<QPushButton*>(Find("EditBut"))->setEnabled(true);
        static_cast<QPushButton*>(Find("EditBut"))->click();
    }

    /// Pastes the standard material of that name behind the last layer.
    void Append(const char* name) {
        Project& project = window.TheProject();
        project.shownLibrary = standardLibraryNumber;
        for (int slot = 1; slot <= MaterialCount(project.standardLibrary); ++slot)
            if (project.standardLibrary[slot].name == name)
                project.selectedMaterial = slot;
        Construction& construction = project.constructions[project.currentConstruction];
        construction.currentLayer = static_cast<std::int16_t>(LayerCount(construction));
        TakeMaterial(project);
        PasteLayers(project, prompts);
    }

    void StartConstruction(const char* name, std::int16_t type) {
        Trigger("NewUValue");
        Project& project = window.TheProject();
        project.constructions[project.currentConstruction].name = name;
        project.constructions[project.currentConstruction].type = type;
    }

    /// Enters a number at each layer, from the first on, as a user does.
    void EnterAll(EntryResult (*enter)(Project&, int, std::string_view, Prompts&),
                  const std::vector<std::string>& numbers) {
        Project& project = window.TheProject();
        const int construction = project.currentConstruction;
        for (int line = 0; line < static_cast<int>(numbers.size()); ++line) {
            std::vector<bool> marks(numbers.size());
            marks[static_cast<std::size_t>(line)] = true;
            SelectLine(project, construction, line, marks);
            enter(project, construction, numbers[static_cast<std::size_t>(line)], prompts);
        }
        window.ShowProject();
    }

    /// As the first construction of a new project.
    void BuildTutorialWall() {
        window.TheProject().changed = false;
        Trigger("NewProject");
        StartConstruction("External wall", opaqueType);
        for (const char* material : {"BRICK CLAY 1920", "CAVITY Type 1 NORMAL", "MINERAL WOOL 60",
                                     "CONCRETE BLOCK LIGHT 1380", "PLASTER GYPSUM 1000"})
            Append(material);
        window.ShowProject();
        const int number = window.TheProject().currentConstruction;
        Save(Frame(number), "tutorial-layers");
        EnterAll(EnterThickness, {"102", "50", "100", "100", "13"});
        Save(Frame(number), "tutorial-wall");
    }

    void BuildTutorialGlazing() {
        StartConstruction("Double glazing", transparentType);
        for (const char* material :
             {"GLASS SODA LIME 2500", "CAVITY Type 11 ISO15099", "GLASS SODA LIME 2500"})
            Append(material);
        EnterAll(EnterThickness, {"6", "12", "6"});
        EnterAll(EnterAbsorption, {"0.15", "0", "0.12"});
        Save(Frame(window.TheProject().currentConstruction), "tutorial-glazing");
    }

    UValueMDI& window;
    QtPrompts prompts{window};
    QString folder;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const Appearance appearance(application);
    UValueMDI window;
    const QString folder = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    QDir::setCurrent(QString::fromLocal8Bit(argv[2]));
    window.MDIForm_Load("house.con");
    Photographer(window, folder).TakeAll();
    return 0;
}
