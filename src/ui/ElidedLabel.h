#pragma once

#include <QLabel>

namespace strativo {

/// A label that draws a text of one line with its middle, or its end, left out where it has no room
/// for all of it; the text itself stays whole.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    /// It asks for room for so many characters at most.
    ElidedLabel(int mostCharacters, QWidget* parent, Qt::TextElideMode leftOut = Qt::ElideMiddle);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int longest;
    Qt::TextElideMode mode;
};

} // namespace strativo
