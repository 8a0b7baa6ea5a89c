#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// What became of an entry ended by Enter.
enum class EntryResult {
    nothing, ///< there is no layer to take it
    refused, ///< the stored value is kept, the typed text stays for correction
    accepted
};

/// Stores a typed thickness (mm; a resistance for a type 3 cavity) in the current layer, after
/// asking where it is unlikely, and moves on to the next layer, which alone is then marked.
EntryResult EnterThickness(Project& project, int number, std::string_view text, Prompts& prompts);

/// Stores a typed absorption in the current layer, whatever its range.
EntryResult EnterAbsorption(Project& project, int number, std::string_view text, Prompts& prompts);

// Name, type and absorption do not mark the project as changed; its users know it so.
void EnterName(Project& project, int number, std::string_view text);
void ChangeType(Project& project, int number, int typeIndex);

/// Makes a line of the layer list (from 0; -1 none) the current layer and takes over the marks.
void SelectLine(Project& project, int number, int line, const std::vector<bool>& marks);

/// Typed or pasted text for a name: control characters become one blank each.
std::string CleanEntry(std::string_view text);

/// The character starts a thickness entry anywhere in the window: a digit or a point.
bool StartsThicknessEntry(std::string_view keyText);

} // namespace strativo
