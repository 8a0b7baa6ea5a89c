#include "desktop/Gui.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QWindow>

#include <atomic>
#include <gtest/gtest.h>
#include <thread>
#include <xcb/xcb.h>

namespace strativo {

namespace {

/// Sees the markers that the stories send behind their input.
class Markers : public QAbstractNativeEventFilter {
public:
    Markers() {
        window.create();
        id = window.winId();
        qApp->installNativeEventFilter(this);
    }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const auto* event = static_cast<xcb_generic_event_t*>(message);
        if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE)
            return false;
        const auto* marker = reinterpret_cast<const xcb_client_message_event_t*>(event);
        if (marker->window != id)
            return false;
        seen = marker->data.data32[0];
        return true;
    }

    WId Window() const { return id; }
    bool HasSeen(long number) const { return seen >= number; }

private:
    QWindow window;
    WId id = 0;
    std::atomic<long> seen = 0;
};

XScreen* screen = nullptr;
Markers* markers = nullptr;

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
    static long sent = 0;
    screen->SendMarker(markers->Window(), ++sent);
    WaitFor("input to be dealt with", [] { return markers->HasSeen(sent); });
}

int RunStories(int argc, char** argv) {
    XScreen input; // before the windows: they learn the keyboard as it is left
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Markers seen;
    screen = &input;
    markers = &seen;
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
