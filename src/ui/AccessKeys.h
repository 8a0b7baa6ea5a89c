#pragma once

#include <QObject>

#include <functional>

class QAbstractButton;
class QKeyEvent;
class QMenuBar;
class QWidget;

namespace strativo {

/// Alt and a letter in the main window: the control of the active child window that shows the
/// letter is clicked or gets the focus; a menu opens only where there is no such control. Letters
/// of controls in other child windows do nothing. Esc in a menu of the bar gives the keys back to
/// where they were at once.
class AccessKeys : public QObject {
public:
    /// The function gives the widget whose controls come first, or null.
    AccessKeys(std::function<QWidget*()> activeContent, QMenuBar& menuBar, QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool IsAccessKey(const QObject* watched, const QKeyEvent& event) const;
    QWidget* ControlFor(QKeyCombination wanted) const;
    void OpenMenu(QKeyCombination wanted);
    bool LeaveMenu(QObject* watched, const QKeyEvent& event);

    std::function<QWidget*()> activeContent;
    QMenuBar& menus;
};

} // namespace strativo
