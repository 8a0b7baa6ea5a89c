#pragma once

#include <QObject>

#include <functional>

class QAbstractButton;
class QWidget;

namespace strativo {

/// Alt and a letter: the control of the active child window that shows the letter wins over a
/// menu of the same letter, is clicked or gets the focus.
class AccessKeys : public QObject {
public:
    /// The function gives the widget whose controls come first, or null.
    AccessKeys(std::function<QWidget*()> activeContent, QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* ControlFor(QEvent* event) const;

    std::function<QWidget*()> activeContent;
};

} // namespace strativo
