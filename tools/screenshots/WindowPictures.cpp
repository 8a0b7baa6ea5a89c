#include "edit/InfoTexts.h"
#include "ui/About_Strativo.h"
#include "ui/Appearance.h"
#include "ui/HelpViewer.h"
#include "ui/STRATVMD.h"
#include "ui/UValue.h"
#include "ui/WindowArea.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QImage>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include <iostream>
#include <utility>

// Saves pictures of the whole screen with each of the program's windows on it, for somebody who
// looks whether all of them fit; see tools/make-window-pictures.

namespace {

using namespace strativo;

class Photographer {
public:
    Photographer(UValueMDI& mainWindow, const QString& prefix)
        : window(mainWindow), start(prefix), latest(Screen()) {}

    void TakeAll() {
        Save("1-opened");
        Trigger("Cascade");
        Save("2-cascaded");
        Trigger("MakeIcon");
        Save("3-icons");
        window.Area().Activate(2);
        Trigger("EditWin");
        Save("4-glass-types");
        SaveBox("5-glass-editor", [this] { OpenGlassEditor(); });
        SaveBox("6-about", [this] { Trigger("HelpAbout"); });
        window.Area().Activate(1);
        SaveBox("7-comments", [this] { Press("VWConComments", window.ConstructionWindow(1)); });
        window.TheProject().changed = true;
        SaveBox("8-message", [this] { Trigger("NewProject"); });
        SaveBox("9-prompt", [this] { Trigger("SaveProjectAs"); });
        OpenLayerMenu();
        Save("10-layer-menu");
        Trigger("OpenSection");
        Save("11-section");
        SaveBox("12-print", [this] {
            Press("Print", window.findChild<QWidget*>(QStringLiteral("SectionWindow")));
        });
        Trigger("HelpContents");
        Save("13-manual");
    }

private:
    static void Wait() {
        QEventLoop loop;
        QTimer::singleShot(200, &loop, &QEventLoop::quit);
        loop.exec();
    }

    QImage Screen() const { return window.screen()->grabWindow(0).toImage(); }

    /// The screen once everything is painted: it differs from the picture before, and two pictures
    /// in a row are the same.
    QImage Settled() const {
        QImage before;
        for (int i = 0; i < 150; ++i) {
            Wait();
            QImage now = Screen();
            if (now == before && now != latest)
                return now;
            before = std::move(now);
        }
        std::cerr << "the screen does not come to rest\n";
        return before;
    }

    void Save(const char* name) {
        latest = Settled();
        const QString file = start + QLatin1String(name) + QStringLiteral(".png");
        if (!latest.save(file))
            std::cerr << "cannot write " << file.toStdString() << '\n';
    }

    /// The picture of a box that the action opens; it is closed afterwards.
    void SaveBox(const char* name, const std::function<void()>& open) {
        QTimer::singleShot(0, &window, [this, name] {
            Save(name);
            if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                box->reject();
            else
                std::cerr << "no box for " << name << '\n';
        });
        open();
    }

    void Trigger(const char* item) { window.findChild<QAction*>(QLatin1String(item))->trigger(); }

    void Press(const char* button, QWidget* in) {
        auto* found = in->findChild<QPushButton*>(QLatin1String(button));
        found->setEnabled(true);
        found->click();
    }

    void OpenGlassEditor() {
        auto* list = window.findChild<QListWidget*>(QStringLiteral("WinList"));
        list->setCurrentRow(2);
        window.TheProject().selectedProfileColumn = 8;
        emit list->itemClicked(list->item(2));
        Press("EditBut", &window);
    }

    void OpenLayerMenu() {
        UValue* construction = window.ConstructionWindow(1);
        emit construction->ContextMenuWanted(construction->mapToGlobal(QPoint(60, 160)));
    }

    UValueMDI& window;
    QString start;
    QImage latest; ///< the picture saved last; at first that of the empty screen
};

QPalette DarkPalette() {
    QPalette dark(QColor(53, 53, 53));
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(130, 130, 130));
    dark.setColor(QPalette::Disabled, QPalette::Light, Qt::black); // the shadow of such texts
    dark.setColor(QPalette::ToolTipBase, QColor(53, 53, 53));
    dark.setColor(QPalette::ToolTipText, Qt::white);
    return dark;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: window-pictures PREFIX light|dark FILE.con\n";
        return 2;
    }
    QApplication application(argc, argv);
    Q_INIT_RESOURCE(strativo);
    if (std::string(argv[2]) == "dark")
        QApplication::setPalette(DarkPalette());
    const Appearance appearance(application);
    QApplication::setCursorFlashTime(0); // a blinking caret would never come to rest
    UValueMDI window;
    Photographer photographer(window, QString::fromLocal8Bit(argv[1]));
    window.MDIForm_Load(argv[3]);
    photographer.TakeAll();
    return 0;
}
