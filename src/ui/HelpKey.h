#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace strativo {

/// F1 in any window of the program asks for help about it.
class HelpKey : public QObject {
public:
    /// The function is given the window that has the keyboard.
    HelpKey(std::function<void(const QWidget& window)> showHelp, QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void(const QWidget& window)> show;
};

} // namespace strativo
