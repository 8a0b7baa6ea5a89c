#pragma once

#include <QPointer>
#include <QWidget>

#include <functional>
#include <unordered_map>
#include <vector>

namespace strativo {

class ChildWindow;

/// The area of the main window in which its child windows lie. Thousands of them can be open: a
/// child is a light record, and its widgets exist only once a part of it can be seen.
class WindowArea : public QWidget {
    Q_OBJECT

public:
    /// Makes the widget inside a child window; called when the window is first seen.
    using MakeContent = std::function<QWidget*(int id)>;
    /// The size of that widget, asked for without making it.
    using ContentSize = std::function<QSize(int id)>;

    WindowArea(MakeContent makeContent, ContentSize contentSize, QWidget* parent);
    ~WindowArea() override;

    /// Adds a window on top of the others, without activating it; the next place of the cascade,
    /// unless one is given.
    void Open(int id, const QString& caption);
    void Open(int id, const QString& caption, QPoint position);
    void Close(int id);
    bool Has(int id) const { return children.count(id) != 0; }

    void SetCaption(int id, const QString& caption);
    QString Caption(int id) const;
    /// Shows or hides a window that stays open.
    void SetHidden(int id, bool hidden);
    bool IsHidden(int id) const;
    void SetMinimised(int id, bool minimised);
    bool IsMinimised(int id) const;

    /// Makes the window active: on top, restored, with the focus where it last was.
    void Activate(int id);
    /// Gives the active state away to the window that is now on top, if any.
    void ActivateTop();
    /// Activates the next window round, or the one before.
    void ActivateNext(bool backwards);
    /// The active window's number; noWindow when there is none.
    int Active() const { return active; }
    static constexpr int noWindow = -1000;
    /// The active window was closed, and no other one has become active since.
    bool ActiveWasClosed() const { return activeClosed; }

    void Cascade();
    void ArrangeIcons();

    /// Windows that are not hidden, in the order in which they were numbered.
    std::vector<int> Windows() const;
    /// The widget inside the window, if it exists by now.
    QWidget* Content(int id) const;
    /// Number of windows whose widgets exist.
    int ExistingWindows() const;

    /// Makes the widgets of the windows that can be seen by now, and lets those of long unseen ones
    /// go. Called after any change; cheap when there was none. A new active window comes alone at
    /// first, the others that can be seen right after it.
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
        QPoint position;
        QSize size;
        int iconSlot = -1; ///< place among the icons; -1 when not minimised
        bool hidden = false;
        ChildWindow* frame = nullptr;
        QPointer<QWidget> lastFocus;
    };

    QRect Geometry(const Child& child) const;
    QPoint IconPosition(int slot) const;
    void TakeIconSlot(Child& child);
    void FreeIconSlot(Child& child);
    int CascadeSteps() const;
    QPoint CascadePosition(int step) const;
    static void ReleaseFocus(const Child& child);
    void BringWithinReach(Child& child);
    void Raise(int id);
    void Lower(int id);
    void MakeFrame(int id);
    void ConnectFrame(int id, ChildWindow* frame);
    void FillFrame(int id, Child& child);
    void PlaceFrame(Child& child);
    void SetActive(int id);
    void DropUnseenFrames(const std::vector<int>& seen);
    std::vector<int> Numbered() const;
    std::vector<int> SeenWindows() const;
    bool ActiveComesFirst() const;
    void FollowFocus(QWidget* now);

    MakeContent makeContent;
    ContentSize contentSize;
    std::unordered_map<int, Child> children;
    std::vector<int> order; ///< from the bottom to the top
    int active = noWindow;
    bool activeClosed = false;
    std::vector<bool> iconSlots; ///< places among the icons that are taken
    int lowestFreeIcon = 0;      ///< no place below it is free
    int opened = 0;              ///< counts the places of the cascade given out
    bool changed = false;
};

} // namespace strativo
