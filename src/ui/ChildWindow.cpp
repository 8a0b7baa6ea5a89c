#include "ui/ChildWindow.h"

#include "ui/Text.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QToolButton>

#include <utility>

namespace strativo {

namespace {

constexpr int buttonSize = 19;
constexpr int margin = 4;

QWidget* NextInChain(QWidget* widget, bool next) {
    return next ? widget->nextInFocusChain() : widget->previousInFocusChain();
}

bool TakesTab(const QWidget& widget) {
    return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget.isVisible()
           && widget.isEnabled() && widget.focusProxy() == nullptr;
}

enum class Glyph { minimise, restore, close };

/// A button's sign in the colour of the caption, which the style's own pictures do not have.
QIcon GlyphIcon(Glyph glyph, const QColor& colour, qreal pixelRatio) {
    constexpr int size = 10;
    QPixmap picture(QSize(size, size) * pixelRatio);
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing, glyph == Glyph::close);
    painter.setPen(QPen(colour, 1.5));
    if (glyph == Glyph::minimise)
        painter.drawLine(1, size - 2, size - 1, size - 2);
    else if (glyph == Glyph::restore)
        painter.drawRect(1, 1, size - 3, size - 3);
    else
        painter.drawLines({QLineF(1, 1, size - 1, size - 1), QLineF(1, size - 1, size - 1, 1)});
    return QIcon(picture);
}

} // namespace

ChildWindow::ChildWindow(int windowId, QWidget* parent)
    : QWidget(parent), id(windowId), title(PlainLabel(QString(), this)),
      minimiseButton(AddButton(QStringLiteral("MinimiseButton"))),
      closeButton(AddButton(QStringLiteral("CloseButton"))) {
    setObjectName(QStringLiteral("ChildWindow"));
    // It paints all of itself; unless Qt knows, all windows below are painted for nothing.
    setAttribute(Qt::WA_OpaquePaintEvent);
    title->setAttribute(Qt::WA_TransparentForMouseEvents);
    closeButton->setAccessibleName(tr("Close"));
    closeButton->setToolTip(tr("Close"));
    connect(minimiseButton, &QToolButton::clicked, this, &ChildWindow::MinimiseToggled);
    connect(closeButton, &QToolButton::clicked, this, &ChildWindow::CloseRequested);
    SetActive(false);
}

QToolButton* ChildWindow::AddButton(const QString& objectName) {
    auto* button = new QToolButton(this);
    button->setObjectName(objectName);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setFixedSize(buttonSize, buttonSize);
    button->setIconSize(QSize(10, 10));
    return button;
}

void ChildWindow::ShowButtonPictures() {
    const QString name = minimised ? tr("Restore") : tr("Minimise");
    const QColor colour = title->palette().color(QPalette::WindowText);
    const Glyph first = minimised ? Glyph::restore : Glyph::minimise;
    minimiseButton->setIcon(GlyphIcon(first, colour, devicePixelRatioF()));
    minimiseButton->setAccessibleName(name);
    minimiseButton->setToolTip(name);
    closeButton->setIcon(GlyphIcon(Glyph::close, colour, devicePixelRatioF()));
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
    QPalette colours;
    colours.setColor(QPalette::WindowText,
                     colours.color(active ? QPalette::HighlightedText : QPalette::Text));
    title->setPalette(colours);
    ShowButtonPictures();
    update();
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
    // Only an icon answers: windows of fixed size have nothing to be enlarged to.
    if (minimised && event->button() == Qt::LeftButton)
        emit MinimiseToggled();
}

void ChildWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPalette colours = palette();
    const QColor bar =
        active ? colours.color(QPalette::Highlight) : colours.color(QPalette::Button);
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
    minimiseButton->move(closeButton->x() - buttonSize - 2, top);
    title->setGeometry(border + 2 * margin, border, minimiseButton->x() - 3 * margin, titleHeight);
}

} // namespace strativo
