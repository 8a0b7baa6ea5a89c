#include "ui/Text.h"

#include "text/Windows1252.h"

#include <QFile>

#include <algorithm>

namespace strativo {

namespace {

QString FromStdUtf8(const std::string& utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace

QString ToText(std::string_view bytes) {
    QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), CodePoint);
    return text;
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
