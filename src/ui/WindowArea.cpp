#include "ui/WindowArea.h"

#include "ui/ChildWindow.h"

#include <QApplication>
#include <QPainter>
#include <QRegion>
#include <QSet>

#include <algorithm>
#include <array>
#include <set>

namespace strativo {

namespace {

constexpr int cascadeStep = ChildWindow::titleHeight + ChildWindow::border;
constexpr int mostCascadeSteps = 7; // leaves the Select Material dialog uncovered
constexpr int keptUnseenFrames = 32;

} // namespace

WindowArea::WindowArea(MakeContent make, ContentSize size, QWidget* parent)
    : QWidget(parent), makeContent(std::move(make)), contentSize(std::move(size)) {
    setObjectName(QStringLiteral("WindowArea"));
    setAttribute(Qt::WA_OpaquePaintEvent); // it fills all of itself
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { FollowFocus(now); });
}

WindowArea::~WindowArea() {
    disconnect(qApp, nullptr, this, nullptr);
}

void WindowArea::Open(int id, const QString& caption) {
    Open(id, caption, CascadePosition(opened++));
}

void WindowArea::Open(int id, const QString& caption, QPoint position) {
    Child& child = children[id];
    child.caption = caption;
    child.position = position;
    child.size = ChildWindow::SizeAround(contentSize(id));
    order.push_back(id);
    changed = true;
}

void WindowArea::Close(int id) {
    const auto found = children.find(id);
    if (found == children.end())
        return;
    ReleaseFocus(found->second);
    if (found->second.frame != nullptr) {
        // Its own event may be on the way through it.
        found->second.frame->hide();
        found->second.frame->deleteLater();
    }
    FreeIconSlot(found->second);
    children.erase(found);
    order.erase(std::find(order.begin(), order.end(), id));
    if (active == id) {
        active = noWindow;
        activeClosed = true;
    }
    if (children.empty())
        opened = 0;
    changed = true;
}

void WindowArea::SetCaption(int id, const QString& caption) {
    Child& child = children.at(id);
    child.caption = caption;
    if (child.frame != nullptr)
        child.frame->SetCaption(caption);
}

QString WindowArea::Caption(int id) const {
    return children.at(id).caption;
}

void WindowArea::SetHidden(int id, bool hidden) {
    Child& child = children.at(id);
    if (child.hidden == hidden)
        return;
    child.hidden = hidden;
    changed = true;
    if (hidden && child.frame != nullptr) {
        ReleaseFocus(child);
        child.frame->hide();
    }
    if (hidden && active == id)
        ActivateTop();
    ShowVisible();
}

bool WindowArea::IsHidden(int id) const {
    return children.at(id).hidden;
}

void WindowArea::SetMinimised(int id, bool minimised) {
    Child& child = children.at(id);
    if (minimised == (child.iconSlot >= 0))
        return;
    if (minimised) {
        TakeIconSlot(child);
        Lower(id);
    } else {
        FreeIconSlot(child);
    }
    changed = true;
    if (child.frame == nullptr)
        return;
    if (minimised)
        ReleaseFocus(child);
    else
        FillFrame(id, child);
    child.frame->SetMinimised(minimised);
    PlaceFrame(child);
}

bool WindowArea::IsMinimised(int id) const {
    return children.at(id).iconSlot >= 0;
}

void WindowArea::Raise(int id) {
    order.erase(std::find(order.begin(), order.end(), id));
    order.push_back(id);
    Child& child = children.at(id);
    if (child.frame == nullptr) {
        MakeFrame(id);
        changed = true; // others may be let go for it
    }
    child.frame->raise();
    child.frame->show();
}

/// Icons lie below all windows, which they would cover otherwise.
void WindowArea::Lower(int id) {
    const auto found = std::find(order.begin(), order.end(), id);
    std::rotate(order.begin(), found, found + 1);
    if (children.at(id).frame != nullptr)
        children.at(id).frame->lower();
}

void WindowArea::SetActive(int id) {
    const auto before = children.find(active);
    if (before != children.end() && before->second.frame != nullptr)
        before->second.frame->SetActive(false);
    active = id;
    activeClosed = false;
    if (id != noWindow)
        children.at(id).frame->SetActive(true);
    emit ActiveChanged(id);
}

/// A window that goes gives up the focus first: the toolkit would hand it to whatever control comes
/// next, and so make another window active than the one that is on top.
void WindowArea::ReleaseFocus(const Child& child) {
    if (child.frame == nullptr)
        return;
    QWidget* focus = child.frame->window()->focusWidget(); // also while a box is in front
    if (child.frame->isAncestorOf(focus))
        focus->clearFocus();
}

/// Moves a window back whose title bar cannot be seen, since the area has become smaller.
void WindowArea::BringWithinReach(Child& child) {
    const QPoint wanted = ChildWindow::WithinReach(child.position, child.size, size());
    if (wanted == child.position)
        return;
    child.position = wanted;
    changed = true;
    if (child.frame != nullptr)
        PlaceFrame(child);
}

void WindowArea::Activate(int id) {
    SetHidden(id, false);
    SetMinimised(id, false);
    BringWithinReach(children.at(id));
    Raise(id);
    const bool isNew = active != id;
    if (isNew)
        SetActive(id);
    Child& child = children.at(id);
    QWidget* content = child.frame->Content();
    if (content != nullptr && !content->isAncestorOf(window()->focusWidget())) {
        // A button that is disabled by now cannot take it.
        const bool canReturn = child.lastFocus != nullptr && child.lastFocus->isEnabled();
        QWidget* focus = canReturn ? child.lastFocus.data() : content;
        focus->setFocus(Qt::OtherFocusReason);
        // An empty window takes none, and keys are not to go on to a window that is not active.
        if (!content->isEnabled() && window()->focusWidget() != nullptr)
            window()->focusWidget()->clearFocus();
    }
    ShowVisible();
}

void WindowArea::ActivateTop() {
    for (auto id = order.rbegin(); id != order.rend(); ++id) {
        const Child& child = children.at(*id);
        if (!child.hidden && child.iconSlot < 0) {
            Activate(*id);
            return;
        }
    }
    SetActive(noWindow);
}

void WindowArea::ActivateNext(bool backwards) {
    const std::vector<int> windows = Windows();
    if (windows.empty())
        return;
    const auto here = std::find(windows.begin(), windows.end(), active);
    const auto count = static_cast<std::ptrdiff_t>(windows.size());
    const auto index = here == windows.end() ? (backwards ? count : -1) : here - windows.begin();
    const auto next = (index + (backwards ? count - 1 : 1)) % count;
    Activate(windows[static_cast<std::size_t>(next)]);
}

void WindowArea::Cascade() {
    int step = 0;
    for (const int id : order) {
        Child& child = children.at(id);
        if (child.hidden || child.iconSlot >= 0)
            continue;
        child.position = CascadePosition(step++);
        if (child.frame != nullptr)
            PlaceFrame(child);
    }
    changed = true;
    ShowVisible();
}

void WindowArea::ArrangeIcons() {
    iconSlots.clear();
    lowestFreeIcon = 0;
    for (const int id : Numbered()) {
        Child& child = children.at(id);
        if (child.iconSlot < 0)
            continue;
        TakeIconSlot(child);
        if (child.frame != nullptr)
            PlaceFrame(child);
    }
    changed = true;
    ShowVisible();
}

std::vector<int> WindowArea::Windows() const {
    std::vector<int> windows = Numbered();
    const auto isHidden = [this](int id) { return IsHidden(id); };
    windows.erase(std::remove_if(windows.begin(), windows.end(), isHidden), windows.end());
    return windows;
}

/// All windows in the order in which they were numbered.
std::vector<int> WindowArea::Numbered() const {
    std::vector<int> windows = order;
    std::sort(windows.begin(), windows.end());
    return windows;
}

QWidget* WindowArea::Content(int id) const {
    const auto found = children.find(id);
    const bool exists = found != children.end() && found->second.frame != nullptr;
    return exists ? found->second.frame->Content() : nullptr;
}

int WindowArea::ExistingWindows() const {
    return static_cast<int>(std::count_if(children.begin(), children.end(), [](const auto& entry) {
        return entry.second.frame != nullptr;
    }));
}

QRect WindowArea::Geometry(const Child& child) const {
    if (child.iconSlot >= 0)
        return {IconPosition(child.iconSlot), ChildWindow::IconSize()};
    return {child.position, child.size};
}

/// Icons fill rows from the bottom left corner.
QPoint WindowArea::IconPosition(int slot) const {
    const QSize icon = ChildWindow::IconSize();
    const int perRow = std::max(1, width() / icon.width());
    return {slot % perRow * icon.width(), height() - (slot / perRow + 1) * icon.height()};
}

/// The lowest place that is free.
void WindowArea::TakeIconSlot(Child& child) {
    const auto free = std::find(iconSlots.begin() + lowestFreeIcon, iconSlots.end(), false);
    child.iconSlot = static_cast<int>(free - iconSlots.begin());
    if (free == iconSlots.end())
        iconSlots.push_back(true);
    else
        *free = true;
    lowestFreeIcon = child.iconSlot + 1;
}

void WindowArea::FreeIconSlot(Child& child) {
    if (child.iconSlot < 0)
        return;
    iconSlots[static_cast<std::size_t>(child.iconSlot)] = false;
    lowestFreeIcon = std::min(lowestFreeIcon, child.iconSlot);
    child.iconSlot = -1;
}

/// So many windows lie beside each other before the cascade starts again in its corner.
int WindowArea::CascadeSteps() const {
    const QSize window = ChildWindow::SizeAround(contentSize(1));
    const int room = std::min(width() - window.width(), height() - window.height());
    return std::clamp(room / cascadeStep + 1, 1, mostCascadeSteps);
}

QPoint WindowArea::CascadePosition(int step) const {
    const int place = step % CascadeSteps() * cascadeStep;
    return {place, place};
}

void WindowArea::MakeFrame(int id) {
    Child& child = children.at(id);
    auto* frame = new ChildWindow(id, this);
    child.frame = frame;
    frame->SetCaption(child.caption);
    frame->SetMinimised(child.iconSlot >= 0);
    if (child.iconSlot < 0)
        FillFrame(id, child);
    PlaceFrame(child);
    ConnectFrame(id, frame);
}

void WindowArea::ConnectFrame(int id, ChildWindow* frame) {
    connect(frame, &ChildWindow::Activated, this, [this, id, frame] {
        if (!frame->IsMinimised())
            Activate(id);
    });
    connect(frame, &ChildWindow::MinimiseToggled, this, [this, id] {
        if (IsMinimised(id)) {
            Activate(id);
        } else {
            SetMinimised(id, true);
            if (active == id)
                ActivateTop();
            ShowVisible();
        }
    });
    connect(frame, &ChildWindow::FirstPainted, this, &WindowArea::ShowVisible,
            Qt::QueuedConnection);
    connect(frame, &ChildWindow::CloseRequested, this, [this, id] { emit CloseRequested(id); });
    connect(frame, &ChildWindow::Moved, this, [this, id, frame] {
        if (!frame->IsMinimised())
            children.at(id).position = frame->pos();
        changed = true;
        ShowVisible();
    });
}

void WindowArea::FillFrame(int id, Child& child) {
    if (child.frame->Content() == nullptr)
        child.frame->SetContent(makeContent(id));
}

void WindowArea::PlaceFrame(Child& child) {
    child.frame->setGeometry(Geometry(child));
}

/// From the top downwards, the windows that those above leave a part of to be seen.
std::vector<int> WindowArea::SeenWindows() const {
    std::vector<int> seen;
    QRegion covered;
    std::set<std::array<int, 4>> places;
    for (auto id = order.rbegin(); id != order.rend(); ++id) {
        const Child& child = children.at(*id);
        const QRect visible = Geometry(child).intersected(rect());
        if (child.hidden || visible.isEmpty())
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

/// The user waits for the active window: others are made once it has been painted.
bool WindowArea::ActiveComesFirst() const {
    const auto found = children.find(active);
    return found != children.end() && found->second.frame != nullptr
           && !found->second.frame->WasPainted();
}

void WindowArea::ShowVisible() {
    if (!changed)
        return;
    changed = false;
    const bool othersWait = ActiveComesFirst();
    const std::vector<int> seen = SeenWindows();
    QWidget* above = nullptr;
    for (const int id : seen) {
        Child& child = children.at(id);
        if (child.frame == nullptr && othersWait) {
            changed = true;
            continue;
        }
        if (child.frame == nullptr)
            MakeFrame(id);
        if (above != nullptr)
            child.frame->stackUnder(above);
        child.frame->show();
        above = child.frame;
    }
    DropUnseenFrames(seen);
}

void WindowArea::DropUnseenFrames(const std::vector<int>& seen) {
    const QSet<int> kept(seen.begin(), seen.end());
    int unseen = 0;
    for (auto id = order.rbegin(); id != order.rend(); ++id) {
        Child& child = children.at(*id);
        if (child.frame == nullptr || kept.contains(*id) || *id <= 0 || *id == active)
            continue;
        if (++unseen <= keptUnseenFrames)
            continue;
        child.frame->hide();
        child.frame->deleteLater();
        child.frame = nullptr;
        child.lastFocus = nullptr;
    }
}

void WindowArea::FollowFocus(QWidget* now) {
    QWidget* widget = now;
    while (widget != nullptr && widget->parentWidget() != this)
        widget = widget->parentWidget();
    auto* frame = qobject_cast<ChildWindow*>(widget);
    if (frame == nullptr || children.count(frame->Id()) == 0)
        return;
    const int id = frame->Id();
    Child& child = children.at(id);
    if (child.iconSlot >= 0 || child.hidden) {
        // The toolkit gives it to what is hidden when a box closes and nothing else can be seen.
        ReleaseFocus(child);
        return;
    }
    if (frame->Content() != nullptr && frame->Content()->isAncestorOf(now))
        child.lastFocus = now;
    if (active != id) {
        Raise(id);
        SetActive(id);
    }
}

void WindowArea::resizeEvent(QResizeEvent*) {
    for (auto& [id, child] : children)
        if (child.frame != nullptr && child.iconSlot >= 0)
            PlaceFrame(child);
    changed = true;
    ShowVisible();
}

void WindowArea::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), palette().color(QPalette::Dark));
}

} // namespace strativo
