#include "ui/QtPrompts.h"

#include "files/FileAccess.h"
#include "ui/MainWindowPlace.h"
#include "ui/MessageBox.h"
#include "ui/STRATVMD.h"
#include "ui/Text.h"

#include <QApplication>
#include <QChildEvent>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QMessageBox>
#include <QTreeView>

namespace strativo {

namespace {

/// "Material Files (*.lby)|*.lby" in the form that Qt's dialog expects; the dialog ignores case
/// when it matches names.
QString DialogFilter(const FilePrompt& prompt) {
    return ToText(prompt.filter.substr(0, prompt.filter.find('|')));
}

QString StartFolder(const FilePrompt& prompt) {
    return QDir(PathText(prompt.startFolder)).absolutePath(); // "" gives the working directory
}

/// With Qt's own widths, sizes and dates would be cut off.
void ShowColumnsWhole(QFileDialog& box) {
    auto* details = box.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (details == nullptr)
        return;
    details->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    details->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

/// The file prompt's own questions name files. Those names are never HTML.
class PlainQuestions : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::ChildPolished)
            if (auto* box = qobject_cast<QMessageBox*>(static_cast<QChildEvent*>(event)->child()))
                box->setTextFormat(Qt::PlainText);
        return false;
    }
};

/// Hides the busy pointer of a long command: over a box that waits for the user it would mislead.
class NormalPointer {
public:
    NormalPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~NormalPointer() { QApplication::restoreOverrideCursor(); }
    NormalPointer(const NormalPointer&) = delete;
    NormalPointer& operator=(const NormalPointer&) = delete;
};

/// The window that asks, which gets the keys back when the box goes: a box in front, or a window
/// that belongs to the main one.
QWidget* Front(QWidget& mainWindow) {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal->isVisible())
        return modal;
    QWidget* active = QApplication::activeWindow(); // may be a box that has just gone
    const bool belongs =
        active != nullptr && active->isVisible() && active->parentWidget() == &mainWindow;
    return belongs ? active : &mainWindow;
}

} // namespace

Answer QtPrompts::ShowMessage(const Message& message) {
    const NormalPointer pointer;
    window.ShowProject();
    return ShowMessageBox(message, Front(window));
}

std::optional<std::string> QtPrompts::AskFile(const FilePrompt& prompt, bool save) {
    const NormalPointer pointer;
    window.ShowProject();
    QFileDialog box(Front(window), ToText(prompt.title), StartFolder(prompt), DialogFilter(prompt));
    box.setObjectName(QStringLiteral("CMDialog"));
    box.setWindowModality(Qt::WindowModal); // the help stays free
    box.setOption(QFileDialog::DontUseNativeDialog);
    box.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    box.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    box.setDefaultSuffix(ToText(prompt.defaultExtension).toLower());
    if (!prompt.initialName.empty() && prompt.initialName != singleBlank)
        box.selectFile(PathText(prompt.initialName));
    ShowColumnsWhole(box);
    box.installEventFilter(new PlainQuestions(&box));
    box.resize(FittingSize(box.sizeHint(), window));
    if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty())
        return std::nullopt;
    return PathBytes(box.selectedFiles().front());
}

std::optional<std::string> QtPrompts::AskOpenFile(const FilePrompt& prompt) {
    return AskFile(prompt, false);
}

std::optional<std::string> QtPrompts::AskSaveFile(const FilePrompt& prompt) {
    return AskFile(prompt, true);
}

void QtPrompts::Beep() {
    QApplication::beep();
}

void QtPrompts::ShowProgress(std::size_t done, std::size_t total) {
    window.ShowProgress(done, total);
}

void QtPrompts::ShowHelpContents() {
    window.ShowHelp();
}

void QtPrompts::QuitHelp() {
    window.QuitHelp();
}

} // namespace strativo
