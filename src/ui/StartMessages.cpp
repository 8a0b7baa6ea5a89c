#include "ui/StartMessages.h"

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <cstdio>
#include <cstdlib>

namespace strativo {

namespace {

/// Global, because Qt's message handler cannot be given any data of its own.
QStringList& Waiting() {
    static QStringList messages;
    return messages;
}

void Print(const QString& line) {
    std::fputs((line + QLatin1Char('\n')).toLocal8Bit().constData(), stderr);
}

void PrintWaiting() {
    for (const QString& line : qAsConst(Waiting()))
        Print(line);
    Waiting().clear();
}

/// Qt's own lines are many and of little use, unless the user chose the way to the screen.
[[noreturn]] void EndWithoutWindow() {
    constexpr char chosen[] = "QT_QPA_PLATFORM";
    const bool hasDisplay =
        !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (!hasDisplay || qEnvironmentVariableIsEmpty(chosen)) {
        Print(QStringLiteral("strativo: there is no display to open a window on"));
    } else {
        PrintWaiting();
        Print(QStringLiteral("strativo: no window can be opened with %1=%2")
                  .arg(QLatin1String(chosen), qEnvironmentVariable(chosen)));
    }
    std::_Exit(EXIT_FAILURE);
}

void Keep(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtFatalMsg)
        EndWithoutWindow();
    Waiting().append(qFormatLogMessage(type, context, message));
}

} // namespace

StartMessages::StartMessages() {
    qInstallMessageHandler(Keep);
}

StartMessages::~StartMessages() {
    qInstallMessageHandler(nullptr);
    PrintWaiting();
}

} // namespace strativo
