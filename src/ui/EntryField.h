#pragma once

#include <QLineEdit>

namespace strativo {

/// A text field whose entry is completed with Enter; leaving it any other way restores the stored
/// text. With the focus it is drawn in the selection colours, at first with all text selected.
class EntryField : public QLineEdit {
    Q_OBJECT

public:
    enum class Kind {
        name,  ///< letters outside Windows-1252 become "?", control characters blanks
        number ///< the same, and a comma becomes a point
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
    void Leave();
    void StayWatchful();
    void FollowFocus(QWidget* now);

    bool selectOnRelease = false;
    QMetaObject::Connection watch; ///< while the focus is at a box, a menu or another program
};

} // namespace strativo
