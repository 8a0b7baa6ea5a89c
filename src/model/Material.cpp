#include "model/Material.h"

namespace strativo {

int MaterialCount(const MaterialLibrary& library) {
    int slot = 1;
    while (slot <= MaterialLibrary::last && library[slot].name != endOfLibrary)
        ++slot;
    return slot - 1;
}

MaterialLibrary EmptyLibrary() {
    MaterialLibrary library;
    library[1].name = endOfLibrary;
    return library;
}

} // namespace strativo
