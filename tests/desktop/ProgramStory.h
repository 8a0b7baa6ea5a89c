#pragma once

#include "desktop/ChildProcess.h"
#include "desktop/TwoWindows.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace strativo {

/// Stories of the program itself, in a process of its own: nothing is known of it but what stands
/// on the screen, what it writes, and how it ends.
class ProgramStory : public testing::Test, protected User {
protected:
    ProgramStory() {
        folder.Write("stdmat.lby", "12'FACE BRICK' 0.84 1700 800\n"
                                   "20'BLOCK' 0.19 600 1000\n"
                                   "30'PLASTER' 0.5 1300 1000\n"
                                   "41'INSULATION' 0.035 25 1000\n");
        std::filesystem::create_directory(folder.Path() / "work");
        std::filesystem::current_path(folder.Path() / "work");
    }

    void Start(std::vector<std::string> arguments = {}) {
        arguments.insert(arguments.begin(), STRATIVO);
        program = std::make_unique<ChildProcess>(arguments);
    }

    void WaitForActive(const std::string& title) {
        WaitFor("the window " + title, [&] {
            const std::vector<WindowOnScreen> windows = Screen().Windows();
            return std::any_of(windows.begin(), windows.end(), [&](const WindowOnScreen& found) {
                return found.active && found.title == title;
            });
        });
    }

    void WaitForFile(const std::string& name, const std::string& bytes) {
        WaitFor(name, [&] {
            return std::filesystem::exists(folder.Path() / "work" / name)
                   && folder.Read("work/" + name) == bytes;
        });
    }

    const std::string mainTitle = "Brevan Strativo V2.1";
    TemporaryFolder folder;
    std::unique_ptr<ChildProcess> program;
};

} // namespace strativo
