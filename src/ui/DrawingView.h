#pragma once

#include "draw/Drawing.h"

#include <QWidget>

class QPainter;
class QRectF;

namespace strativo {

/// Draws as large as fits into the place, centred at its top, but enlarged no more than `largest`
/// times.
void PaintDrawing(QPainter& painter, const Drawing& drawing, const QRectF& place, double largest);

/// A drawing on white paper, as large as fits.
class DrawingView : public QWidget {
    Q_OBJECT

public:
    explicit DrawingView(QWidget* parent);

    void Show(Drawing newDrawing);
    const Drawing& Shown() const { return drawing; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Drawing drawing;
};

} // namespace strativo
