#pragma once

#include "edit/History.h"
#include "ui/Program.h"

#include <QMainWindow>

#include <memory>
#include <optional>
#include <vector>

class QAction;
class QMenu;

namespace strativo {

class HelpViewer;
class ProjectView;
class QtPrompts;
class SectionWindow;
class StatusBar;
class UValue;
class UvalsDialog;
class WindowArea;
class WinForm;
class WorkWatch;

/// The main window: menu bar, window area and status bar. Windows, commands and the core's prompts
/// are wired together here and nowhere else.
class UValueMDI : public QMainWindow {
    Q_OBJECT

public:
    explicit UValueMDI(QWidget* parent = nullptr);
    ~UValueMDI() override;

    /// Starts the program's work and opens the construction file that the command line names, if
    /// any.
    void MDIForm_Load(const std::string& commandLine);
    /// Whether the core has already ended the program, so that the event loop need not start.
    bool HasEnded() const { return ended; }
    /// Ends the program without a question; unsaved changes are kept as a recovery copy.
    void EndByRequest();
    /// Brings the recovery copy up to date when the session ends and cannot wait.
    void KeepWork();
    WorkWatch& Watch() { return *watch; }
    const History& Steps() const { return history; }

    Project& TheProject() { return project; }
    WindowArea& Area() { return *area; }
    UvalsDialog& Dialog() { return *dialog; }
    /// The construction's window; null as long as no part of it has been visible.
    UValue* ConstructionWindow(int number) const;
    /// The number of the construction whose window is active; 0 when another window is.
    int ActiveConstruction() const;
    /// Brings all windows up to date with the project.
    void ShowProject();

    // Numbers in the window area of what is no construction: Select Material and the glass types.
    static constexpr int dialogId = 0;
    static constexpr int glassId = -1;

    void ShowProgress(std::size_t done, std::size_t total);
    void ShowHelp();
    /// Opens the manual at the page about the window, or the child window active in it.
    void ShowHelpAbout(const QWidget& activeWindow);
    void QuitHelp();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    using Command = void (*)(Project&, Prompts&);

    struct Ui {
        QMenu* Filemenu;
        QMenu* Editmenu;
        QMenu* Sortmenu;
        QMenu* Winmenu;
        QMenu* HelpMenu;
        QAction* SaveProject;
        QAction* CloseUValue;
        QAction* Edit_Cut;
        QAction* Edit_Copy;
        QAction* Edit_Paste;
        QAction* Edit_PBefore;
        QAction* Edit_delete;
        QAction* UndoItem; ///< with the next one made with the layer menu
        QAction* RedoItem;
    };

    void BuildMenus();
    void BuildFileMenu();
    void BuildEditMenu();
    void BuildSortMenu();
    void BuildWindowMenu();
    void BuildHelpMenu();
    void BuildShortcuts();
    QMenu* AddMenu(const char* objectName, const QString& caption);
    QAction* AddItem(QMenu* menu, const char* objectName, const QString& caption,
                     std::function<void()> handler);
    void AddSeparator(QMenu* menu, const char* objectName);

    void Filemenu_Click();
    void Editmenu_Click();
    void Winmenu_Click();
    void CloseUValue_Click();
    template <class Result>
    void Replace_Click(Result (*command)(Project&, Prompts&));
    void Edit_Click(Command command);
    void Edit_Paste_Click(Command command);
    void EditWin_Click();
    void Sort_Click(void (*sort)(Project&));
    void MoreWindows_Click();
    /// Numbers of the windows in the area, in the order in which they are listed.
    struct WindowIds {
        std::vector<int> constructions;
        std::vector<int> others;
    };
    WindowIds IdsOfWindows() const;
    void AddWindowItem(int id, int digit);
    QString NameOfWindow(int id) const;
    void HelpAbout_Click();
    bool MDIForm_QueryUnload();

    QWidget* MakeContent(int id);
    QSize ContentSize(int id) const;
    void ActiveChanged(int id);
    void ChildCloseRequested(int id);
    void CloseActive();
    void OpenGlassTypes();
    void OpenSection();
    void ShowLayerMenu(QPoint position);
    void BuildLayerMenu();
    void AddUndoKeys(QWidget* window);
    /// A key that does the action once a press while that window has the keys.
    void AddCommandKey(QWidget* window, QKeyCombination key, const std::function<void()>& action);
    void AddFileKeys(QWidget* window);
    void TellOfStep();
    void Undo();
    void Redo();
    void ShowMove(const std::optional<HistoryMove>& move, const QString& said,
                  const QString& saidWithout);
    void PlaceDialog();
    bool OfferKeptWork(const std::string& commandLine);
    void ShowTargetOfMaterials();
    HelpViewer& Help();
    QString HelpContents() const;
    void Perform(const std::function<void()>& action);
    void EndProgram();
    std::string DroppedPath(const QDropEvent& event) const;
    void QueueDropped();
    void OpenDropped();

    Project project;
    WorkWatch* watch;
    std::unique_ptr<QtPrompts> prompts;
    Program program;
    WindowArea* area;
    QSize constructionSize; ///< size of a construction window without its frame
    UvalsDialog* dialog;
    StatusBar* status;
    std::unique_ptr<ProjectView> view;
    WinForm* glass = nullptr; ///< belongs to its frame in the window area
    std::unique_ptr<HelpViewer> help;
    SectionWindow* section = nullptr; ///< made on first use
    QMenu* layerMenu = nullptr;       ///< likewise
    History history;
    Ui ui{};
    std::string droppedFile; ///< a file dropped that is not opened yet; "" none
    int performing = 0;
    bool started = false; ///< what comes next is an action of the user
    bool ended = false;
};

} // namespace strativo
