#pragma once

#include "project/WorkKeeper.h"

#include <QTimer>

namespace strativo {

/// Lets the keeper look at the project soon after each action, and as often as it wants to.
class WorkWatch : public QObject {
    Q_OBJECT

public:
    WorkWatch(const Project& watched, QObject* parent);

    /// A content just read or saved is looked at before the user can change it.
    void ActionBegins();
    void ActionEnded();
    /// The copy is up to date afterwards.
    void KeepNow();
    /// The same for the last time, unless the user has given the work up.
    void End(bool givenUp);

    WorkKeeper& Keeper() { return keeper; }

signals:
    void Told(const QString& text);

private:
    void Look();
    void Tell();

    const Project& project;
    WorkKeeper keeper;
    QTimer timer;
};

} // namespace strativo
