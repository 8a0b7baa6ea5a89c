#include "ui/ProfileGraphAccess.h"

#include "ui/ProfileGraph.h"

#include <QAccessibleWidget>

namespace strativo {

namespace {

class GraphAccess : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit GraphAccess(ProfileGraph* shownGraph)
        : QAccessibleWidget(shownGraph, QAccessible::Slider), graph(*shownGraph) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return graph.SelectedValue(); }
    void setCurrentValue(const QVariant& value) override {
        emit graph.ValueGiven(value.toDouble());
    }
    QVariant maximumValue() const override { return 1.0; }
    QVariant minimumValue() const override { return 0.0; }
    QVariant minimumStepSize() const override { return 0.01; }

private:
    ProfileGraph& graph;
};

QAccessibleInterface* AccessTo(const QString&, QObject* object) {
    auto* graph = qobject_cast<ProfileGraph*>(object);
    return graph == nullptr ? nullptr : new GraphAccess(graph);
}

} // namespace

void MakeProfileGraphsAccessible() {
    QAccessible::installFactory(AccessTo); // installing it again changes nothing
}

} // namespace strativo
