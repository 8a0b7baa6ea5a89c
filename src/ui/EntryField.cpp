#include "ui/EntryField.h"

#include "edit/ConstructionEntry.h"
#include "ui/KeyRepeat.h"
#include "ui/Text.h"

#include <QApplication>
#include <QFocusEvent>
#include <QMenuBar>
#include <QValidator>

namespace strativo {

namespace {

/// Never rejects a text: what files could not hold is corrected at once, typed or pasted.
class EntryCorrector : public QValidator {
public:
    EntryCorrector(EntryField::Kind fieldKind, QObject* parent)
        : QValidator(parent), kind(fieldKind) {}

    State validate(QString& input, int& caret) const override {
        caret = static_cast<int>(Corrected(input.left(caret)).size());
        input = Corrected(input);
        return Acceptable;
    }

private:
    QString Corrected(const QString& text) const {
        QString corrected = ToText(CleanEntry(ToBytes(text)));
        return kind == EntryField::Kind::number
                   ? corrected.replace(QLatin1Char(','), QLatin1Char('.'))
                   : corrected;
    }

    EntryField::Kind kind;
};

/// Whether the focus moves to or from a box, a menu or another program.
bool IsAside(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason
           || reason == Qt::MenuBarFocusReason;
}

} // namespace

EntryField::EntryField(Kind kind, const QString& objectName, QWidget* parent) : QLineEdit(parent) {
    setObjectName(objectName);
    setValidator(new EntryCorrector(kind, this));
    setAcceptDrops(false);
    // A text longer than the field shows its beginning unless somebody is at its end. Qt moves the
    // caret to the end of a text that is set again, too, which is no change of the text.
    connect(this, &QLineEdit::cursorPositionChanged, this, [this] {
        if (window()->focusWidget() != this)
            setCursorPosition(0);
    });
}

EntryField::~EntryField() {
    disconnect(watch);
}

void EntryField::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !IsRepeat(*event))
        emit Entered();
    else if (event->key() == Qt::Key_Escape)
        emit Escaped();
    else if (!enter)
        QLineEdit::keyPressEvent(event);
}

void EntryField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    disconnect(watch);
    ShowFocus(true);
    if (event->reason() == Qt::MouseFocusReason)
        selectOnRelease = true;
    else if (!IsAside(event->reason()))
        selectAll();
}

void EntryField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    ShowFocus(false);
    if (IsAside(event->reason()))
        StayWatchful();
    else
        Leave();
}

void EntryField::Leave() {
    emit Left();
    setCursorPosition(0);
}

/// The focus may not come back here: a menu command or the answer to a box can move it to another
/// control.
void EntryField::StayWatchful() {
    disconnect(watch);
    watch = connect(qApp, &QApplication::focusChanged, this,
                    [this](QWidget*, QWidget* now) { FollowFocus(now); });
}

void EntryField::FollowFocus(QWidget* now) {
    if (now == nullptr || now == this || now->window() != window()
        || qobject_cast<QMenuBar*>(now) != nullptr)
        return;
    disconnect(watch);
    Leave();
}

void EntryField::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (selectOnRelease && !hasSelectedText())
        selectAll();
    selectOnRelease = false;
}

void EntryField::ShowFocus(bool focused) {
    QPalette colours;
    if (focused) {
        const QColor highlight = colours.color(QPalette::Highlight);
        colours.setColor(QPalette::Text, colours.color(QPalette::HighlightedText));
        colours.setColor(QPalette::Base, highlight);
        // Selected text must stand out against the field's own selection colour.
        colours.setColor(QPalette::Highlight, highlight.darker(160));
    }
    setPalette(colours);
}

} // namespace strativo
