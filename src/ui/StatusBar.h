#pragma once

#include "model/Project.h"

#include <QElapsedTimer>
#include <QStatusBar>
#include <QTimer>

class QLabel;
class QProgressBar;

namespace strativo {

/// The status bar of the main window: the file and whether it has unsaved changes, the construction
/// that a material would go to, anything implausible about the current layer, the libraries, the
/// progress of a long read, and for some seconds what was just done.
class StatusBar : public QStatusBar {
    Q_OBJECT

public:
    explicit StatusBar(QWidget* parent);

    void ShowProject(const Project& project);
    /// Shows the construction that a material would go to.
    void ShowMaterialTarget(const Project& project);
    /// Tells something for some seconds. The tip of a menu or a search is shown over it as long as
    /// it lasts.
    void Say(const QString& text);
    /// An action begins that may make untrue what was said before it.
    void ActionBegins(const Project& project);
    /// Ends what was said before the action, if that changed something.
    void ActionEnded(const Project& project, bool changedContent);
    /// Most files are read before anybody would notice, so pointer and bar show progress only after
    /// a while, and until done == total.
    void ShowProgress(std::size_t done, std::size_t total);
    void EndProgress();

private:
    /// What messages tell of besides the content.
    struct FileState {
        unsigned contentsReplaced = 0;
        unsigned contentsSaved = 0;
        bool changed = false;

        bool operator==(const FileState&) const = default;
    };

    QLabel* AddLabel(const char* objectName, int stretch, int mostCharacters,
                     Qt::TextElideMode leftOut = Qt::ElideMiddle);
    void ShowLibraries(const Project& project);
    void SayAgain(const QString& shown);
    void EndSaying();
    static FileState FileStateOf(const Project& project);

    struct Ui {
        QLabel* FileStatus;
        QLabel* ChangedStatus;
        QLabel* TargetStatus;
        QLabel* LayerStatus;
        QLabel* LibraryStatus;
        QProgressBar* Progress;
    };

    Ui ui{};
    QString said; ///< while it is being told
    QTimer telling{this};
    FileState before; ///< when the action began
    bool saidByAction = false;
    QElapsedTimer reading;    ///< runs while a file is read
    bool busyPointer = false; ///< shown when reading takes long
};

} // namespace strativo
