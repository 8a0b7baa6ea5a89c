#pragma once

#include "desktop/ChildProcess.h"
#include "desktop/User.h"

#include <string>
#include <vector>

namespace strativo {

/// Another program's window, from which files are dragged as from a file manager.
class FileDrag {
public:
    /// Shows the window; the URLs are what it drags.
    FileDrag(User& user, const std::vector<std::string>& urls);

    /// Drags to the place, waits until that takes the files, and drops them.
    void DropOn(QPoint place);
    /// Drags to the place and lets go, which must not count as a drop. By then, the stories' own
    /// program has seen the drag.
    void TryOn(QPoint place);

private:
    void DragTo(QPoint place);
    void WaitForWindow(const std::string& title) const;

    User& user;
    ChildProcess program;
};

/// The URL of a local file.
std::string FileUrl(const std::string& path);

} // namespace strativo
