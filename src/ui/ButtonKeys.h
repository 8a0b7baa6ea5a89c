#pragma once

#include <QObject>

class QAbstractButton;
class QKeyEvent;

namespace strativo {

/// Makes Enter press the focused button in every window; by itself, Qt does so only for some
/// buttons of dialogs. Makes access keys press their buttons at once: Qt would show the button as
/// pressed for a while first, and what is typed meanwhile would go to the window before.
class ButtonKeys : public QObject {
public:
    explicit ButtonKeys(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static bool Enter(QAbstractButton& button, const QKeyEvent& key);
    static bool AccessKey(QAbstractButton& button);
};

} // namespace strativo
