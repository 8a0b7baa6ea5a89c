#include "ui/Printing.h"

#include "ui/Text.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>

namespace strativo {

namespace {

/// Beside the program in a build tree, otherwise where it is installed.
QString ModulePath() {
    const QString name = QLatin1String(printModule) + QStringLiteral(".so");
    const QString folder = QCoreApplication::applicationDirPath() + QLatin1Char('/');
    if (QFileInfo::exists(folder + name))
        return folder + name;
    return folder + QStringLiteral(STRATIVO_MODULES "/") + name;
}

} // namespace

QString DocumentName(const QString& title) {
    constexpr qsizetype longest = 240; // bytes; with an ending at most the 255 of most disks
    QString name = title.simplified().replace(QLatin1Char('/'), QLatin1Char('-'));
    while (QFile::encodeName(name).size() > longest)
        name = Elided(name, name.size() - 2);
    return name;
}

QString PrintPage(QWidget* parent, const QString& title, const PagePainter& paint,
                  const QString& pdfFile) {
    QLibrary module(ModulePath());
    const auto print = reinterpret_cast<PrintFunction>(module.resolve(printFunction));
    if (print == nullptr)
        return module.errorString();
    return print(parent, DocumentName(title), pdfFile, paint) == PrintResult::failed
               ? QCoreApplication::translate("Printing", "not written")
               : QString();
}

} // namespace strativo
