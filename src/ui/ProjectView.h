#pragma once

#include "model/Project.h"

#include <QPointer>

#include <map>
#include <vector>

namespace strativo {

class StatusBar;
class UValue;
class UvalsDialog;
class WindowArea;
class WinForm;

/// Compares the windows inside the main window with the project and brings them up to date, at the
/// end of every action and before any box or prompt. Nobody else has to keep windows current.
class ProjectView {
public:
    ProjectView(Project& shownProject, WindowArea& windows, UvalsDialog& materials,
                StatusBar& statusBar);

    // Registers windows when they come into existence; they are kept up to date until they go.
    void Follow(UValue* construction);
    void Follow(WinForm* glassTypes);

    void Update();
    /// Activates the current construction's window, or the topmost window if there is none.
    void ActivateCurrent();
    /// Minimises the windows of all slots; a slot not in use gets an empty window first.
    void MinimiseAll();

    static constexpr int dialogId = 0;

private:
    void FollowConstructions();
    void CloseWindowsOfThePast();
    void CloseEmptyWindows();
    void OpenNewWindows();
    void OpenWindow(int number);
    void FollowContents();
    void FollowDialog();
    void FollowActive();
    QString CaptionOf(int number) const;

    /// Shows whether constructions have been opened or removed.
    struct Openings {
        unsigned openings = 0;
        unsigned beginnings = 0;
        int count = 0;

        bool operator==(const Openings&) const = default;
    };

    Project& project;
    WindowArea& area;
    UvalsDialog& dialog;
    StatusBar& status;
    Openings seen;
    std::map<int, unsigned> opened; ///< by construction with a window: the opening it is of
    std::map<unsigned, QPoint> formerPlaces; ///< of windows closed, by opening, should they return
    std::vector<QPointer<UValue>> constructions;
    QPointer<WinForm> glass;
};

} // namespace strativo
