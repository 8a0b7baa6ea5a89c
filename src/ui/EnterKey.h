#pragma once

#include <QObject>

namespace strativo {

/// Enter presses the button that has the focus, in every window; the toolkit knows that for some
/// buttons of dialogs only.
class EnterKey : public QObject {
public:
    explicit EnterKey(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace strativo
