#include "ui/WindowPlaces.h"

#include <QRegion>

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace strativo {

WindowPlaces::WindowPlaces(Measures frameMeasures, std::function<void()> whenChanged)
    : measures(frameMeasures), changed(std::move(whenChanged)) {}

void WindowPlaces::Open(int id, QSize size, WindowTraits traits) {
    Open(id, size, CascadePosition(opened++, size), traits);
}

void WindowPlaces::Open(int id, QSize size, QPoint position, WindowTraits traits) {
    records.insert_or_assign(id, Record{traits, position, size, {}, {}, false});
    order.push_back(id);
    changed();
}

void WindowPlaces::Close(int id) {
    const auto found = records.find(id);
    if (found == records.end())
        return;
    FreeIconSlot(found->second);
    records.erase(found);
    order.erase(std::find(order.begin(), order.end(), id));
    if (records.empty())
        opened = 0;
    changed();
}

void WindowPlaces::SetArea(QSize size) {
    if (size == area)
        return;
    area = size;
    for (auto& [id, record] : records)
        record.movedIcon.reset();
    changed();
}

void WindowPlaces::SetHidden(int id, bool hidden) {
    if (std::exchange(records.at(id).hidden, hidden) != hidden)
        changed();
}

void WindowPlaces::SetMinimised(int id, bool minimised) {
    Record& record = records.at(id);
    if (minimised == record.iconSlot.has_value())
        return;
    if (minimised) {
        TakeIconSlot(record);
        // Icons lie below all windows, which they would cover otherwise.
        const auto found = std::find(order.begin(), order.end(), id);
        std::rotate(order.begin(), found, found + 1);
    } else {
        FreeIconSlot(record);
    }
    changed();
}

void WindowPlaces::Raise(int id) {
    if (!Has(id) || order.back() == id)
        return;
    const auto found = std::find(order.begin(), order.end(), id);
    std::rotate(found, found + 1, order.end());
    changed();
}

void WindowPlaces::Move(int id, QPoint position) {
    Record& record = records.at(id);
    const QRect before = Geometry(record);
    const QPoint place = WithinReach(position, before.size());
    if (place == before.topLeft())
        return;
    if (record.iconSlot)
        record.movedIcon = place;
    else
        record.position = place;
    changed();
}

void WindowPlaces::BringWithinReach(int id) {
    Move(id, Geometry(id).topLeft());
}

void WindowPlaces::Cascade() {
    int step = 0;
    for (const int id : order) {
        Record& record = records.at(id);
        if (IsShown(record) && record.traits.cascades)
            record.position = CascadePosition(step++, record.size);
    }
    changed();
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
    changed();
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
    std::set<std::array<int, 4>> places;
    for (auto id = order.rbegin(); id != order.rend(); ++id) {
        const Record& record = records.at(*id);
        const QRect visible = Geometry(record).intersected(QRect(QPoint(), area));
        if (record.hidden || visible.isEmpty())
            continue;
        // Thousands of windows share the few places of the cascade; one look at each is enough.
        const bool isNewPlace =
            places.insert({visible.x(), visible.y(), visible.width(), visible.height()}).second;
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
    return {record.movedIcon.value_or(IconPosition(*record.iconSlot)), measures.icon};
}

/// Icons fill rows from the bottom left corner.
QPoint WindowPlaces::IconPosition(int slot) const {
    const QSize icon = measures.icon;
    const int perRow = std::max(1, area.width() / icon.width());
    return {slot % perRow * icon.width(), area.height() - (slot / perRow + 1) * icon.height()};
}

QPoint WindowPlaces::WithinReach(QPoint position, QSize window) const {
    constexpr int grasp = 40; // of the title bar, to take hold of
    return {std::clamp(position.x(), grasp - window.width(), std::max(0, area.width() - grasp)),
            std::clamp(position.y(), 0, std::max(0, area.height() - measures.title))};
}

void WindowPlaces::TakeIconSlot(Record& record) {
    const auto free = std::find(iconSlots.begin() + lowestFreeIcon, iconSlots.end(), false);
    const auto slot = static_cast<int>(free - iconSlots.begin());
    record.iconSlot = slot;
    if (free == iconSlots.end())
        iconSlots.push_back(true);
    else
        *free = true;
    lowestFreeIcon = slot + 1;
}

void WindowPlaces::FreeIconSlot(Record& record) {
    if (!record.iconSlot)
        return;
    iconSlots[static_cast<std::size_t>(*record.iconSlot)] = false;
    lowestFreeIcon = std::min(lowestFreeIcon, *record.iconSlot);
    record.iconSlot.reset();
    record.movedIcon.reset();
}

/// So many windows lie beside each other before the cascade starts again in its corner.
int WindowPlaces::CascadeSteps(QSize window) const {
    const int room = std::min(area.width() - window.width(), area.height() - window.height());
    return std::max(1, room / measures.cascadeStep + 1);
}

QPoint WindowPlaces::CascadePosition(int step, QSize window) const {
    const int place = step % CascadeSteps(window) * measures.cascadeStep;
    return {place, place};
}

} // namespace strativo
