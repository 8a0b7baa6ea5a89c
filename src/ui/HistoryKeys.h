#pragma once

#include <functional>

class QWidget;

namespace strativo {

/// Ctrl+Z, Ctrl+Y and Ctrl+Shift+Z in the window. In an entry field they are the field's own.
void AddHistoryKeys(QWidget* window, const std::function<void()>& undo,
                    const std::function<void()>& redo);

} // namespace strativo
