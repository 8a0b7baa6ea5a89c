#include "desktop/TestScreen.h"

#include <cstdlib>
#include <poll.h>
#include <stdexcept>
#include <thread>
#include <unistd.h>

namespace strativo {

namespace {

constexpr int patience = 60000; // ms

} // namespace

TestScreen::TestScreen() {
    setenv("HOME", home.Path().c_str(), 1);
    setenv("XDG_CONFIG_HOME", home.Path().c_str(), 1);
    setenv("XDG_RUNTIME_DIR", home.Path().c_str(), 1);
    // No session bus: without its address one would be started, which takes time and may hang.
    setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    for (const char* name : {"XAUTHORITY", "QT_SCALE_FACTOR", "QT_FONT_DPI", "QT_STYLE_OVERRIDE"})
        unsetenv(name);
    StartServer();
    StartWindowManager();
}

/// The server chooses a free number and tells it through a pipe once it is ready.
void TestScreen::StartServer() {
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    const char* size = std::getenv("SCREEN_SIZE");
    server = std::make_unique<ChildProcess>(std::vector<std::string>{
        "Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0",
        size != nullptr ? size : "1700x1000x24", "-dpi", "96", "-nolisten", "tcp", "-noreset"});
    close(ends[1]);
    std::string number;
    pollfd wanted{ends[0], POLLIN, 0};
    char digit = 0;
    while (poll(&wanted, 1, patience) == 1 && read(ends[0], &digit, 1) == 1 && digit != '\n')
        number += digit;
    close(ends[0]);
    if (digit != '\n')
        throw std::runtime_error("Xvfb does not start");
    setenv("DISPLAY", (":" + number).c_str(), 1);
}

/// A window shown before the window manager is ready could stay invisible.
void TestScreen::StartWindowManager() {
    const std::string sign = home.Path() / "ready";
    manager = std::make_unique<ChildProcess>(
        std::vector<std::string>{"openbox", "--startup", "touch " + sign});
    for (int waited = 0; waited < patience && !std::filesystem::exists(sign); waited += 10)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

} // namespace strativo
