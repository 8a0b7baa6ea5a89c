#include "ui/HistoryKeys.h"

#include "ui/KeyRepeat.h"

#include <QApplication>
#include <QLineEdit>
#include <QShortcut>

namespace strativo {

void AddHistoryKeys(QWidget* window, const std::function<void()>& undo,
                    const std::function<void()>& redo) {
    const auto addKey = [window](QKeyCombination key, void (QLineEdit::*inField)(),
                                 const std::function<void()>& otherwise) {
        auto* shortcut = new QShortcut(QKeySequence(key), window);
        // Held down, the key would take back more than one can follow.
        ActOncePerPress(shortcut, [inField, otherwise] {
            if (auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
                (field->*inField)();
            else
                otherwise();
        });
    };
    addKey(Qt::CTRL | Qt::Key_Z, &QLineEdit::undo, undo);
    addKey(Qt::CTRL | Qt::Key_Y, &QLineEdit::redo, redo);
    addKey(Qt::CTRL | Qt::SHIFT | Qt::Key_Z, &QLineEdit::redo, redo);
}

} // namespace strativo
