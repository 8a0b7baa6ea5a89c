#pragma once

#include <QObject>

class QWidget;
class QWindow;

namespace strativo {

/// A click on a window that waits for a box gives it the keys with some window managers, and it
/// ignores them all. The box in front gets them back.
class KeysForBox : public QObject {
public:
    /// For the main window and those that belong to it; the help stays free.
    explicit KeysForBox(QWidget* mainWindow);

private:
    void FollowFocus(const QWindow* now);

    const QWidget* window;
};

} // namespace strativo
