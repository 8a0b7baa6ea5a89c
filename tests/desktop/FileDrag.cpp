#include "desktop/FileDrag.h"

#include <QApplication>
#include <QUrl>

#include <algorithm>
#include <thread>

namespace strativo {

namespace {

std::vector<std::string> Command(const std::vector<std::string>& urls) {
    std::vector<std::string> command{FILE_DRAGGER};
    command.insert(command.end(), urls.begin(), urls.end());
    return command;
}

/// Counts the drags that come to the windows of the stories' own program.
class DragCounter : public QObject {
public:
    DragCounter() {
        moveToThread(qApp->thread());
        qApp->installEventFilter(this);
    }

    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::DragEnter ? 1 : 0;
        return false;
    }
};

} // namespace

FileDrag::FileDrag(User& dragging, const std::vector<std::string>& urls)
    : user(dragging), program(Command(urls)) {
    WaitForWindow("Dragger: ready");
}

void FileDrag::WaitForWindow(const std::string& title) const {
    WaitFor("the window " + title, [&] {
        const std::vector<WindowOnScreen> windows = Screen().Windows();
        return std::any_of(windows.begin(), windows.end(),
                           [&](const WindowOnScreen& found) { return found.title == title; });
    });
}

void FileDrag::DragTo(QPoint place) {
    for (const WindowOnScreen& found : Screen().Windows())
        if (found.title == "Dragger: ready")
            user.MoveTo({found.x + found.width / 2, found.y + found.height / 2});
    user.Grip();
    WaitForWindow("Dragger: dragging");
    user.MoveTo(place - QPoint(6, 6));
    user.MoveTo(place);
}

void FileDrag::DropOn(QPoint place) {
    DragTo(place);
    WaitForWindow("Dragger: accepted here");
    user.Release();
    WaitForWindow("Dragger: dropped");
}

void FileDrag::TryOn(QPoint place) {
    const auto counter = InGui([] { return std::make_unique<DragCounter>(); });
    DragTo(place);
    // Behind a box that is open no window learns of a drag.
    if (InGui([] { return QApplication::activeModalWidget() == nullptr; }))
        WaitFor("the drag to arrive", [&] { return counter->count > 0; });
    for (int i = 0; i < 20; ++i) {
        user.MoveTo(place + QPoint(i % 2, 0));
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    user.Release();
    WaitForWindow("Dragger: not dropped");
}

std::string FileUrl(const std::string& path) {
    return QUrl::fromLocalFile(QString::fromStdString(path)).toEncoded().toStdString();
}

} // namespace strativo
