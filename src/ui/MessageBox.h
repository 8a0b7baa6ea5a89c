#pragma once

#include "port/Message.h"

#include <QWidget>

namespace strativo {

inline constexpr char programTitle[] = "Strativo";

/// Shows a message and waits for its answer. The text is shown as it stands, never as markup; each
/// of CR, LF, CR LF and LF CR is one line break. A text too long for the screen can be scrolled.
Answer ShowMessageBox(const Message& message, QWidget* parent);

/// The text with every kind of line break as one line feed.
QString WithPlainLineBreaks(const QString& text);

} // namespace strativo
