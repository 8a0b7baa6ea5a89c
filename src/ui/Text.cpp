#include "ui/Text.h"

#include "text/Windows1252.h"

#include <QFile>

namespace strativo {

namespace {

QString FromStdUtf8(const std::string& utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace

QString ToText(std::string_view bytes) {
    return FromStdUtf8(ToUtf8(bytes));
}

std::string ToBytes(const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    return FromUtf8({utf8.data(), static_cast<std::size_t>(utf8.size())});
}

QString PathText(std::string_view path) {
    return FromStdUtf8(PathToUtf8(path));
}

std::string PathBytes(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

} // namespace strativo
