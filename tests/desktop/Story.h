#pragma once

#include "desktop/User.h"
#include "support/Samples.h"
#include "support/TestProject.h"
#include "ui/STRATVMD.h"

#include <QDialog>
#include <QPointer>

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace strativo {

/// A user at work with the program. Stories ask only about what the windows show and about the
/// files written.
///
/// Windows inside the main window go by their numbers: constructions from 1, `dialog` and `glass`;
/// `box` stands for the box in front.
class Story : public testing::Test, protected User {
protected:
    static constexpr int dialog = UValueMDI::dialogId;
    static constexpr int glass = UValueMDI::glassId;
    static constexpr int box = -2;

    Story();
    void TearDown() override;

    /// Starts the program with a command line; does not wait for boxes to be answered.
    void Start(const std::string& commandLine = "");
    /// Whether the main window is still open.
    bool IsRunning();

    /// The path of a file in the folder in which the program runs.
    std::string PathOf(const std::string& name) const;
    void Write(const std::string& name, const std::string& bytes) const;
    std::string Read(const std::string& name) const;

    // Where things are on the screen.
    QPoint PlaceOf(int child, const char* control);
    /// The middle of a row (from 0) that can be seen in the layer list, be there a line or not.
    QPoint LayerRow(int construction, int row);
    /// The line of the material, scrolled into sight with the wheel.
    QPoint Material(const char* name);
    /// Where a window's title bar is to be grasped.
    QPoint TitleOf(int child);
    /// A button of a window's frame.
    QPoint FrameButton(int child, const char* name);

    // Whole steps.
    void ChooseMenu(const char* menu, const char* item);
    bool IsItemEnabled(const char* menu, const char* item);
    /// Moves a child window by its title bar, its left top corner to a place in the main window.
    void MoveWindow(int child, QPoint place);
    void WaitForBox(const std::string& title);
    /// Waits for a message, compares its text and clicks a button.
    void Answer(const std::string& title, const std::string& text, const char* button);
    /// Types the path into the file prompt of that title and ends it with Enter.
    void ChooseFile(const std::string& title, const std::string& path);
    void CancelPrompt(const std::string& title);
    /// Types the number and Enter.
    void Enter(const std::string& number);

    // What the windows show.
    std::string TextOf(int child, const char* control);
    bool IsVisible(int child, const char* control);
    /// The names in the layer list, joined by ", "; marked ones in brackets.
    std::string Layers(int construction);
    /// The names of the material list from the first line on.
    std::vector<std::string> Materials();
    /// The object name of the control that has the focus.
    std::string Focus();
    int ActiveWindow();

    /// For use in the windows' thread only.
    QWidget* Control(int child, const char* name) const;

    TemporaryFolder folder;
    UValueMDI* window = nullptr;

private:
    void LetWindowGo();
    /// Waits until the box has gone and whatever comes then is ready.
    void WaitForEndOf(const QPointer<QDialog>& front);
    QPoint MenuItem(const char* menu, const char* item, bool& enabled);

    bool loaded = false; ///< the program's start is over
};

} // namespace strativo
