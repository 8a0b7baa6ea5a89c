#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>

#include <array>

// The least that a program of this kind can start with: a main window, an area for child windows
// and a menu bar of the size of Strativo's, and nothing behind them.

namespace {

struct BareMenu {
    const char* caption;
    const char* items; ///< separated by bars; an empty one is a separator
};

constexpr std::array menus = {
    BareMenu{"&File", "&New project|New &construction|&Open file...|&Save file|Save file &as...||"
                      "&Remove construction||Loa&d standard file|&Load user file||"
                      "Import &glass definitions||E&xit"},
    BareMenu{"&Edit", "Cu&t|&Copy|&Paste|Paste &before|&Delete||Edit &glass types"},
    BareMenu{"&Materials", "&Standard file|&User file"},
    BareMenu{"&Sort", "&Name|&Conductivity|&Density|&Specific heat"},
    BareMenu{"&Window", "&Cascade|Make all &icons|&Arrange icons"},
    BareMenu{"&Help", "&Contents||&About"},
};

void AddMenu(QMenuBar& bar, const BareMenu& bare) {
    QMenu* menu = bar.addMenu(QString::fromLatin1(bare.caption));
    for (const QString& item : QString::fromLatin1(bare.items).split(QLatin1Char('|'))) {
        if (item.isEmpty())
            menu->addSeparator();
        else
            menu->addAction(item);
    }
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Bare window"));
    window.setCentralWidget(new QMdiArea(&window));
    for (const BareMenu& menu : menus)
        AddMenu(*window.menuBar(), menu);
    window.resize(1080, 760);
    window.show();
    return QApplication::exec();
}
