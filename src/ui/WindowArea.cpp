#include "ui/WindowArea.h"

#include "ui/Appearance.h"
#include "ui/ChildWindow.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>
#include <iterator>
#include <utility>

namespace strativo {

namespace {

constexpr int keptUnseenFrames = 32;

} // namespace

WindowArea::WindowArea(MakeContent make, ContentSize size, QWidget* parent)
    : QWidget(parent), makeContent(std::move(make)), contentSize(std::move(size)),
      places({ChildWindow::titleHeight, ChildWindow::buttonsWidth,
              ChildWindow::titleHeight + ChildWindow::border, ChildWindow::IconSize()},
             [this] { Changed(); }) {
    setObjectName(QStringLiteral("WindowArea"));
    setAttribute(Qt::WA_OpaquePaintEvent); // it fills all of itself
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { FollowFocus(now); });
}

WindowArea::~WindowArea() {
    disconnect(qApp, nullptr, this, nullptr);
}

/// However many changes one action makes, the windows are brought up to date once.
void WindowArea::Changed() {
    changed = true;
    if (std::exchange(lookComes, true))
        return;
    const auto look = [this] {
        lookComes = false;
        ShowVisible();
    };
    QMetaObject::invokeMethod(this, look, Qt::QueuedConnection);
}

void WindowArea::Open(int id, const QString& caption, WindowTraits traits) {
    children[id].caption = caption;
    places.Open(id, ChildWindow::SizeAround(contentSize(id)), traits);
}

void WindowArea::OpenAt(int id, const QString& caption, QPoint position) {
    children[id].caption = caption;
    places.Open(id, ChildWindow::SizeAround(contentSize(id)), position);
    places.BringInside(id);
}

void WindowArea::Close(int id) {
    const auto found = children.find(id);
    if (found == children.end())
        return;
    ReleaseFocus(found->second);
    if (found->second.frame != nullptr) {
        // Deleted later, because one of its own event handlers may be running.
        found->second.frame->hide();
        found->second.frame->deleteLater();
    }
    children.erase(found);
    places.Close(id);
    if (active == id) {
        active = noWindow;
        activeClosed = true;
    }
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

void WindowArea::SetTips(std::function<QString(int)> tipOf) {
    tip = std::move(tipOf);
}

void WindowArea::SetTarget(int id) {
    const int before = std::exchange(target, id);
    for (const int either : {before, id}) {
        const auto child = children.find(either);
        if (child != children.end() && child->second.frame != nullptr)
            child->second.frame->SetTarget(either == target);
    }
}

void WindowArea::ShowBelowActive(int id) {
    SetMinimised(id, false);
    places.BringInside(id);
    Raise(id);
    if (Has(active) && active != id)
        Raise(active);
}

void WindowArea::SetHint(const QString& lines) {
    if (std::exchange(hint, lines) == lines)
        return;
    setAccessibleDescription(hint);
    update();
}

void WindowArea::SetHidden(int id, bool hidden) {
    if (IsHidden(id) == hidden)
        return;
    places.SetHidden(id, hidden);
    const Child& child = children.at(id);
    if (hidden && child.frame != nullptr) {
        ReleaseFocus(child);
        child.frame->hide();
    }
    if (hidden && active == id)
        ActivateTop();
}

void WindowArea::SetMinimised(int id, bool minimised) {
    if (minimised == IsMinimised(id))
        return;
    places.SetMinimised(id, minimised);
    if (children.at(id).frame != nullptr)
        ShowMinimised(id);
}

/// Makes a frame match its record.
void WindowArea::ShowMinimised(int id) {
    const Child& child = children.at(id);
    const bool minimised = IsMinimised(id);
    if (minimised)
        ReleaseFocus(child);
    else if (child.frame->Content() == nullptr)
        child.frame->SetContent(makeContent(id));
    child.frame->SetMinimised(minimised);
    child.frame->setGeometry(places.Geometry(id));
}

void WindowArea::Raise(int id) {
    places.Raise(id);
    if (children.at(id).frame == nullptr) {
        MakeFrame(id);
        Changed(); // another frame may be released in exchange
    }
    ChildWindow* frame = children.at(id).frame;
    frame->setGeometry(places.Geometry(id));
    const std::vector<int> topmostFirst = WindowsWithFrames();
    const auto found = std::find(topmostFirst.begin(), topmostFirst.end(), id);
    if (found == topmostFirst.begin())
        frame->raise();
    else
        frame->stackUnder(children.at(*(found - 1)).frame);
    frame->show();
}

void WindowArea::SetActive(int id) {
    const auto before = children.find(active);
    if (before != children.end() && before->second.frame != nullptr)
        before->second.frame->SetActive(false);
    active = id;
    activeClosed = false;
    if (id != noWindow) {
        children.at(id).activated = ++activations;
        children.at(id).frame->SetActive(true);
    }
    emit ActiveChanged(id);
}

/// A window that disappears gives up the focus first. Otherwise Qt would hand it to an arbitrary
/// control and so activate another window than the topmost one.
void WindowArea::ReleaseFocus(const Child& child) {
    if (child.frame == nullptr)
        return;
    QWidget* focus = child.frame->window()->focusWidget(); // also while a box is in front
    if (child.frame->isAncestorOf(focus))
        focus->clearFocus();
}

void WindowArea::GiveFocus(const Child& child) {
    QWidget* content = child.frame->Content();
    if (content == nullptr || content->isAncestorOf(window()->focusWidget()))
        return;
    // The last control may have been disabled since.
    const bool canReturn = child.lastFocus != nullptr && child.lastFocus->isEnabled();
    QWidget* focus = canReturn ? child.lastFocus.data() : content;
    focus->setFocus(Qt::OtherFocusReason);
    // An empty window cannot take the focus; without this, keys would go on to an inactive window.
    if (!content->isEnabled() && window()->focusWidget() != nullptr)
        window()->focusWidget()->clearFocus();
}

void WindowArea::Activate(int id) {
    SetHidden(id, false);
    SetMinimised(id, false);
    places.BringInside(id);
    Raise(id);
    if (active != id)
        SetActive(id);
    GiveFocus(children.at(id));
}

void WindowArea::ActivateTop() {
    const auto top = places.Topmost();
    if (!top) {
        SetActive(noWindow);
        return;
    }
    int latest = *top;
    for (const int id : Windows())
        if (!IsMinimised(id) && children.at(id).activated > children.at(latest).activated)
            latest = id;
    Activate(latest);
}

void WindowArea::ActivateNext(bool backwards) {
    std::vector<int> windows = Windows();
    const auto isIcon = [this](int id) { return IsMinimised(id); };
    windows.erase(std::remove_if(windows.begin(), windows.end(), isIcon), windows.end());
    if (windows.empty())
        return;
    const auto here = std::find(windows.begin(), windows.end(), active);
    const auto count = static_cast<std::ptrdiff_t>(windows.size());
    const auto index = here == windows.end() ? (backwards ? count : -1) : here - windows.begin();
    const auto next = (index + (backwards ? count - 1 : 1)) % count;
    Activate(windows[static_cast<std::size_t>(next)]);
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

void WindowArea::MakeFrame(int id) {
    Child& child = children.at(id);
    child.frame = new ChildWindow(id, this);
    child.frame->SetCaption(child.caption);
    child.frame->SetTarget(id == target);
    child.frame->SetTip([this, id] { return tip != nullptr ? tip(id) : Caption(id); });
    ShowMinimised(id);
    ConnectFrame(id, child.frame);
}

void WindowArea::ConnectFrame(int id, ChildWindow* frame) {
    connect(frame, &ChildWindow::Activated, this, [this, id, frame] {
        if (!frame->IsMinimised())
            Activate(id);
    });
    connect(frame, &ChildWindow::MinimiseToggled, this, [this, id] { ToggleMinimised(id); });
    connect(frame, &ChildWindow::FirstPainted, this, &WindowArea::ShowVisible,
            Qt::QueuedConnection);
    connect(frame, &ChildWindow::CloseRequested, this, [this, id] { emit CloseRequested(id); });
    connect(frame, &ChildWindow::MoveWanted, this, [this, id, frame](QPoint position) {
        places.Move(id, position);
        frame->move(places.Geometry(id).topLeft()); // at once: it follows the pointer
    });
}

void WindowArea::ToggleMinimised(int id) {
    if (IsMinimised(id)) {
        Activate(id);
        return;
    }
    SetMinimised(id, true);
    if (active == id)
        ActivateTop();
}

/// The user is waiting for the active window, so the others are made after it has been painted.
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
    const std::vector<int> seen = places.Seen();
    for (const int id : seen) {
        const bool isMissing = children.at(id).frame == nullptr;
        if (isMissing && othersWait)
            changed = true;
        else if (isMissing)
            MakeFrame(id);
    }
    const std::vector<int> existing = WindowsWithFrames();
    PlaceFrames(existing);
    for (const int id : seen)
        if (ChildWindow* frame = children.at(id).frame; frame != nullptr)
            frame->show();
    LetGo(existing, {seen.begin(), seen.end()});
}

std::vector<int> WindowArea::WindowsWithFrames() const {
    std::vector<int> windows;
    std::copy_if(places.Order().rbegin(), places.Order().rend(), std::back_inserter(windows),
                 [this](int id) { return children.at(id).frame != nullptr; });
    return windows;
}

void WindowArea::PlaceFrames(const std::vector<int>& topmostFirst) {
    QWidget* above = nullptr;
    for (const int id : topmostFirst) {
        ChildWindow* frame = children.at(id).frame;
        frame->setGeometry(places.Geometry(id));
        // Qt paints a frame again even when it is put where it lies already.
        if (above != nullptr
            && QObject::children().indexOf(frame) > QObject::children().indexOf(above))
            frame->stackUnder(above);
        above = frame;
    }
}

/// Releases the frames that have gone unseen for longest.
void WindowArea::LetGo(const std::vector<int>& topmostFirst, const std::set<int>& seen) {
    int unseen = 0;
    for (const int id : topmostFirst) {
        Child& child = children.at(id);
        const bool stays = seen.count(id) != 0 || !places.MayLetGo(id) || id == active;
        if (stays || ++unseen <= keptUnseenFrames)
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
    if (IsMinimised(id) || IsHidden(id)) {
        // Qt gives the focus to a hidden window when a box closes and nothing else can be seen.
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
    places.SetArea(size());
}

void WindowArea::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor ground = palette().color(QPalette::Dark);
    painter.fillRect(rect(), ground);
    if (hint.isEmpty())
        return;
    painter.setPen(Readable(palette().color(QPalette::Light), ground));
    // Select Material lies at the bottom.
    painter.drawText(QRect(0, 0, width(), height() * 2 / 3).adjusted(16, 16, -16, -16),
                     Qt::AlignCenter | Qt::TextWordWrap, hint);
}

} // namespace strativo
