#pragma once

#include "desktop/Story.h"
#include "ui/ProfileGraph.h"

#include <QListWidget>

namespace strativo {

/// Stories with glass types: their window and their editor.
class GlassWindows : public Story {
protected:
    void OpenGlassTypes() {
        Start();
        ChooseMenu("Editmenu", "EditWin");
    }

    void AddType() {
        Click(PlaceOf(glass, "Addbut"));
        WaitForBox("Glass Properties");
    }

    /// Where the graph shows a value of a column.
    QPoint PointOf(int column, double value) {
        return InGui([&] {
            const auto* graph = qobject_cast<ProfileGraph*>(Control(box, "Graph"));
            return graph->mapToGlobal(graph->PointOf(column, value).toPoint());
        });
    }

    std::vector<std::string> Names() {
        return InGui([&] {
            const auto* list = qobject_cast<QListWidget*>(Control(glass, "WinList"));
            std::vector<std::string> names;
            for (int line = 0; line < list->count(); ++line)
                names.push_back(list->item(line)->text().toStdString());
            return names;
        });
    }

    void ClickName(int line) {
        Click(InGui([&] {
            const auto* list = qobject_cast<QListWidget*>(Control(glass, "WinList"));
            return list->viewport()->mapToGlobal(list->visualItemRect(list->item(line)).center());
        }));
    }
};

} // namespace strativo
