#pragma once

#include "ui/WindowPlaces.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <set>
#include <unordered_map>
#include <vector>

namespace strativo {

class ChildWindow;

/// The area of the main window that holds its child windows. Thousands may be open, so the widgets
/// of one exist only once a part of it can be seen. The area owns the frames and the focus;
/// WindowPlaces knows where a window lies. After any change the area updates itself in the next
/// turn of the event loop.
class WindowArea : public QWidget {
    Q_OBJECT

public:
    /// Creates the widget inside a child window; called when the window is first seen.
    using MakeContent = std::function<QWidget*(int id)>;
    /// The size of that widget, needed before it is created.
    using ContentSize = std::function<QSize(int id)>;

    WindowArea(MakeContent makeContent, ContentSize contentSize, QWidget* parent);
    ~WindowArea() override;

    /// Adds a window on top of the others, without activating it: beside them while there is room.
    void Open(int id, const QString& caption, WindowTraits traits = {});
    /// The same in a place that it had before, as near as leaves it inside.
    void OpenAt(int id, const QString& caption, QPoint position);
    QPoint Position(int id) const { return places.Position(id); }
    void Close(int id);
    bool Has(int id) const { return places.Has(id); }

    void SetCaption(int id, const QString& caption);
    QString Caption(int id) const;
    /// What the tool tip of a window's title bar says.
    void SetTips(std::function<QString(int id)> tipOf);
    /// Marks the title bar of the window on which the active one works; noWindow: of none.
    void SetTarget(int id);
    /// Restores a window and lays it right below the active one, which stays active.
    void ShowBelowActive(int id);
    /// Text drawn where no window lies.
    void SetHint(const QString& lines);
    /// Shows or hides a window that stays open.
    void SetHidden(int id, bool hidden);
    bool IsHidden(int id) const { return places.IsHidden(id); }
    void SetMinimised(int id, bool minimised);
    bool IsMinimised(int id) const { return places.IsMinimised(id); }

    /// Activates the window: on top, restored, with the focus where it last was.
    void Activate(int id);
    /// Activates the window that was active last of those shown, or else the topmost, if any.
    void ActivateTop();
    /// Activates the next window that is not minimised, or the previous one, going round.
    void ActivateNext(bool backwards);
    /// The active window's number; noWindow when there is none.
    int Active() const { return active; }
    static constexpr int noWindow = -1000;
    /// Whether the active window was closed and no other has become active since.
    bool ActiveWasClosed() const { return activeClosed; }

    /// See WindowPlaces.
    void SetFollowsArea(bool follows) { places.SetFollowsArea(follows); }
    void Cascade() { places.Cascade(); }
    void ArrangeIcons() { places.ArrangeIcons(); }

    /// Windows that are not hidden, by number.
    std::vector<int> Windows() const { return places.Windows(); }
    /// The widget inside the window; null if it does not exist yet.
    QWidget* Content(int id) const;
    /// Number of windows whose widgets exist.
    int ExistingWindows() const;

    /// Updates at once, not in the next turn of the event loop: creates the widgets of windows that
    /// can be seen, and releases those of windows long unseen. Cheap when nothing has changed. A
    /// newly active window is made first, the other visible ones right after it.
    void ShowVisible();

signals:
    void ActiveChanged(int id);
    void CloseRequested(int id);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Child {
        QString caption;
        ChildWindow* frame = nullptr;
        QPointer<QWidget> lastFocus;
        unsigned activated = 0; ///< grows with each activation of a window
    };

    void Changed();
    static void ReleaseFocus(const Child& child);
    void GiveFocus(const Child& child);
    void Raise(int id);
    void MakeFrame(int id);
    void ConnectFrame(int id, ChildWindow* frame);
    void ShowMinimised(int id);
    void ToggleMinimised(int id);
    std::vector<int> WindowsWithFrames() const;
    void PlaceFrames(const std::vector<int>& topmostFirst);
    void SetActive(int id);
    void LetGo(const std::vector<int>& topmostFirst, const std::set<int>& seen);
    bool ActiveComesFirst() const;
    void FollowFocus(QWidget* now);

    MakeContent makeContent;
    ContentSize contentSize;
    WindowPlaces places;
    std::unordered_map<int, Child> children;
    std::function<QString(int)> tip;
    QString hint;
    int active = noWindow;
    int target = noWindow;
    unsigned activations = 0;
    bool activeClosed = false;
    bool changed = false;   ///< since the last ShowVisible
    bool lookComes = false; ///< a ShowVisible is on its way through the event loop
};

} // namespace strativo
