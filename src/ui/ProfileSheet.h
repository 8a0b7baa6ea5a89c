#pragma once

#include "model/GlassType.h"

#include <QWidget>

namespace strativo {

class ProfileGraph;

/// The sheet of paper that the glass editor's graph lies on, with the figures and names of its
/// axes.
class ProfileSheet : public QWidget {
    Q_OBJECT

public:
    explicit ProfileSheet(QWidget* parent);

    ProfileGraph* Graph() const { return graph; }
    void Show(const AngularValues& values, const AngularValues& others, int selectedColumn,
              const QString& newValueName);
    /// Makes the graph lower by so many pixels, as far as its points can still be dragged.
    void LowerBy(int pixels);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void DrawValueAxis(QPainter& painter) const;
    void DrawAngleAxis(QPainter& painter) const;
    void PassToGraph(const QMouseEvent& event) const;

    ProfileGraph* graph;
    QString valueName;
};

} // namespace strativo
