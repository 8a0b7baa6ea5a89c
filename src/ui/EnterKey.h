#pragma once

#include <QObject>

namespace strativo {

/// Makes Enter press the focused button in every window; by itself, Qt does so only for some
/// buttons of dialogs.
class EnterKey : public QObject {
public:
    explicit EnterKey(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace strativo
