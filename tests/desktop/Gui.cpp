#include "desktop/Gui.h"

#include "ui/Appearance.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QWindow>

#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <thread>
#include <xcb/xcb.h>

namespace strativo {

namespace {

/// An invisible window that is asked to close after each input. Only such requests take the same
/// queues as input all the way; a tool tip window gets them even while a box is open.
class Marker : public QWindow {
public:
    Marker() {
        setFlags(Qt::ToolTip);
        create();
    }

    std::atomic<long> requests = 0;

protected:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::Close)
            return QWindow::event(event);
        ++requests;
        event->ignore();
        return true;
    }
};

/// Waits until the server has done what the windows asked of it: the next input would still go to a
/// closed menu that has not let go of the pointer.
void CatchUpWithServer() {
    xcb_connection_t* server =
        qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    std::free(xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
}

XScreen* screen = nullptr;

/// Keeps a picture of the screen as it is when a story goes wrong.
class Photographer : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& started) override { story = &started; }

    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (!result.failed())
            return;
        Picture picture = screen->TakePicture();
        const QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width,
                           picture.height, QImage::Format_RGB32);
        QDir().mkpath(QStringLiteral(PICTURES));
        const std::string path = std::string(PICTURES) + "/" + story->test_suite_name() + "."
                                 + story->name() + "." + std::to_string(++taken) + ".png";
        if (image.save(QString::fromStdString(path)))
            std::cout << "The screen as it was then: " << path << '\n';
    }

    const testing::TestInfo* story = nullptr;
    int taken = 0;
};

Marker* marker = nullptr;

} // namespace

XScreen& Screen() {
    return *screen;
}

void WaitFor(const std::string& what, const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!InGui(condition)) {
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error("waited in vain for " + what);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

void WaitForInput() {
    const long before = marker->requests;
    screen->WaitForWindowManager();
    screen->AskToClose(marker->winId());
    WaitFor("input to be dealt with", [before] { return marker->requests > before; });
    screen->WaitForPrograms();
    InGui(CatchUpWithServer);
}

int RunStories(int argc, char** argv) {
    XScreen input; // before the windows: they learn the keyboard as it is left
    QApplication application(argc, argv);
    const Appearance appearance(application);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setDoubleClickInterval(0); // clicks are double only where a story says so
    Marker markerWindow;
    screen = &input;
    marker = &markerWindow;
    testing::UnitTest::GetInstance()->listeners().Append(new Photographer);
    int status = 1;
    std::atomic<bool> over = false;
    std::thread stories([&] {
        status = RUN_ALL_TESTS();
        over = true;
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    while (!over) // a story may end the program
        QApplication::exec();
    stories.join();
    return status;
}

} // namespace strativo
