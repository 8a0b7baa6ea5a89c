#include "ui/ChildWindow.h"

#include "ui/Appearance.h"
#include "ui/ElidedLabel.h"
#include "ui/Text.h"
#include "ui/Tips.h"
#include "ui/TitleButton.h"

#include <QHelpEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace strativo {

namespace {

constexpr int buttonSize = 19;
constexpr int buttonGap = 2;
constexpr int margin = 4;
static_assert(ChildWindow::buttonsWidth == 2 * buttonSize + buttonGap + 2 * margin);

QWidget* NextInChain(QWidget* widget, bool next) {
    return next ? widget->nextInFocusChain() : widget->previousInFocusChain();
}

bool TakesTab(const QWidget& widget) {
    return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget.isVisible()
           && widget.isEnabled() && widget.focusProxy() == nullptr;
}

} // namespace

ChildWindow::ChildWindow(int windowId, QWidget* parent)
    : QWidget(parent), id(windowId), title(new ElidedLabel(longestShownLine, this)),
      minimiseButton(AddButton(QStringLiteral("MinimiseButton"))),
      closeButton(AddButton(QStringLiteral("CloseButton"))) {
    setObjectName(QStringLiteral("ChildWindow"));
    // It paints its whole area. If Qt did not know, it would paint all windows below for nothing.
    setAttribute(Qt::WA_OpaquePaintEvent);
    title->setAttribute(Qt::WA_TransparentForMouseEvents);
    closeButton->setAccessibleName(tr("Close"));
    closeButton->setToolTip(tr("Close"));
    connect(minimiseButton, &QToolButton::clicked, this, &ChildWindow::MinimiseToggled);
    connect(closeButton, &QToolButton::clicked, this, &ChildWindow::CloseRequested);
    SetActive(false);
}

TitleButton* ChildWindow::AddButton(const QString& objectName) {
    auto* button = new TitleButton(this);
    button->setObjectName(objectName);
    button->setFocusPolicy(Qt::NoFocus);
    button->setFixedSize(buttonSize, buttonSize);
    return button;
}

void ChildWindow::ShowButtonPictures() {
    const QString name = minimised ? tr("Restore") : tr("Minimise");
    const QColor sign = title->palette().color(QPalette::WindowText);
    minimiseButton->Show(minimised ? TitleButton::Sign::restore : TitleButton::Sign::minimise, sign,
                         bar);
    minimiseButton->setAccessibleName(name);
    minimiseButton->setToolTip(name);
    closeButton->Show(TitleButton::Sign::close, sign, bar);
}

QSize ChildWindow::SizeAround(QSize content) {
    return content + QSize(2 * border, 2 * border + titleHeight);
}

void ChildWindow::SetContent(QWidget* widget) {
    content = widget;
    content->setParent(this);
    content->move(border, border + titleHeight);
    content->setVisible(!minimised);
    setFocusProxy(content);
}

void ChildWindow::SetCaption(const QString& caption) {
    SetPlainText(*title, caption);
    setWindowTitle(caption);
    setAccessibleName(caption);
}

void ChildWindow::SetActive(bool nowActive) {
    active = nowActive;
    ShowColours();
}

void ChildWindow::SetTarget(bool nowTarget) {
    if (std::exchange(target, nowTarget) != nowTarget)
        ShowColours();
}

void ChildWindow::SetTip(std::function<QString()> newTip) {
    tip = std::move(newTip);
}

bool ChildWindow::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || tip == nullptr
        || !IsOnTitle(static_cast<QHelpEvent*>(event)->pos()))
        return QWidget::event(event);
    ShowTip(*title, Elided(tip()));
    return true;
}

/// The target's bar is half-way between an active and an inactive one.
QColor ChildWindow::BarColour() const {
    const QColor inactive = palette().color(QPalette::Button);
    const QColor highlight = palette().color(QPalette::Highlight);
    if (active || !target)
        return active ? highlight : inactive;
    const auto between = [](int a, int b) { return (a + b) / 2; };
    return {between(inactive.red(), highlight.red()), between(inactive.green(), highlight.green()),
            between(inactive.blue(), highlight.blue())};
}

void ChildWindow::ShowColours() {
    QPalette colours = palette();
    bar = BarColour();
    const QColor text = colours.color(active ? QPalette::HighlightedText : QPalette::ButtonText);
    colours.setColor(QPalette::WindowText, Readable(text, bar));
    title->setPalette(colours);
    ShowButtonPictures();
    // The content, slow to paint, looks the same in an active window.
    update(QRegion(rect()) - rect().adjusted(border, border + titleHeight, -border, -border));
}

void ChildWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ShowColours();
}

void ChildWindow::SetMinimised(bool nowMinimised) {
    minimised = nowMinimised;
    if (content != nullptr)
        content->setVisible(!minimised);
    ShowButtonPictures();
}

bool ChildWindow::IsOnTitle(const QPoint& position) const {
    return position.y() < border + titleHeight;
}

void ChildWindow::mousePressEvent(QMouseEvent* event) {
    emit Activated();
    dragging = event->button() == Qt::LeftButton && IsOnTitle(event->position().toPoint());
    grip = event->position().toPoint();
}

void ChildWindow::mouseMoveEvent(QMouseEvent* event) {
    if (dragging)
        emit MoveWanted(mapToParent(event->position().toPoint() - grip));
}

void ChildWindow::mouseReleaseEvent(QMouseEvent*) {
    dragging = false;
}

void ChildWindow::mouseDoubleClickEvent(QMouseEvent* event) {
    // Only an icon reacts: a window of fixed size cannot be enlarged.
    if (minimised && event->button() == Qt::LeftButton)
        emit MinimiseToggled();
}

void ChildWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPalette colours = palette();
    painter.fillRect(rect(), colours.color(QPalette::Window));
    painter.fillRect(QRect(0, 0, width(), titleHeight + border), bar);
    painter.setPen(active ? bar.darker(140) : colours.color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (!std::exchange(painted, true))
        emit FirstPainted();
}

bool ChildWindow::focusNextPrevChild(bool next) {
    QWidget* const start = window()->focusWidget();
    if (!isAncestorOf(start))
        return false;
    for (QWidget* widget = NextInChain(start, next); widget != start;
         widget = NextInChain(widget, next)) {
        if (isAncestorOf(widget) && TakesTab(*widget)) {
            widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    }
    return false;
}

void ChildWindow::resizeEvent(QResizeEvent*) {
    const int top = border + (titleHeight - buttonSize) / 2;
    closeButton->move(width() - border - margin - buttonSize, top);
    minimiseButton->move(closeButton->x() - buttonSize - buttonGap, top);
    title->setGeometry(border + 2 * margin, border, minimiseButton->x() - 3 * margin, titleHeight);
}

} // namespace strativo
