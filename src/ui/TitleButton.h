#pragma once

#include <QColor>
#include <QToolButton>

namespace strativo {

/// A button in a window's title bar, drawn in the bar's own colours. The style's buttons do not
/// know these, so that their highlight under the pointer can swallow the sign.
class TitleButton : public QToolButton {
    Q_OBJECT

public:
    enum class Sign { minimise, restore, close };

    explicit TitleButton(QWidget* parent);

    void Show(Sign newSign, const QColor& newColour, const QColor& newBar);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor Background() const;

    Sign sign = Sign::close;
    QColor colour;
    QColor bar;
};

} // namespace strativo
