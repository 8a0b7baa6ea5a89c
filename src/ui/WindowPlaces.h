#pragma once

#include <QPoint>
#include <QRect>
#include <QRegion>
#include <QSize>

#include <array>
#include <functional>
#include <optional>
#include <set>
#include <unordered_map>
#include <vector>

namespace strativo {

/// What may be done with a window in the area.
struct WindowTraits {
    bool remade =
        true; ///< its content can be recreated, so its widgets may be released while unseen
    bool inCorner = false;           ///< lies in the bottom right corner, which others avoid
    bool leavesCornerInSight = true; ///< as long as it is new, it lies below the one in the corner
};

/// Keeps where the windows of the main window's area lie and which of them can be seen: numbered
/// records with places in pixels of the area, without any widget. It reports every change by
/// itself. Functions that take a number throw std::out_of_range for a window that is not open,
/// unless they say otherwise.
class WindowPlaces {
public:
    /// The sizes of a frame's parts, in pixels.
    struct Measures {
        int title;       ///< height of the title bar
        int buttons;     ///< width of its right end, where the buttons prevent dragging
        int cascadeStep; ///< offset from one place of the cascade to the next, to the right and
                         ///< down
        QSize icon;      ///< a minimised window
    };

    /// `whenChanged` is called after each change of what Geometry, Seen or Order return.
    WindowPlaces(Measures frameMeasures, std::function<void()> whenChanged);

    /// Opens a window on top of the others: in the first place beside them if there is room,
    /// otherwise in the next place of the cascade.
    void Open(int id, QSize size, WindowTraits traits = {});
    void Open(int id, QSize size, QPoint position, WindowTraits traits = {});
    /// Nothing for a window that is not open.
    void Close(int id);
    bool Has(int id) const { return records.count(id) != 0; }
    bool MayLetGo(int id) const { return records.at(id).traits.remade; }

    /// When the area shrinks, windows are brought inside; when it grows again, they return as far
    /// as they then lie inside. The one in the corner stays in the corner until the user moves it.
    void SetArea(QSize size);
    /// As long as it holds, a new size of the area gives windows the places that they would have
    /// been opened in, had it been so from the start.
    void SetFollowsArea(bool follows) { followsArea = follows; }
    void SetHidden(int id, bool hidden);
    bool IsHidden(int id) const { return records.at(id).hidden; }
    /// A minimised window becomes an icon below all windows, in the lowest free place, avoiding the
    /// window in the corner if there is room.
    void SetMinimised(int id, bool minimised);
    bool IsMinimised(int id) const { return records.at(id).iconSlot.has_value(); }
    /// On top of the others; a window not raised since it was opened, below the one in the corner
    /// that it leaves in sight, unless that would cover its title.
    void Raise(int id);
    /// Moves a window or an icon there, or as near as keeps its title within reach.
    void Move(int id, QPoint position);
    /// Moves a window inside the area: all of it if it fits, otherwise its title.
    void BringInside(int id);
    /// Cascades the windows from the top left corner, the lowest first. The one in the corner stays
    /// there, on top of them.
    void Cascade();
    void ArrangeIcons();

    /// Where the window lies, or will once it is no icon any more.
    QPoint Position(int id) const { return records.at(id).position; }
    QRect Geometry(int id) const { return Geometry(records.at(id)); }
    /// All windows, lowest first.
    const std::vector<int>& Order() const { return order; }
    /// The windows that are not hidden, by number.
    std::vector<int> Windows() const;
    /// The topmost window that is neither hidden nor minimised, if there is one.
    std::optional<int> Topmost() const;
    /// The windows of which some part can be seen, topmost first.
    std::vector<int> Seen() const;

private:
    struct Record {
        /// Lets the window lie there, also once the area has shrunk and grown again.
        void MoveTo(QPoint place) { position = wanted = place; }

        WindowTraits traits;
        QPoint position;
        QPoint wanted; ///< the position, but for an area that became too small
        QSize size;
        std::optional<int> iconSlot;     ///< place among the icons, while minimised
        std::optional<QPoint> movedIcon; ///< where the icon was dragged to
        bool hidden = false;
        bool moved = false;  ///< by its user
        bool raised = false; ///< since it was opened
    };
    /// Left, top, width and height of a place.
    using Place = std::array<int, 4>;

    static bool IsShown(const Record& record) { return !record.hidden && !record.iconSlot; }
    static Place PlaceOf(QRect rect) { return {rect.x(), rect.y(), rect.width(), rect.height()}; }
    void Changed();
    QRect Geometry(const Record& record) const;
    QRect IconGeometry(int slot) const;
    QPoint WithinReach(QPoint position, QSize window) const;
    QPoint Inside(QPoint position, QSize window) const;
    QPoint Corner(QSize window) const;
    bool IsBesideCorner(QRect icon) const;
    void TakeIconSlot(Record& record);
    int FreeIconSlotNumber() const;
    void FreeIconSlot(Record& record);
    void TakeIconSlotsAgain();
    void PlaceAgain();
    std::vector<int>::iterator BelowCorner();
    bool IsTitleBelowCorner(const Record& record) const;
    QPoint PlaceForNew(QSize window);
    std::optional<QPoint> FreePlace(QSize window);
    void LookAtTakenPlaces(const std::set<int>& exceptThose = {});
    void AddTaken(QRect place);
    int CascadeSteps(QSize window) const;
    QPoint CascadePosition(int step, QSize window) const;
    QPoint NextOfCascade(QSize window);
    std::vector<int> Numbered() const;

    Measures measures;
    std::function<void()> changed;
    QSize area{0, 0};
    std::unordered_map<int, Record> records;
    std::vector<int> order; ///< from the bottom to the top
    std::vector<int> cornerWindows;
    std::vector<bool> iconSlots; ///< places among the icons that are taken
    int lowestFreeIcon = 0;      ///< no place below it is free
    bool followsArea = false;
    int remadeWindows = 0;
    int cascaded = 0; ///< counts the places of the cascade given out

    // What opening thousands of windows must not look at each time.
    bool takenIsKnown = false;
    QRegion taken;               ///< the part of the area that windows and icons cover
    std::set<Place> takenPlaces; ///< each place once, however many windows share it
    QSize sizeWithoutRoom;       ///< for a window of this size there is no free place
    QSize sizeWithoutStep;       ///< nor any place of the cascade
};

} // namespace strativo
