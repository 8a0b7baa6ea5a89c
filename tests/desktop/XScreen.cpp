#include "desktop/XScreen.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <map>
#include <stdexcept>
#include <thread>

namespace strativo {

namespace {

// Letters of the stories that a plain keyboard lacks.
constexpr char32_t moreLetters[] = U"äöüßéΩ€";

// Milliseconds from one event of a key to the next. The server waits them, so that a busy machine
// does not make a tap into a key that is held.
constexpr unsigned long tap = 5;

/// A window may disappear while it is being looked at; it is left out then.
int IgnoreError(Display*, XErrorEvent*) {
    return 0;
}

} // namespace

struct XScreen::Connection {
    struct Stroke {
        KeyCode code;
        bool shift;
    };

    Connection() : display(XOpenDisplay(nullptr)) {
        if (display == nullptr)
            throw std::runtime_error("no X screen");
        XSetErrorHandler(IgnoreError);
    }
    ~Connection() { XCloseDisplay(display); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    Window Root() const { return DefaultRootWindow(display); }
    Atom AtomOf(const char* name) const { return XInternAtom(display, name, False); }
    /// A window's property as bytes; those of format 32 as the system's long numbers.
    std::string Property(Window window, const char* name, int format) const;
    /// The windows that a property of the root window lists.
    std::vector<Window> WindowsIn(const char* property) const;
    /// Sends a message about the window to the receiver: to the manager when that is the root.
    void SendMessage(Window about, Window receiver, const char* type,
                     std::array<long, 3> content) const;
    void WaitForAnswer(Window asked, long question) const;
    bool HasAnswered(long question) const;
    void LearnKeyboard();
    Stroke StrokeFor(Key key) const;

    Display* display;
    std::map<KeySym, Stroke> strokes;
    long questions = 1'000'000'000; ///< asked so far; the window manager counts its own from 1
};

std::string XScreen::Connection::Property(Window window, const char* name, int format) const {
    constexpr long longest = 4096; // in units of 4 bytes
    Atom type = 0;
    int foundFormat = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, window, AtomOf(name), 0, longest, False, AnyPropertyType, &type,
                       &foundFormat, &count, &rest, &data);
    std::string bytes;
    if (data != nullptr && foundFormat == format)
        bytes.assign(reinterpret_cast<const char*>(data),
                     count * (format == 32 ? sizeof(long) : 1));
    if (data != nullptr)
        XFree(data);
    return bytes;
}

std::vector<Window> XScreen::Connection::WindowsIn(const char* property) const {
    const std::string bytes = Property(Root(), property, 32);
    std::vector<Window> windows(bytes.size() / sizeof(Window));
    std::memcpy(windows.data(), bytes.data(), windows.size() * sizeof(Window));
    return windows;
}

void XScreen::Connection::SendMessage(Window about, Window receiver, const char* type,
                                      std::array<long, 3> content) const {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = about;
    event.xclient.message_type = AtomOf(type);
    event.xclient.format = 32;
    std::copy(content.begin(), content.end(), event.xclient.data.l);
    const long mask = receiver == Root() ? SubstructureRedirectMask | SubstructureNotifyMask : 0;
    XSendEvent(display, receiver, False, mask, &event);
    XSync(display, False);
}

/// A window's answer to the question, or its end.
void XScreen::Connection::WaitForAnswer(Window asked, long question) const {
    for (int i = 0; i < 20000; ++i) {
        const std::vector<Window> windows = WindowsIn("_NET_CLIENT_LIST");
        if (HasAnswered(question)
            || std::find(windows.begin(), windows.end(), asked) == windows.end())
            return;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    throw std::runtime_error("a program does not deal with its input");
}

/// Reads what was sent to the root window up to the answer, or all of it.
bool XScreen::Connection::HasAnswered(long question) const {
    while (XPending(display) > 0) {
        XEvent event{};
        XNextEvent(display, &event);
        if (event.type == ClientMessage && event.xclient.window == Root()
            && event.xclient.data.l[1] == question)
            return true;
    }
    return false;
}

/// Assigns further letters to keys that have none, and records which key types what.
void XScreen::Connection::LearnKeyboard() {
    int first = 0;
    int last = 0;
    XDisplayKeycodes(display, &first, &last);
    const char32_t* next = moreLetters;
    for (int code = first; code <= last; ++code) {
        int width = 0;
        KeySym* symbols = XGetKeyboardMapping(display, static_cast<KeyCode>(code), 1, &width);
        for (int level = 0; level < 2 && level < width; ++level)
            if (symbols[level] != NoSymbol)
                strokes.insert({symbols[level], {static_cast<KeyCode>(code), level == 1}});
        if (*next != 0 && symbols[0] == NoSymbol) {
            auto symbol = static_cast<KeySym>(KeyOf(*next++));
            XChangeKeyboardMapping(display, code, 1, &symbol, 1);
            strokes[symbol] = {static_cast<KeyCode>(code), false};
        }
        XFree(symbols);
    }
    XSync(display, False);
}

XScreen::Connection::Stroke XScreen::Connection::StrokeFor(Key key) const {
    const auto found = strokes.find(static_cast<KeySym>(key));
    if (found == strokes.end())
        throw std::runtime_error("no such key on this keyboard");
    return found->second;
}

XScreen::XScreen() : connection(std::make_unique<Connection>()) {
    XSelectInput(connection->display, connection->Root(),
                 StructureNotifyMask | SubstructureNotifyMask);
    XAutoRepeatOn(connection->display); // as users have it
    connection->LearnKeyboard();
}

XScreen::~XScreen() = default;

void XScreen::MovePointer(int x, int y) {
    XTestFakeMotionEvent(connection->display, 0, x, y, CurrentTime);
    XSync(connection->display, False);
}

void XScreen::PressButton(int button) {
    XTestFakeButtonEvent(connection->display, static_cast<unsigned>(button), True, CurrentTime);
    XSync(connection->display, False);
}

void XScreen::ReleaseButton(int button) {
    XTestFakeButtonEvent(connection->display, static_cast<unsigned>(button), False, CurrentTime);
    XSync(connection->display, False);
}

void XScreen::PressKey(Key key) {
    XTestFakeKeyEvent(connection->display, connection->StrokeFor(key).code, True, CurrentTime);
    XSync(connection->display, False);
}

void XScreen::ReleaseKey(Key key) {
    XTestFakeKeyEvent(connection->display, connection->StrokeFor(key).code, False, CurrentTime);
    XSync(connection->display, False);
}

void XScreen::TapKey(Key key) {
    const KeyCode code = connection->StrokeFor(key).code;
    XTestFakeKeyEvent(connection->display, code, True, tap);
    XTestFakeKeyEvent(connection->display, code, False, tap);
    XSync(connection->display, False);
}

void XScreen::Type(std::u32string_view text) {
    for (const char32_t character : text) {
        const Key key = KeyOf(character);
        const bool shift = connection->StrokeFor(key).shift;
        if (shift)
            PressKey(Key::shift);
        TapKey(key);
        if (shift)
            ReleaseKey(Key::shift);
    }
}

/// Every window manager answers the request for the size of a frame, by setting a property.
void XScreen::WaitForWindowManager() {
    Connection& x = *connection;
    const Window asking = XCreateSimpleWindow(x.display, x.Root(), 0, 0, 1, 1, 0, 0, 0);
    x.SendMessage(asking, x.Root(), "_NET_REQUEST_FRAME_EXTENTS", {});
    for (int i = 0; i < 40000 && x.Property(asking, "_NET_FRAME_EXTENTS", 32).empty(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    XDestroyWindow(x.display, asking);
}

/// Programs answer the first question when they take it from the server, with the input before it,
/// and the second after they have dealt with that input.
void XScreen::WaitForPrograms() {
    const auto ping = static_cast<long>(connection->AtomOf("_NET_WM_PING"));
    for (int round = 0; round < 2; ++round)
        for (const Window window : connection->WindowsIn("_NET_CLIENT_LIST")) {
            connection->SendMessage(window, window, "WM_PROTOCOLS",
                                    {ping, ++connection->questions, static_cast<long>(window)});
            connection->WaitForAnswer(window, connection->questions);
        }
}

void XScreen::AskToClose(unsigned long window) {
    const Atom close = connection->AtomOf("WM_DELETE_WINDOW");
    connection->SendMessage(window, window, "WM_PROTOCOLS", {static_cast<long>(close)});
}

void XScreen::CutOff(unsigned long window) {
    XKillClient(connection->display, window);
    XSync(connection->display, False);
}

std::vector<WindowOnScreen> XScreen::Windows() {
    Connection& x = *connection;
    const std::vector<Window> active = x.WindowsIn("_NET_ACTIVE_WINDOW");
    std::vector<WindowOnScreen> windows;
    for (const Window window : x.WindowsIn("_NET_CLIENT_LIST")) {
        WindowOnScreen found;
        found.id = window;
        found.title = x.Property(window, "_NET_WM_NAME", 8);
        found.active = !active.empty() && active.front() == window;
        found.hasIcon = !x.Property(window, "_NET_WM_ICON", 32).empty();
        XWindowAttributes attributes{};
        Window child = 0;
        if (XGetWindowAttributes(x.display, window, &attributes) == 0)
            continue;
        found.width = attributes.width;
        found.height = attributes.height;
        XTranslateCoordinates(x.display, window, x.Root(), 0, 0, &found.x, &found.y, &child);
        windows.push_back(found);
    }
    return windows;
}

Picture XScreen::TakePicture() {
    Connection& x = *connection;
    XWindowAttributes root{};
    XGetWindowAttributes(x.display, x.Root(), &root);
    XImage* image = XGetImage(x.display, x.Root(), 0, 0, static_cast<unsigned>(root.width),
                              static_cast<unsigned>(root.height), AllPlanes, ZPixmap);
    if (image == nullptr)
        return {};
    Picture picture{root.width, root.height, {}};
    for (int row = 0; row < root.height; ++row)
        for (int column = 0; column < root.width; ++column)
            picture.pixels.push_back(
                static_cast<std::uint32_t>(XGetPixel(image, column, row) & 0xffffff));
    XDestroyImage(image);
    return picture;
}

} // namespace strativo
