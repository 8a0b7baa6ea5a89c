#pragma once

#include "EditLog.h"
#include "Stage.h"

#include <QObject>

#include <memory>

namespace strativo::monkey {

/// A user who does anything. One event follows the other out of the event loop, so that boxes,
/// which have loops of their own, are answered like everything else.
class Monkey : public QObject {
public:
    /// The log, if there is one, is told of each content of the project.
    Monkey(unsigned seed, int events, Journal& journal, EditLog* log = nullptr);

    /// Sits down at the program, and again when it has ended, until all events have happened.
    void Run();

private:
    void Sit();
    void Step();
    void Act();
    void WindDown();
    bool IsReady();
    bool HasKeyboard(QWidget& wanted);
    bool IsButtonDown();

    void Check();
    void CountStates();
    void CheckSaved();
    void CheckSnapshot();
    void CheckEnd();
    const EventKinds* Kinds();

    int wantedEvents;
    EditLog* editLog;
    World world;
    Stage stage;
    std::unique_ptr<UValueMDI> program;
    int depth = 0;             ///< events that wait for a box to be answered
    int waiting = 0;           ///< looks since the last event
    bool readsDropped = false; ///< what is open belongs to the reading of a dropped file
};

} // namespace strativo::monkey
