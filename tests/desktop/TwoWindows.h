#pragma once

#include "desktop/Story.h"

#include <string>
#include <vector>

namespace strativo {

// Part lines of the stories' materials, by the slot.
inline std::string FaceBrick(int slot) {
    return "_ " + std::to_string(slot) + " =       12      0.105      0            * FACE BRICK";
}
inline std::string Block(int slot) {
    return "_ " + std::to_string(slot) + " =       20      0.100      0            * BLOCK";
}
inline std::string Plaster(int slot) {
    return "_ " + std::to_string(slot) + " =       30      0.013      0            * PLASTER";
}
inline std::string Insulation(int slot) {
    return "_ " + std::to_string(slot) + " =       41      0.080      0            * INSULATION";
}

/// A construction file with two opaque constructions of these part lines.
inline std::string Pair(const std::vector<std::string>& first,
                        const std::vector<std::string>& second) {
    return Lines({"!MATERIALS FILE = '../stdmat.lby'", ""})
           + Lines({"!CONSTRUCTION 'First'", "!TYPE OPAQUE", "!PARTS"}) + Lines(first)
           + Lines({"!END", ""}) + Lines({"!CONSTRUCTION 'Second'", "!TYPE OPAQUE", "!PARTS"})
           + Lines(second) + Lines({"!END", ""});
}

/// Stories of a file with two constructions, whose windows lie side by side.
class TwoWindows : public Story {
protected:
    void Open() { OpenWith(Pair({FaceBrick(1), Block(2), Plaster(3)}, {Insulation(1)})); }

    void OpenWith(const std::string& bytes) {
        Write("pair.con", bytes);
        Start(PathOf("pair.con"));
        MoveWindow(2, QPoint(560, 0));
    }
};

} // namespace strativo
