#include "ui/STRATVMD.h"

#include <QApplication>
#include <QIcon>

#include <string>

namespace {

/// Everything behind the program's name, joined by blanks, is one path; its bytes are not touched.
/// The toolkit has taken out its own options by then.
std::string CommandLine(int argc, char** argv) {
    std::string line;
    for (int i = 1; i < argc; ++i)
        line += (i > 1 ? " " : "") + std::string(argv[i]);
    return line;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("strativo"));
    QApplication::setDesktopFileName(QStringLiteral("strativo"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/strativo.png")));
    QFont font = QApplication::font();
    font.setPointSizeF(8.25);
    QApplication::setFont(font);
    strativo::UValueMDI window;
    window.MDIForm_Load(CommandLine(argc, argv));
    return window.HasEnded() ? 0 : QApplication::exec();
}
