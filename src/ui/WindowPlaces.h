#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

namespace strativo {

/// What a window in the area lets others do with it.
struct WindowTraits {
    bool remade = true;   ///< its content can be made anew, so its widgets may be let go unseen
    bool cascades = true; ///< Cascade gives it a place
};

/// Where the windows of the main window's area lie and which of them can be seen: numbered records
/// of places in pixels of the area, without any widget. It reports each change by itself. Functions
/// that take a number throw std::out_of_range for a window that is not open, unless they say
/// otherwise.
class WindowPlaces {
public:
    /// The sizes of a frame's parts, in pixels.
    struct Measures {
        int title;       ///< height of the title bar
        int cascadeStep; ///< from one place of the cascade to the next, right and down
        QSize icon;      ///< a minimised window
    };

    /// `whenChanged` is called after each change of what Geometry, Seen or Order return.
    WindowPlaces(Measures frameMeasures, std::function<void()> whenChanged);

    /// Opens a window on top of the others; the next place of the cascade unless one is given.
    void Open(int id, QSize size, WindowTraits traits = {});
    void Open(int id, QSize size, QPoint position, WindowTraits traits = {});
    /// Nothing for a window that is not open.
    void Close(int id);
    bool Has(int id) const { return records.count(id) != 0; }
    bool MayLetGo(int id) const { return records.at(id).traits.remade; }

    void SetArea(QSize size);
    void SetHidden(int id, bool hidden);
    bool IsHidden(int id) const { return records.at(id).hidden; }
    /// A minimised window is an icon below all windows, in the lowest free place of the bottom.
    void SetMinimised(int id, bool minimised);
    bool IsMinimised(int id) const { return records.at(id).iconSlot.has_value(); }
    void Raise(int id);
    /// Moves a window or an icon there, or as near as leaves its title within reach.
    void Move(int id, QPoint position);
    /// Moves a window back whose title is out of reach since the area has become smaller.
    void BringWithinReach(int id);
    /// Gives the windows places from the top left corner on, from the lowest to the topmost.
    void Cascade();
    void ArrangeIcons();

    QRect Geometry(int id) const { return Geometry(records.at(id)); }
    /// All windows from the bottom to the top.
    const std::vector<int>& Order() const { return order; }
    /// The windows that are not hidden, by number.
    std::vector<int> Windows() const;
    /// The topmost window that is neither hidden nor minimised, if there is one.
    std::optional<int> Topmost() const;
    /// From the top downwards, the windows that those above leave a part of to be seen.
    std::vector<int> Seen() const;

private:
    struct Record {
        WindowTraits traits;
        QPoint position;
        QSize size;
        std::optional<int> iconSlot;     ///< place among the icons, while minimised
        std::optional<QPoint> movedIcon; ///< where the icon was dragged to
        bool hidden = false;
    };

    static bool IsShown(const Record& record) { return !record.hidden && !record.iconSlot; }
    QRect Geometry(const Record& record) const;
    QPoint IconPosition(int slot) const;
    QPoint WithinReach(QPoint position, QSize window) const;
    void TakeIconSlot(Record& record);
    void FreeIconSlot(Record& record);
    int CascadeSteps(QSize window) const;
    QPoint CascadePosition(int step, QSize window) const;
    std::vector<int> Numbered() const;

    Measures measures;
    std::function<void()> changed;
    QSize area;
    std::unordered_map<int, Record> records;
    std::vector<int> order;      ///< from the bottom to the top
    std::vector<bool> iconSlots; ///< places among the icons that are taken
    int lowestFreeIcon = 0;      ///< no place below it is free
    int opened = 0;              ///< counts the places of the cascade given out
};

} // namespace strativo
