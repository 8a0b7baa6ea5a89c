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

void Keep(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtFatalMsg) {
        Print(QStringLiteral("strativo: there is no display to open a window on"));
        std::_Exit(EXIT_FAILURE);
    }
    Waiting().append(qFormatLogMessage(type, context, message));
}

} // namespace

StartMessages::StartMessages() {
    qInstallMessageHandler(Keep);
}

StartMessages::~StartMessages() {
    qInstallMessageHandler(nullptr);
    for (const QString& line : qAsConst(Waiting()))
        Print(line);
    Waiting().clear();
}

} // namespace strativo
