#pragma once

#include "support/TestProject.h"
#include "ui/STRATVMD.h"

#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QTest>
#include <QTimer>

#include <deque>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

class QMimeData;

namespace strativo {

/// What a message box or prompt showed.
struct SeenBox {
    std::string title;
    std::string text;
    std::vector<std::string> buttons;
};

/// The main window with all that is in it, started in a folder of its own with a library of three
/// materials. Boxes are answered from a script; one that comes up unexpectedly is cancelled and
/// fails the test.
class MainWindowTest : public testing::Test {
protected:
    MainWindowTest();
    ~MainWindowTest() override;

    /// Starts the program and waits until its window has the keyboard.
    void Start(const std::string& commandLine = "");
    void TearDown() override;

    /// Opens the item's menu, as a user must, and chooses the item.
    void Choose(const char* itemName);
    /// The item, its menu having been opened.
    QAction* Item(const char* itemName);
    QMenu* Menu(const char* menuName);
    bool IsEnabled(const char* itemName) { return Item(itemName)->isEnabled(); }
    /// Captions of a menu's items, "-" for a separator.
    std::vector<std::string> Captions(const char* menuName);

    UValue* Window(int number);
    template <class Control = QWidget>
    Control* Find(int number, const char* name) {
        return FindIn<Control>(reinterpret_cast<QWidget*>(Window(number)), name);
    }
    template <class Control = QWidget>
    Control* FindInDialog(const char* name) {
        return FindIn<Control>(DialogWidget(), name);
    }
    QListWidget* List(int number) { return Find<QListWidget>(number, "Construction"); }
    QListWidget* Materials() { return FindInDialog<QListWidget>("UValueList"); }
    /// Names in the layer list of a window, its columns cut off.
    std::vector<std::string> LayersShown(int number);
    /// Lines of the layer list that are marked, from 0.
    std::vector<int> MarksShown(int number);
    std::string TextOf(int number, const char* control);
    std::string StatusText(const char* label);

    /// Clicks a line of a list (from 0) with the mouse.
    static void ClickLine(QListWidget* list, int line, Qt::KeyboardModifiers modifiers = {});
    static QPoint LinePosition(QListWidget* list, int line);
    /// Selects a material in the dialog by its name.
    void SelectMaterial(const std::string& name);
    /// Adds a layer of the material before the current one.
    void Insert(const std::string& material);
    /// Sends keys to where the focus is.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void Type(const char* text);
    /// Gives the keyboard to a window.
    static void TakeKeyboard(QWidget& window);
    /// Object name of the control that has the focus, in words where nothing has it.
    static std::string Focus();

    /// Moves a construction's window by its title bar.
    void MoveWindow(int number, QPoint position);
    /// Presses the left button on a line and moves far enough for a drag.
    static void StartDrag(QListWidget* list, int line, Qt::KeyboardModifiers modifiers = {});
    /// Moves with the left button held.
    static void MoveMouse(QListWidget* list, QPoint place, Qt::KeyboardModifiers modifiers = {});
    /// Drags data over a widget and lets go there; false where they are not welcome.
    static bool Drop(QMimeData* data, QWidget* on, QPoint place);
    /// Drags a line of a list to the middle of a visible row (from 0) of a layer list, empty rows
    /// included.
    void DragLine(QListWidget* from, int line, QListWidget* to, int row,
                  Qt::KeyboardModifiers modifiers = {});

    /// Scripts what happens to the next box: one of its buttons is pressed.
    void Answer(const std::string& button);
    /// The next box is a file prompt: a path is chosen, or it is cancelled.
    void ChooseFile(const std::string& path);
    void CancelPrompt();
    void InBox(std::function<void(QWidget& box)> steps);
    const SeenBox& LastBox() const { return boxes.back(); }

    Project& TheProject() { return program->TheProject(); }
    WindowArea& Area() { return program->Area(); }

    TemporaryFolder folder;
    std::string library;
    std::unique_ptr<UValueMDI> program;
    std::vector<SeenBox> boxes;

    static constexpr int rowHeight = 16; ///< of the layer list, pixels

private:
    template <class Control>
    static Control* FindIn(QWidget* window, const char* name) {
        auto* control = window->findChild<Control*>(QLatin1String(name));
        if (control == nullptr)
            throw std::runtime_error(std::string("no control ") + name);
        return control;
    }
    QWidget* DialogWidget();
    QWidget* KeyTarget();
    void WatchForBoxes();
    void LookForBox();

    std::unique_ptr<QObject> watch;
    std::deque<std::function<void(QWidget&)>> script;
    QWidget* met = nullptr; ///< the box that is being answered
};

} // namespace strativo
