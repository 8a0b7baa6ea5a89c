#pragma once

#include <QColor>
#include <QPoint>
#include <QWidget>

#include <functional>

class QLabel;

namespace strativo {

class TitleButton;

/// The frame of a window inside the main window: a title bar with caption, minimise and close
/// buttons, and the content below. It signals what its user wants and leaves the decision to the
/// window area.
class ChildWindow : public QWidget {
    Q_OBJECT

public:
    ChildWindow(int windowId, QWidget* parent);

    int Id() const { return id; }

    static constexpr int titleHeight = 25;
    static constexpr int border = 2;
    /// The right end of the title bar, where its buttons are.
    static constexpr int buttonsWidth = 48;
    /// The size of a frame around a content of that size.
    static QSize SizeAround(QSize content);
    static QSize IconSize() { return {176, titleHeight + 2 * border}; }

    void SetContent(QWidget* widget);
    QWidget* Content() const { return content; }
    void SetCaption(const QString& caption);
    /// Draws the title bar as active or inactive.
    void SetActive(bool active);
    /// Draws it as that of the window on which the active one works.
    void SetTarget(bool target);
    /// What the tool tip of the title bar says.
    void SetTip(std::function<QString()> tip);
    void SetMinimised(bool minimised);
    bool IsMinimised() const { return minimised; }
    bool WasPainted() const { return painted; }

signals:
    void FirstPainted();
    void Activated();
    void MinimiseToggled();
    void CloseRequested();
    /// The user is dragging it there, in the parent's coordinates.
    void MoveWanted(QPoint position);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    /// Keeps Tab within the window.
    bool focusNextPrevChild(bool next) override;
    bool event(QEvent* event) override;

private:
    TitleButton* AddButton(const QString& objectName);
    void ShowColours();
    QColor BarColour() const;
    void ShowButtonPictures();
    bool IsOnTitle(const QPoint& position) const;

    int id;
    QLabel* title;
    TitleButton* minimiseButton;
    TitleButton* closeButton;
    QWidget* content = nullptr;
    std::function<QString()> tip;
    QColor bar;
    QPoint grip;
    bool dragging = false;
    bool active = false;
    bool target = false;
    bool minimised = false;
    bool painted = false;
};

} // namespace strativo
