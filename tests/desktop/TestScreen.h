#pragma once

#include "desktop/ChildProcess.h"
#include "support/TestProject.h"

#include <memory>

namespace strativo {

/// A virtual screen with a window manager, for this process and all that it starts. Settings are
/// looked for in an empty folder. SCREEN_SIZE, if set, is that of the screen.
class TestScreen {
public:
    TestScreen();

private:
    void StartServer();
    void StartWindowManager();

    TemporaryFolder home;
    std::unique_ptr<ChildProcess> server;
    std::unique_ptr<ChildProcess> manager;
};

} // namespace strativo
