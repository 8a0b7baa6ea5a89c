#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace strativo {

inline constexpr int profileColumns = 11;

enum class GlassProperty { transmission = 1, absorption = 2 };

/// The glass editor's working copy of a glass type, written back only when the user accepts it. The
/// selected column belongs to the project because it outlives the editor.
struct GlassProfile {
    int glassType = 0; ///< number of the type being edited
    std::string name;  ///< as it was when the editor opened
    AngularValues transmission;
    AngularValues absorption;
    GlassProperty shown = GlassProperty::transmission;
    double dragOffset = 0; ///< drawing units from the pointer to the dragged point

    AngularValues& Shown() {
        return shown == GlassProperty::transmission ? transmission : absorption;
    }
    const AngularValues& Shown() const {
        return shown == GlassProperty::transmission ? transmission : absorption;
    }
    /// The property that is not being edited.
    const AngularValues& Other() const {
        return shown == GlassProperty::transmission ? absorption : transmission;
    }
};

/// A working copy of the current glass type.
GlassProfile OpenProfile(const Project& project);

/// Where columns and values lie in a drawing area, in its own units from the top left corner.
struct GraphGeometry {
    double width = 0;
    double height = 0;

    double ColumnStep() const { return 0.8 * width / (profileColumns - 1); }
    double ColumnX(int column) const { return column * ColumnStep(); }
    /// A value outside 0 to 1, which only a file can hold, is drawn at the edge.
    double ValueY(double value) const { return height - std::clamp(value, 0.0, 1.0) * height; }
    /// The column whose point is nearest to x; may be 0 or beyond the last column.
    int ColumnAt(double x) const;
    double ValueAt(double y) const { return (height - y) / height; }
};
inline constexpr double markerRadius = 50; ///< drawing units (twips)

/// Selects the column whose marker is under the pointer and takes hold of it; without a marker
/// there, selects none.
void PressGraph(Project& project, GlassProfile& profile, const GraphGeometry& graph, double x,
                double y);
/// Moves the marker that was taken hold of; every move marks the project as changed.
void DragGraph(Project& project, GlassProfile& profile, const GraphGeometry& graph, double y);

enum class ProfileKey { pageUp, pageDown, up, down, home, end, left, right };
/// Changes the selected value or selects another column. When no column is selected, it only
/// selects the diffuse one.
void PressProfileKey(Project& project, GlassProfile& profile, ProfileKey key);

/// Stores a typed value (limited to 0 to 1) in the selected column.
void TypeValue(Project& project, GlassProfile& profile, std::string_view text);
/// Selects the next column, as Enter does after a typed value.
void SelectNextColumn(Project& project);

/// The selected column in words; empty when none is selected.
std::string ColumnText(const Project& project, const GlassProfile& profile);
/// The selected column's value with three decimals; empty when none is selected.
std::string LevelText(const Project& project, const GlassProfile& profile);

/// A sentence listing values of the shown property that a file gave outside 0 to 1; empty when
/// there are none.
std::string OutsideText(const GlassProfile& profile);

/// Writes the profile back under the given name. If that is empty or taken by another type, a
/// message says so and the editor stays open (false).
bool AcceptProfile(Project& project, const GlassProfile& profile, std::string_view name,
                   Prompts& prompts);

/// The editor's Cancel: nothing is written back, but the whole project counts as unchanged from
/// then on, even where layers were edited.
void CancelProfile(Project& project);

} // namespace strativo
