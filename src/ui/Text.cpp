#include "ui/Text.h"

#include "text/Windows1252.h"

#include <QFile>

#include <algorithm>

namespace strativo {

QString ToText(std::string_view bytes) {
    QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), CodePoint);
    return text;
}

std::string ToBytes(const QString& text) {
    return FromUtf8(text.toStdString());
}

QString PathText(std::string_view path) {
    return QString::fromStdString(PathToUtf8(path));
}

std::string PathBytes(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

} // namespace strativo
