#include "ui/WindowPlaces.h"

#include <algorithm>
#include <utility>

namespace strativo {

WindowPlaces::WindowPlaces(Measures frameMeasures, std::function<void()> whenChanged)
    : measures(frameMeasures), changed(std::move(whenChanged)) {}

/// Any change may free a place.
void WindowPlaces::Changed() {
    takenIsKnown = false;
    changed();
}

void WindowPlaces::Open(int id, QSize size, WindowTraits traits) {
    Open(id, size, traits.inCorner ? Corner(size) : PlaceForNew(size), traits);
}

void WindowPlaces::Open(int id, QSize size, QPoint position, WindowTraits traits) {
    records.insert_or_assign(id,
                             Record{traits, position, position, size, {}, {}, false, false, false});
    order.insert(traits.inCorner ? order.end() : BelowCorner(), id);
    remadeWindows += traits.remade ? 1 : 0;
    if (traits.inCorner)
        cornerWindows.push_back(id);
    if (takenIsKnown)
        AddTaken({position, size});
    changed();
}

void WindowPlaces::Close(int id) {
    const auto found = records.find(id);
    if (found == records.end())
        return;
    FreeIconSlot(found->second);
    remadeWindows -= found->second.traits.remade ? 1 : 0;
    if (found->second.traits.inCorner)
        cornerWindows.erase(std::find(cornerWindows.begin(), cornerWindows.end(), id));
    records.erase(found);
    order.erase(std::find(order.begin(), order.end(), id));
    if (remadeWindows == 0)
        cascaded = 0;
    Changed();
}

void WindowPlaces::SetArea(QSize size) {
    if (size == area)
        return;
    const bool isSmaller = size.width() < area.width() || size.height() < area.height();
    area = size;
    for (auto& [id, record] : records) {
        if (record.traits.inCorner && !record.moved)
            record.MoveTo(Corner(record.size));
        else if (isSmaller || record.position != record.wanted)
            record.position = Inside(record.wanted, record.size);
        record.movedIcon.reset();
    }
    if (followsArea)
        PlaceAgain();
    TakeIconSlotsAgain();
    Changed();
}

void WindowPlaces::PlaceAgain() {
    std::set<int> placed;
    for (const auto& [id, record] : records)
        if (IsShown(record) && !record.traits.inCorner && !record.moved)
            placed.insert(id);
    cascaded = 0;
    LookAtTakenPlaces(placed);
    for (const int id : placed) {
        Record& record = records.at(id);
        record.MoveTo(PlaceForNew(record.size));
        AddTaken({record.position, record.size});
    }
}

void WindowPlaces::SetHidden(int id, bool hidden) {
    if (std::exchange(records.at(id).hidden, hidden) != hidden)
        Changed();
}

void WindowPlaces::SetMinimised(int id, bool minimised) {
    Record& record = records.at(id);
    if (minimised == record.iconSlot.has_value())
        return;
    if (minimised) {
        TakeIconSlot(record);
        // Icons stay below all windows; otherwise they would cover them.
        const auto found = std::find(order.begin(), order.end(), id);
        std::rotate(order.begin(), found, found + 1);
    } else {
        FreeIconSlot(record);
    }
    Changed();
}

void WindowPlaces::Raise(int id) {
    if (!Has(id))
        return;
    Record& record = records.at(id);
    const bool isNew = !std::exchange(record.raised, true);
    const WindowTraits& traits = record.traits;
    const bool staysBelow = isNew && traits.leavesCornerInSight && !traits.inCorner;
    const auto place = staysBelow && !IsTitleBelowCorner(record) ? BelowCorner() : order.end();
    const auto found = std::find(order.begin(), order.end(), id);
    if (found + 1 == place)
        return;
    std::rotate(found, found + 1, place);
    changed();
}

/// Behind the last window that is not one shown in the corner.
std::vector<int>::iterator WindowPlaces::BelowCorner() {
    const auto isOther = [this](int id) {
        const Record& record = records.at(id);
        return !record.traits.inCorner || !IsShown(record);
    };
    return std::find_if(order.rbegin(), order.rend(), isOther).base();
}

/// Whether nothing of a window's title could be seen below a window in the corner.
bool WindowPlaces::IsTitleBelowCorner(const Record& record) const {
    const QRect title(record.position, QSize(record.size.width(), measures.title));
    const QRect inSight = title.intersected(QRect(QPoint(), area));
    return std::any_of(cornerWindows.begin(), cornerWindows.end(), [&](int id) {
        const Record& corner = records.at(id);
        return IsShown(corner) && Geometry(corner).contains(inSight);
    });
}

void WindowPlaces::Move(int id, QPoint position) {
    Record& record = records.at(id);
    const QRect before = Geometry(record);
    const QPoint place = WithinReach(position, before.size());
    if (place == before.topLeft())
        return;
    if (record.iconSlot) {
        record.movedIcon = place;
    } else {
        record.MoveTo(place);
        record.moved = true;
    }
    Changed();
}

void WindowPlaces::BringInside(int id) {
    Record& record = records.at(id);
    const QPoint place = Inside(record.position, record.size);
    if (place == record.position)
        return;
    record.MoveTo(place);
    Changed();
}

void WindowPlaces::Cascade() {
    cascaded = 0;
    for (const int id : order) {
        Record& record = records.at(id);
        if (IsShown(record) && !record.traits.inCorner)
            record.MoveTo(CascadePosition(cascaded++, record.size));
    }
    std::stable_partition(order.begin(), order.end(),
                          [this](int id) { return !records.at(id).traits.inCorner; });
    Changed();
}

void WindowPlaces::ArrangeIcons() {
    iconSlots.clear();
    lowestFreeIcon = 0;
    for (const int id : Numbered()) {
        Record& record = records.at(id);
        record.movedIcon.reset();
        if (record.iconSlot)
            TakeIconSlot(record);
    }
    Changed();
}

std::vector<int> WindowPlaces::Windows() const {
    std::vector<int> windows = Numbered();
    const auto isHidden = [this](int id) { return IsHidden(id); };
    windows.erase(std::remove_if(windows.begin(), windows.end(), isHidden), windows.end());
    return windows;
}

std::vector<int> WindowPlaces::Numbered() const {
    std::vector<int> windows = order;
    std::sort(windows.begin(), windows.end());
    return windows;
}

std::optional<int> WindowPlaces::Topmost() const {
    const auto isShown = [this](int id) { return IsShown(records.at(id)); };
    const auto top = std::find_if(order.rbegin(), order.rend(), isShown);
    return top == order.rend() ? std::nullopt : std::optional(*top);
}

std::vector<int> WindowPlaces::Seen() const {
    std::vector<int> seen;
    QRegion covered;
    std::set<Place> places;
    for (auto id = order.rbegin(); id != order.rend(); ++id) {
        const Record& record = records.at(*id);
        const QRect visible = Geometry(record).intersected(QRect(QPoint(), area));
        if (record.hidden || visible.isEmpty())
            continue;
        // Thousands of windows share the few places of a cascade, so each place is looked at once.
        const bool isNewPlace = places.insert(PlaceOf(visible)).second;
        if (!isNewPlace || (QRegion(visible) - covered).isEmpty())
            continue;
        covered += visible;
        seen.push_back(*id);
    }
    return seen;
}

QRect WindowPlaces::Geometry(const Record& record) const {
    if (!record.iconSlot)
        return {record.position, record.size};
    const QRect icon = IconGeometry(*record.iconSlot);
    return {record.movedIcon.value_or(icon.topLeft()), icon.size()};
}

/// Icons fill rows from the bottom left corner.
QRect WindowPlaces::IconGeometry(int slot) const {
    const QSize icon = measures.icon;
    const int perRow = std::max(1, area.width() / icon.width());
    return {
        QPoint(slot % perRow * icon.width(), area.height() - (slot / perRow + 1) * icon.height()),
        icon};
}

/// Keeps a part of the title bar in reach; otherwise the window could not be moved back.
QPoint WindowPlaces::WithinReach(QPoint position, QSize window) const {
    constexpr int grasp = 40; // pixels of the title bar that stay in reach
    const int left = grasp + measures.buttons - window.width();
    return {std::clamp(position.x(), left, std::max(left, area.width() - grasp)),
            std::clamp(position.y(), 0, std::max(0, area.height() - measures.title))};
}

QPoint WindowPlaces::Inside(QPoint position, QSize window) const {
    const QSize room = area - window;
    const QPoint wanted(
        std::clamp(position.x(), std::min(0, room.width()), std::max(0, room.width())),
        std::clamp(position.y(), 0, std::max(0, room.height())));
    return WithinReach(wanted, window);
}

QPoint WindowPlaces::Corner(QSize window) const {
    constexpr int gap = 8; // to the area's edges
    return {std::max(0, area.width() - window.width() - gap),
            std::max(0, area.height() - window.height() - gap)};
}

bool WindowPlaces::IsBesideCorner(QRect icon) const {
    return std::none_of(cornerWindows.begin(), cornerWindows.end(), [&](int id) {
        const Record& record = records.at(id);
        return IsShown(record) && Geometry(record).intersects(icon);
    });
}

/// The lowest free place in sight that is not covered by the window in the corner, or else the
/// lowest free one.
int WindowPlaces::FreeIconSlotNumber() const {
    const int perRow = std::max(1, area.width() / measures.icon.width());
    const int inSight = perRow * (area.height() / measures.icon.height());
    const int known = static_cast<int>(iconSlots.size());
    const auto isFree = [&](int slot) {
        return slot >= known || !iconSlots[static_cast<std::size_t>(slot)];
    };
    for (int slot = 0; slot < inSight; ++slot)
        if (isFree(slot) && IsBesideCorner(IconGeometry(slot)))
            return slot;
    return lowestFreeIcon;
}

void WindowPlaces::TakeIconSlot(Record& record) {
    const int slot = FreeIconSlotNumber();
    record.iconSlot = slot;
    const auto index = static_cast<std::size_t>(slot);
    iconSlots.resize(std::max(iconSlots.size(), index + 1));
    iconSlots[index] = true;
    const auto free = std::find(iconSlots.begin() + lowestFreeIcon, iconSlots.end(), false);
    lowestFreeIcon = static_cast<int>(free - iconSlots.begin());
}

void WindowPlaces::FreeIconSlot(Record& record) {
    if (!record.iconSlot)
        return;
    iconSlots[static_cast<std::size_t>(*record.iconSlot)] = false;
    lowestFreeIcon = std::min(lowestFreeIcon, *record.iconSlot);
    record.iconSlot.reset();
    record.movedIcon.reset();
}

/// Assigns the icons' places anew, in their present order.
void WindowPlaces::TakeIconSlotsAgain() {
    std::vector<std::pair<int, Record*>> icons;
    for (auto& [id, record] : records)
        if (record.iconSlot)
            icons.emplace_back(*record.iconSlot, &record);
    std::sort(icons.begin(), icons.end());
    iconSlots.clear();
    lowestFreeIcon = 0;
    for (const auto& [slot, record] : icons)
        TakeIconSlot(*record);
}

QPoint WindowPlaces::PlaceForNew(QSize window) {
    if (!takenIsKnown)
        LookAtTakenPlaces();
    if (const auto free = FreePlace(window))
        return *free;
    return NextOfCascade(window);
}

void WindowPlaces::LookAtTakenPlaces(const std::set<int>& exceptThose) {
    takenIsKnown = true;
    taken = {};
    takenPlaces.clear();
    sizeWithoutRoom = {};
    sizeWithoutStep = {};
    for (const auto& [id, record] : records)
        if (!record.hidden && exceptThose.count(id) == 0)
            AddTaken(Geometry(record));
}

void WindowPlaces::AddTaken(QRect place) {
    if (takenPlaces.insert(PlaceOf(place)).second)
        taken += place;
}

/// The first place, row by row, that overlaps no other window and touches the edges of others or of
/// the area.
std::optional<QPoint> WindowPlaces::FreePlace(QSize window) {
    if (window == sizeWithoutRoom)
        return std::nullopt;
    std::set<int> lefts = {0};
    std::set<int> tops = {0};
    for (const QRect& rect : taken) {
        lefts.insert(rect.x() + rect.width());
        tops.insert(rect.y() + rect.height());
    }
    for (const int top : tops)
        for (const int left : lefts) {
            const QRect place(QPoint(left, top), window);
            if (QRect(QPoint(), area).contains(place) && !taken.intersects(place))
                return place.topLeft();
        }
    sizeWithoutRoom = window;
    return std::nullopt;
}

/// The number of windows in one run of the cascade before it starts again in its corner.
int WindowPlaces::CascadeSteps(QSize window) const {
    const int room = std::min(area.width() - window.width(), area.height() - window.height());
    return std::max(1, room / measures.cascadeStep + 1);
}

QPoint WindowPlaces::CascadePosition(int step, QSize window) const {
    const int place = step % CascadeSteps(window) * measures.cascadeStep;
    return {place, place};
}

/// Prefers a place that no other window has, so that no window is covered completely.
QPoint WindowPlaces::NextOfCascade(QSize window) {
    for (int tries = CascadeSteps(window); tries > 0 && window != sizeWithoutStep; --tries) {
        const QPoint position = CascadePosition(cascaded++, window);
        if (takenPlaces.count(PlaceOf({position, window})) == 0)
            return position;
    }
    sizeWithoutStep = window;
    return CascadePosition(cascaded++, window);
}

} // namespace strativo
