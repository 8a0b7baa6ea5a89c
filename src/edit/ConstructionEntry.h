#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// The outcome of an entry that was ended with Enter.
enum class EntryResult {
    nothing, ///< there is no layer to take it
    refused, ///< the stored value is kept, the typed text stays for correction
    accepted
};

/// Stores a typed thickness (mm; a resistance for a type 3 cavity) in the current layer, asking
/// first when the value is unlikely, and moves on to the next layer, which is then the only one
/// marked.
EntryResult EnterThickness(Project& project, int number, std::string_view text, Prompts& prompts);

/// Stores a typed absorption (a fraction) in the current layer, without checking its range.
EntryResult EnterAbsorption(Project& project, int number, std::string_view text, Prompts& prompts);

// Unlike thickness, name, type and absorption do not mark the project as changed. This is intended;
// users rely on it.

/// Stores a typed name, cleaned by CleanEntry. It may be empty and need not be unique.
void EnterName(Project& project, int number, std::string_view text);
/// Stores a type: 0 opaque, 1 transparent.
void ChangeType(Project& project, int number, int typeIndex);

/// Makes a line of the layer list (from 0; -1 for none) the current layer and stores the marks.
void SelectLine(Project& project, int number, int line, const std::vector<bool>& marks);

/// Typed or pasted text as a name can hold it: each control character becomes a blank.
std::string CleanEntry(std::string_view text);

/// Whether typing this anywhere in the window starts a thickness entry: a digit or a point.
bool StartsThicknessEntry(std::string_view keyText);

} // namespace strativo
