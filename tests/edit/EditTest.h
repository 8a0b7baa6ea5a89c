#pragma once

#include "edit/ConstructionEntry.h"
#include "support/TestProject.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace strativo {

/// A started project with constructions whose layers are named by single letters.
class EditTest : public testing::Test {
protected:
    EditTest() { prompts.calls.clear(); }

    /// A new construction with a layer for each letter, layer 1 current; returns its number.
    int Add(const std::string& letters) {
        std::vector<std::string> names;
        for (const char letter : letters)
            names.emplace_back(1, letter);
        const int number = AddConstruction(project, names);
        prompts.calls.clear();
        return number;
    }
    /// A click on a layer of the current construction: it alone is marked, and current.
    void Click(int layer) {
        std::vector<bool> marks(static_cast<std::size_t>(layer), false);
        marks.back() = true;
        SelectLine(project, project.currentConstruction, layer - 1, marks);
    }
    Construction& Current() { return project.constructions[project.currentConstruction]; }
    std::string Names() const { return LayerNames(project, project.currentConstruction); }
    int CurrentLayer() const {
        return project.constructions[project.currentConstruction].currentLayer;
    }
    std::vector<int> Marks() const { return MarkedLayers(project, project.currentConstruction); }

    /// Fills the clipboard with an entry for each letter; a point is an empty one.
    void Clip(const std::string& letters) {
        project.clipboard = LayerClipboard();
        int slot = 0;
        for (const char letter : letters)
            project.clipboard[++slot].name = letter == '.' ? "" : std::string(1, letter);
    }
    /// The clipboard in that form, empty entries at the end left out.
    std::string ClipNames() const {
        std::string names;
        for (const ClipEntry& entry : project.clipboard)
            names += entry.name.empty() ? "." : entry.name;
        return names.substr(0, names.find_last_not_of('.') + 1);
    }

    ScriptedPrompts prompts;
    Project project;
};

using Layers = std::vector<int>;

} // namespace strativo
