#pragma once

#include <QLineEdit>

namespace strativo {

/// A text field whose entry is ended by Enter; leaving it otherwise restores what is stored. It is
/// drawn in the selection colours while it has the focus, all text selected at first.
class EntryField : public QLineEdit {
    Q_OBJECT

public:
    enum class Kind {
        name,  ///< letters outside Windows-1252 become "?", control characters blanks
        number ///< as well, and a comma becomes a point
    };

    EntryField(Kind kind, const QString& objectName, QWidget* parent);
    ~EntryField() override;

signals:
    void Entered();
    void Escaped();
    /// The focus went to another control of the program, not to a box, a menu or another program.
    void Left();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void ShowFocus(bool focused);
    void StayWatchful();
    void FollowFocus(QWidget* now);

    bool selectOnRelease = false;
    QMetaObject::Connection watch; ///< while the focus is at a box, a menu or another program
};

} // namespace strativo
