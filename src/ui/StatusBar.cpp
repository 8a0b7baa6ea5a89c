#include "ui/StatusBar.h"

#include "edit/WindowList.h"
#include "files/Findings.h"
#include "ui/ElidedLabel.h"
#include "ui/Text.h"

#include <QApplication>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>

#include <utility>

namespace strativo {

namespace {

constexpr std::chrono::seconds longEnoughToRead(10);

QString FileName(const std::string& path) {
    return Elided(QFileInfo(PathText(path)).fileName());
}

} // namespace

StatusBar::StatusBar(QWidget* parent) : QStatusBar(parent) {
    ui.FileStatus = AddLabel("FileStatus", 0, 40);
    ui.ChangedStatus = AddLabel("ChangedStatus", 0, 40);
    // The construction's number stands before its name.
    ui.TargetStatus = AddLabel("TargetStatus", 0, 70, Qt::ElideRight);
    ui.LayerStatus = AddLabel("LayerStatus", 1, 100);
    // Takes the remaining room without pushing anything aside; the tooltip shows all of it.
    ui.LayerStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    ui.LibraryStatus = AddLabel("LibraryStatus", 0, 80);
    ui.Progress = new QProgressBar(this);
    ui.Progress->setObjectName(QStringLiteral("Progress"));
    ui.Progress->setAccessibleName(tr("Part of the file read"));
    ui.Progress->setFixedSize(180, 16);
    ui.Progress->setRange(0, 1000);
    ui.Progress->hide();
    addPermanentWidget(ui.Progress);
    telling.setObjectName(QStringLiteral("Telling"));
    telling.setSingleShot(true);
    telling.setInterval(longEnoughToRead);
    connect(&telling, &QTimer::timeout, this, &StatusBar::EndSaying);
    connect(this, &QStatusBar::messageChanged, this, &StatusBar::SayAgain);
}

QLabel* StatusBar::AddLabel(const char* objectName, int stretch, int mostCharacters,
                            Qt::TextElideMode leftOut) {
    auto* label = new ElidedLabel(mostCharacters, this, leftOut);
    label->setObjectName(QLatin1String(objectName));
    addWidget(label, stretch);
    return label;
}

void StatusBar::ShowProject(const Project& project) {
    const std::string& file = project.constructionFile;
    SetPlainText(*ui.FileStatus, file.empty() ? tr("Untitled") : FileName(file));
    SetPlainToolTip(*ui.FileStatus, PathText(file));
    ui.ChangedStatus->setText(project.changed ? tr("* unsaved changes") : QString());
    const QString finding = ToText(CurrentLayerFinding(project));
    ui.LayerStatus->setText(finding);
    SetPlainToolTip(*ui.LayerStatus, finding);
    ShowLibraries(project);
}

void StatusBar::ShowMaterialTarget(const Project& project) {
    const QString target = PathText(MaterialTarget(project));
    SetPlainText(*ui.TargetStatus, target);
    SetPlainToolTip(*ui.TargetStatus, target);
}

void StatusBar::Say(const QString& text) {
    const bool tipIsShown = !currentMessage().isEmpty() && currentMessage() != said;
    said = Elided(text);
    saidByAction = true;
    telling.start();
    if (!tipIsShown)
        showMessage(said);
}

StatusBar::FileState StatusBar::FileStateOf(const Project& project) {
    return {project.contentsReplaced, project.contentsSaved, project.changed};
}

void StatusBar::ActionBegins(const Project& project) {
    before = FileStateOf(project);
    saidByAction = false;
}

void StatusBar::ActionEnded(const Project& project, bool changedContent) {
    if (saidByAction || (!changedContent && before == FileStateOf(project)))
        return;
    telling.stop();
    EndSaying();
}

/// A menu or a search takes its own words away, and all others with them.
void StatusBar::SayAgain(const QString& shown) {
    if (shown.isEmpty() && telling.isActive())
        showMessage(said);
}

void StatusBar::EndSaying() {
    if (currentMessage() == said)
        clearMessage();
}

void StatusBar::ShowLibraries(const Project& project) {
    const QString libraries = tr("Standard library: %1   User library: %2");
    const QString none = tr("none loaded");
    const std::string& standard = project.standardLibraryFile;
    const std::string& user = project.userLibraryFile;
    SetPlainText(*ui.LibraryStatus,
                 libraries.arg(project.standardLoaded ? FileName(standard) : none,
                               project.userLoaded ? FileName(user) : none));
    SetPlainToolTip(*ui.LibraryStatus,
                    libraries.arg(project.standardLoaded ? Elided(PathText(standard)) : none,
                                  project.userLoaded ? Elided(PathText(user)) : none));
}

void StatusBar::EndProgress() {
    if (std::exchange(busyPointer, false))
        QApplication::restoreOverrideCursor();
    reading.invalidate();
    ui.Progress->hide();
}

void StatusBar::ShowProgress(std::size_t done, std::size_t total) {
    constexpr qint64 untilPointer = 100; // ms
    constexpr qint64 untilBar = 500;     // ms
    if (done >= total) {
        EndProgress();
        return;
    }
    if (!reading.isValid())
        reading.start();
    if (reading.elapsed() >= untilPointer && !std::exchange(busyPointer, true))
        QApplication::setOverrideCursor(Qt::WaitCursor);
    if (reading.elapsed() < untilBar)
        return;
    // Drawn at once, without processing events, so that nothing else can start meanwhile.
    ui.Progress->setValue(
        static_cast<int>(1000.0 * static_cast<double>(done) / static_cast<double>(total)));
    ui.Progress->show();
    repaint();
    ui.Progress->repaint();
}

} // namespace strativo
