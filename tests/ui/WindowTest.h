#pragma once

#include "support/TestProject.h"
#include "ui/Program.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {

/// Windows on a project, with a scripted user in front of them.
class WindowTest : public testing::Test {
protected:
    WindowTest() { prompts.calls.clear(); }

    /// The control of that name, or a failure and null.
    template <class Control = QWidget>
    static Control* Find(const QWidget& window, const char* name) {
        auto* control = window.findChild<Control*>(QLatin1String(name));
        EXPECT_NE(control, nullptr) << name;
        return control;
    }

    /// Shows a window and waits until it has the keyboard.
    static void Show(QWidget& window) {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    static void PressKey(QWidget* control, Qt::Key key,
                         Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(control, key, modifiers);
    }

    /// Presses keys where the keyboard focus is.
    static void Type(const char* text) {
        for (const char* letter = text; *letter != '\0'; ++letter)
            QTest::keyClick(QApplication::focusWidget(), *letter);
    }

    /// Runs steps in the next modal dialog, as soon as it is shown; it is closed afterwards if the
    /// steps have not done so.
    void InDialog(std::function<void(QDialog&)> steps) {
        ++dialogsExpected;
        QTimer::singleShot(0, qApp, [this, steps = std::move(steps)] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr) << "no dialog was opened";
            --dialogsExpected;
            steps(*dialog);
            if (dialog->isVisible())
                dialog->reject();
        });
    }

    void TearDown() override { EXPECT_EQ(dialogsExpected, 0) << "dialogs that were not opened"; }

    ScriptedPrompts prompts;
    Project project;
    std::function<void()> atEndOfAction = [] {}; ///< shows what became of it
    Program program{project, prompts, [this](const std::function<void()>& action) {
                        action();
                        atEndOfAction();
                    }};

private:
    int dialogsExpected = 0;
};

/// The texts of controls, for matchers.
inline std::string Bytes(const QString& text) {
    return text.toStdString();
}

} // namespace strativo
