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

/// Compares the windows inside the main window with the project, and brings them up to date. It
/// does so at the end of every action and before any box or prompt, so that nobody else has to
/// think of a window.
class ProjectView {
public:
    ProjectView(Project& shownProject, WindowArea& windows, UvalsDialog& materials,
                StatusBar& statusBar);

    // Windows that exist by now, to be kept up to date until they go.
    void Follow(UValue* construction);
    void Follow(WinForm* glassTypes);

    void Update();
    /// Activates the current construction's window; without one, the window that is on top.
    void ActivateCurrent();
    /// Minimises the windows of all slots; those not in use get an empty window for it.
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

    /// What tells whether constructions have come or gone.
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
    std::vector<QPointer<UValue>> constructions;
    QPointer<WinForm> glass;
};

} // namespace strativo
