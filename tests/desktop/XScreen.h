#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// Keys without a letter, by their X names.
enum class Key : unsigned long {
    backspace = 0xff08,
    tab = 0xff09,
    enter = 0xff0d,
    escape = 0xff1b,
    home = 0xff50,
    left = 0xff51,
    up = 0xff52,
    right = 0xff53,
    down = 0xff54,
    pageUp = 0xff55,
    pageDown = 0xff56,
    end = 0xff57,
    insert = 0xff63,
    f1 = 0xffbe,
    f4 = 0xffc1,
    f9 = 0xffc6,
    f10 = 0xffc7,
    shift = 0xffe1,
    ctrl = 0xffe3,
    alt = 0xffe9,
    del = 0xffff
};

/// The key that types the character.
constexpr Key KeyOf(char32_t character) {
    return static_cast<Key>(character < 0x100 ? character : 0x01000000 + character);
}

struct WindowOnScreen {
    unsigned long id = 0;
    std::string title; ///< UTF-8
    int x = 0, y = 0, width = 0, height = 0;
    bool active = false;
    bool hasIcon = false;
};

struct Picture {
    int width = 0, height = 0;
    std::vector<std::uint32_t> pixels; ///< 0xRRGGBB, row by row
};

/// Screen, pointer and keyboard as they are for a user: input goes all the way through the X
/// server.
class XScreen {
public:
    XScreen(); ///< of the environment's display
    ~XScreen();

    void MovePointer(int x, int y);
    void PressButton(int button);
    void ReleaseButton(int button);
    void PressKey(Key key);
    void ReleaseKey(Key key);
    /// Presses and releases a key as quickly as a user does.
    void TapKey(Key key);
    /// Presses and releases the keys for the text, with Shift where necessary.
    void Type(std::u32string_view text);

    /// Waits until the window manager has dealt with all input so far: it sees presses first.
    void WaitForWindowManager();
    /// Waits until all programs with windows have dealt with their input so far.
    void WaitForPrograms();
    /// Asks the window's program, as a window manager does, to close it.
    void AskToClose(unsigned long window);

    /// Cuts the connection of the window's program to the screen.
    void CutOff(unsigned long window);

    /// The programs' windows, without menus and the like.
    std::vector<WindowOnScreen> Windows();
    Picture TakePicture();

private:
    struct Connection;
    std::unique_ptr<Connection> connection;
};

} // namespace strativo
