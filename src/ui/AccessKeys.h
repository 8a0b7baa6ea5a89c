#pragma once

#include <QObject>

#include <functional>

class QAbstractButton;
class QKeyEvent;
class QMenuBar;
class QWidget;

namespace strativo {

/// Alt and a letter in the main window click or focus the control of the active child window that
/// shows the letter; a menu opens only if there is no such control. Controls in other child windows
/// are ignored. Esc in a menu of the bar returns the keyboard at once to where it was.
class AccessKeys : public QObject {
public:
    /// The function returns the widget whose controls come first, or null.
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
