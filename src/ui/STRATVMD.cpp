#include "ui/STRATVMD.h"

#include "edit/ConstructionSlots.h"
#include "edit/InfoTexts.h"
#include "edit/Saying.h"
#include "project/FileCommands.h"
#include "project/Manual.h"
#include "project/NewProject.h"
#include "project/Recovery.h"
#include "project/Settings.h"
#include "text/RuntimeError.h"
#include "ui/ButtonKeys.h"
#include "ui/ChildWindow.h"
#include "ui/HelpViewer.h"
#include "ui/KeyRepeat.h"
#include "ui/KeysForBox.h"
#include "ui/MainWindowPlace.h"
#include "ui/ProjectView.h"
#include "ui/QtPrompts.h"
#include "ui/SectionWindow.h"
#include "ui/StatusBar.h"
#include "ui/Text.h"
#include "ui/Tips.h"
#include "ui/UValue.h"
#include "ui/UvalsDialog.h"
#include "ui/WINFORM.h"
#include "ui/WindowArea.h"
#include "ui/WorkWatch.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QUrl>

#include <utility>

namespace strativo {

namespace {

/// A file URL may name the machine it is on; with another machine's name it is not a local file.
bool IsOnThisMachine(const QUrl& url) {
    const QString host = url.host();
    return url.isLocalFile()
           && (host.isEmpty() || host == QLatin1String("localhost")
               || host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0);
}

} // namespace

UValueMDI::UValueMDI(QWidget* parent)
    : QMainWindow(parent), watch(new WorkWatch(project, this)),
      prompts(std::make_unique<QtPrompts>(*this)),
      program{project, *prompts, [this](const std::function<void()>& action) { Perform(action); }},
      area(new WindowArea([this](int id) { return MakeContent(id); },
                          [this](int id) { return ContentSize(id); }, this)) {
    WatchKeys();
    new ButtonKeys(this);
    new KeysForBox(this);
    new Tips(this);
    constructionSize = UValue::FixedSize(*this);
    setObjectName(QStringLiteral("UValueMDI"));
    setWindowTitle(QLatin1String(mainCaption));
    setAcceptDrops(true);
    setCentralWidget(area);
    RestorePlace(*this);
    RecordSource(project, ProgramWindow::mainWindow);
    dialog = new UvalsDialog(program, this);
    status = new StatusBar(this);
    setStatusBar(status);
    view = std::make_unique<ProjectView>(project, *area, *dialog, *status);
    BuildMenus();
    BuildShortcuts();
    ShowProject();
    connect(watch, &WorkWatch::Told, status, &StatusBar::Say);
    connect(area, &WindowArea::ActiveChanged, this, &UValueMDI::ActiveChanged);
    connect(area, &WindowArea::CloseRequested, this, &UValueMDI::ChildCloseRequested);
    area->SetTips([this](int id) { return NameOfWindow(id); });
    connect(dialog, &UvalsDialog::Inserted, this, [this] {
        if (InUse(project, project.currentConstruction))
            area->ShowBelowActive(project.currentConstruction);
    });
}

UValueMDI::~UValueMDI() {
    // Children report focus changes while they are destroyed, and nobody must react to them any
    // more.
    area->disconnect(this);
    dialog->Form_Unload();
    delete area;
}

void UValueMDI::MDIForm_Load(const std::string& commandLine) {
    Perform([&] {
        StartUp(project, ReadSettings(SettingsFiles()));
        show();
        PlaceDialog();
        OrderMaterialList(project);
        if (!OfferKeptWork(commandLine))
            OpenCommandLine(project, commandLine, *prompts);
    });
    started = true;
}

/// True when such work is the project now.
bool UValueMDI::OfferKeptWork(const std::string& commandLine) {
    const RecoveryResult result = OfferRecovery(project, watch->Keeper(), commandLine, *prompts);
    if (!result.notice.empty())
        Say(project, result.notice);
    return result.opened;
}

void UValueMDI::PlaceDialog() {
    area->Open(dialogId, dialog->Caption(), {.remade = false, .inCorner = true});
    area->Activate(dialogId);
    // A window that was maximised gets its size only some time after it was shown.
    area->SetFollowsArea(true);
}

/// Every action of the user runs through here. An action may show boxes and so start further ones.
void UValueMDI::Perform(const std::function<void()>& action) {
    if (performing == 0) {
        watch->ActionBegins();
        history.ActionBegins(project);
        status->ActionBegins(project);
    }
    if (started)
        area->SetFollowsArea(false);
    ++performing;
    try {
        action();
    } catch (const ProgramEnd&) {
        EndProgram();
    } catch (const std::exception& error) {
        prompts->ShowMessage({FailureText(error), ""});
    }
    --performing;
    const bool isStep = performing == 0 && history.ActionEnds(project);
    if (ended)
        return;
    ShowProject();
    if (performing > 0)
        return;
    status->EndProgress();
    status->ActionEnded(project, isStep);
    if (isStep && project.before.removes)
        TellOfStep();
    watch->ActionEnded();
    QueueDropped();
}

void UValueMDI::KeepWork() {
    watch->KeepNow();
}

void UValueMDI::EndByRequest() {
    Perform([] { throw ProgramEnd(); });
}

void UValueMDI::EndProgram() {
    ended = true;
    KeepPlace(*this);
    watch->End(false);
    QuitHelp();
    QApplication::exit(0);
}

QWidget* UValueMDI::MakeContent(int id) {
    if (id == dialogId)
        return dialog;
    if (id == glassId)
        return glass;
    auto* window = new UValue(id, program);
    view->Follow(window);
    connect(window, &UValue::ContextMenuWanted, this, &UValueMDI::ShowLayerMenu);
    return window;
}

QSize UValueMDI::ContentSize(int id) const {
    if (id == dialogId)
        return dialog->size();
    return id == glassId ? glass->size() : constructionSize;
}

UValue* UValueMDI::ConstructionWindow(int number) const {
    return qobject_cast<UValue*>(area->Content(number));
}

int UValueMDI::ActiveConstruction() const {
    return InUse(project, area->Active()) ? area->Active() : 0;
}

void UValueMDI::ShowProject() {
    view->Update();
    ShowTargetOfMaterials();
    area->SetHint(project.constructionCount == 0 ? QString::fromUtf8(howToBegin) : QString());
    if (section != nullptr)
        section->ShowConstruction();
}

/// Where Enter and a double click in Select Material would put a layer is seen before they do.
void UValueMDI::ShowTargetOfMaterials() {
    const int number = project.currentConstruction;
    const bool isTarget = project.dialogActive && InUse(project, number);
    area->SetTarget(isTarget ? number : WindowArea::noWindow);
    status->ShowMaterialTarget(project);
}

void UValueMDI::ActiveChanged(int id) {
    if (id == dialogId)
        dialog->Form_Activate();
    else
        dialog->Form_Deactivate();
    if (InUse(project, id))
        ActivateConstruction(project, id);
    ShowTargetOfMaterials();
    if (section != nullptr)
        section->ShowConstruction();
}

/// Only the program's own command closes a construction; an empty window has no such protection.
void UValueMDI::ChildCloseRequested(int id) {
    if (!MayCloseWindow(project, id)) {
        ShowProject();
        return;
    }
    if (id == dialogId) {
        project.dialogHidden = true;
        area->SetHidden(id, true);
        return;
    }
    const bool wasActive = area->Active() == id;
    area->Close(id);
    if (id == glassId)
        glass = nullptr;
    if (wasActive)
        area->ActivateTop();
    area->ShowVisible();
}

void UValueMDI::OpenGlassTypes() {
    if (glass == nullptr) {
        glass = new WinForm(program);
        glass->resize(glass->sizeHint());
        view->Follow(glass);
        connect(glass, &WinForm::CloseRequested, this, [this] { ChildCloseRequested(glassId); });
        area->Open(glassId, glass->windowTitle(), {.remade = false, .leavesCornerInSight = false});
    }
    area->Activate(glassId);
}

void UValueMDI::OpenSection() {
    if (section == nullptr) {
        section = new SectionWindow(program, this);
        AddUndoKeys(section);
        AddFileKeys(section);
    }
    section->Open();
}

void UValueMDI::CloseActive() {
    if (area->Active() != WindowArea::noWindow)
        ChildCloseRequested(area->Active());
}

void UValueMDI::ShowProgress(std::size_t done, std::size_t total) {
    status->ShowProgress(done, total);
}

HelpViewer& UValueMDI::Help() {
    if (help == nullptr)
        help = std::make_unique<HelpViewer>();
    return *help;
}

/// The first page of the help file.
QString UValueMDI::HelpContents() const {
    const std::string programFolder = PathBytes(QCoreApplication::applicationDirPath());
    return PathText(project.helpFile == noHelpFile ? ManualPage(programFolder) : project.helpFile);
}

void UValueMDI::ShowHelp() {
    Help().ShowContents(HelpContents());
}

void UValueMDI::ShowHelpAbout(const QWidget& activeWindow) {
    if (&activeWindow == help.get() || project.helpFile != noHelpFile) {
        ShowHelp(); // no other page is known there
        return;
    }
    const QWidget* child = &activeWindow == this ? area->Content(area->Active()) : nullptr;
    const QWidget& about = child != nullptr ? *child : activeWindow;
    const std::string page = ManualPageAbout(about.objectName().toStdString());
    Help().ShowPage(HelpContents(), QString::fromStdString(page));
}

void UValueMDI::QuitHelp() {
    help.reset();
}

bool UValueMDI::MDIForm_QueryUnload() {
    bool cancelled = true;
    Perform([&] { cancelled = QueryClose(project, *prompts); });
    return cancelled;
}

void UValueMDI::closeEvent(QCloseEvent* event) {
    const bool userIsAsked = project.changed;
    event->setAccepted(ended || !MDIForm_QueryUnload());
    if (event->isAccepted())
        KeepPlace(*this);
    if (event->isAccepted() && !ended)
        watch->End(userIsAsked);
}

/// The dropped path as the file system's bytes; empty unless it is exactly one local file.
std::string UValueMDI::DroppedPath(const QDropEvent& event) const {
    const bool busy =
        performing > 0 || !droppedFile.empty() || QApplication::activeModalWidget() != nullptr;
    const QList<QUrl> urls = event.mimeData()->urls();
    if (busy || urls.size() != 1 || !IsOnThisMachine(urls.front())
        || QFileInfo(urls.front().toLocalFile()).isDir())
        return "";
    return QByteArray::fromPercentEncoding(urls.front().path(QUrl::FullyEncoded).toLatin1())
        .toStdString();
}

void UValueMDI::dragEnterEvent(QDragEnterEvent* event) {
    if (DroppedPath(*event).empty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void UValueMDI::dropEvent(QDropEvent* event) {
    const std::string path = DroppedPath(*event);
    if (path.empty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    droppedFile = path;
    QueueDropped();
}

/// Reading may show boxes, and the other program waits for the answer to its drop.
void UValueMDI::QueueDropped() {
    if (!droppedFile.empty())
        QMetaObject::invokeMethod(this, &UValueMDI::OpenDropped, Qt::QueuedConnection);
}

void UValueMDI::OpenDropped() {
    // A box may have opened since the drop. What is open in it must not go: its end calls again.
    if (droppedFile.empty() || performing > 0)
        return;
    const std::string path = std::exchange(droppedFile, "");
    activateWindow();
    Perform([&] {
        watch->Keeper().ExpectReplacement(project, false);
        OpenDroppedFiles(project, {path}, *prompts);
    });
}

} // namespace strativo
