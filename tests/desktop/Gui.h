#pragma once

#include "desktop/XScreen.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>

namespace strativo {

// The stories run in a thread of their own: what they do with pointer and keys can start boxes and
// drags, whose event loops return only when the story goes on.

/// How long a slow machine may take for one step.
constexpr std::chrono::seconds patience(40);

/// Runs the function in the thread of the windows and returns what it returns.
template <class Function>
auto InGui(Function function) {
    using Result = decltype(function());
    auto task = std::make_shared<std::packaged_task<Result()>>(std::move(function));
    std::future<Result> result = task->get_future();
    QMetaObject::invokeMethod(
        qApp, [task] { (*task)(); }, Qt::QueuedConnection);
    if (result.wait_for(patience) != std::future_status::ready)
        throw std::runtime_error("the windows do not answer");
    return result.get();
}

/// Waits until the condition, asked in the thread of the windows, holds. The story ends when it
/// never does.
void WaitFor(const std::string& what, const std::function<bool()>& condition);

/// The screen and its input devices.
XScreen& Screen();

/// Waits until the windows have dealt with all input so far.
void WaitForInput();

/// Runs all stories beside the event loop; the exit status of the test program.
int RunStories(int argc, char** argv);

} // namespace strativo
