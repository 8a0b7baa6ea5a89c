#include "desktop/Story.h"

#include "ui/ChildWindow.h"
#include "ui/LayerList.h"
#include "ui/MaterialList.h"
#include "ui/Text.h"
#include "ui/WindowArea.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QWindow>

#include <algorithm>

namespace strativo {

namespace {

constexpr int nameColumn = 33; // characters, in both lists

std::string Utf8(const QString& text) {
    return text.toStdString();
}

QString Named(const char* name) {
    return QLatin1String(name);
}

/// The place, which must not be covered by anything else.
QPoint VisiblePlace(const QWidget* widget, QPoint place) {
    const QPoint global = widget->mapToGlobal(place);
    const QWidget* there = QApplication::widgetAt(global);
    const bool isTip = there != nullptr && there->inherits("QTipLabel");
    if (there != widget && !widget->isAncestorOf(there) && !isTip)
        throw std::runtime_error(Utf8(widget->objectName()) + " cannot be seen there, but "
                                 + (there != nullptr ? Utf8(there->objectName()) : "nothing"));
    return global;
}

QDialog* BoxInFront() {
    return qobject_cast<QDialog*>(QApplication::activeModalWidget());
}

/// Whether the window is painted, active and really where the program believes it is.
bool IsReadyForInput(const QWidget* widget) {
    if (widget == nullptr || !widget->isActiveWindow() || widget->windowHandle() == nullptr
        || !widget->windowHandle()->isExposed())
        return false;
    const std::string title = Utf8(widget->windowTitle());
    const QPoint place = widget->geometry().topLeft();
    const std::vector<WindowOnScreen> windows = Screen().Windows();
    return std::any_of(windows.begin(), windows.end(), [&](const WindowOnScreen& found) {
        return found.active && found.title == title && QPoint(found.x, found.y) == place;
    });
}

std::string WithoutAccessKey(QString caption) {
    return Utf8(caption.remove(QLatin1Char('&')));
}

} // namespace

Story::Story() {
    Write("../stdmat.lby", "12'Face brick' 0.84 1700 800\n"
                           "20'BLOCK' 0.19 600 1000\n"
                           "30'PLASTER' 0.5 1300 1000\n"
                           "41'INSULATION' 0.035 25 1000\n");
    std::filesystem::current_path(folder.Path() / "work");
}

void Story::TearDown() {
    for (int i = 0; i < 10 && InGui([] { return BoxInFront() != nullptr; }); ++i)
        InGui([] { BoxInFront()->reject(); });
    LetWindowGo();
}

void Story::LetWindowGo() {
    InGui([this] {
        if (window == nullptr)
            return;
        window->hide();
        window->deleteLater();
        window = nullptr;
        loaded = false;
    });
}

void Story::Start(const std::string& commandLine) {
    LetWindowGo();
    InGui([this] { window = new UValueMDI; });
    QMetaObject::invokeMethod(
        window,
        [this, commandLine] {
            window->MDIForm_Load(commandLine);
            loaded = true;
        },
        Qt::QueuedConnection);
    WaitFor("the main window", [&] {
        const QWidget* front = BoxInFront();
        return front != nullptr ? IsReadyForInput(front) : loaded && IsReadyForInput(window);
    });
}

bool Story::IsRunning() {
    return InGui([this] { return window->isVisible(); });
}

std::string Story::PathOf(const std::string& name) const {
    return folder.Path() / "work" / name;
}

void Story::Write(const std::string& name, const std::string& bytes) const {
    folder.Write("work/" + name, bytes);
}

std::string Story::Read(const std::string& name) const {
    return folder.Read("work/" + name);
}

QWidget* Story::Control(int child, const char* name) const {
    const QWidget* content = child == box ? BoxInFront() : window->Area().Content(child);
    auto* control = content != nullptr ? content->findChild<QWidget*>(Named(name)) : nullptr;
    if (control == nullptr)
        throw std::runtime_error(std::string("there is no ") + name);
    return control;
}

QPoint Story::PlaceOf(int child, const char* control) {
    return InGui([&] {
        const QWidget* widget = Control(child, control);
        return VisiblePlace(widget, widget->rect().center());
    });
}

QPoint Story::LayerRow(int construction, int row) {
    return InGui([&] {
        const auto* list = qobject_cast<LayerList*>(Control(construction, "Construction"));
        const int height = list->RowHeightInPixels();
        return VisiblePlace(list->viewport(), QPoint(90, height * row + height / 2));
    });
}

QPoint Story::Material(const char* name) {
    const std::vector<std::string> all = Materials();
    const auto line = static_cast<int>(std::find(all.begin(), all.end(), name) - all.begin());
    const auto offset = [&] {
        return InGui([&] {
            const auto* list = qobject_cast<MaterialList*>(Control(dialog, "UValueList"));
            const QRect place = list->visualItemRect(list->item(line));
            const int bottom = list->viewport()->rect().bottom();
            return place.top() < 0 ? -1 : place.bottom() > bottom ? 1 : 0;
        });
    };
    MoveTo(PlaceOf(dialog, "UValueList"));
    while (offset() != 0)
        TurnWheel(offset() > 0);
    return InGui([&] {
        const auto* list = qobject_cast<MaterialList*>(Control(dialog, "UValueList"));
        return VisiblePlace(list->viewport(), list->visualItemRect(list->item(line)).center());
    });
}

QPoint Story::TitleOf(int child) {
    return InGui([&] {
        for (const auto* frame : window->Area().findChildren<ChildWindow*>())
            if (frame->Id() == child)
                return VisiblePlace(frame, QPoint(60, ChildWindow::titleHeight / 2));
        throw std::runtime_error("no window " + std::to_string(child));
    });
}

QPoint Story::FrameButton(int child, const char* name) {
    return InGui([&] {
        const QWidget* frame = window->Area().Content(child)->parentWidget();
        const auto* button = frame->findChild<QWidget*>(Named(name), Qt::FindDirectChildrenOnly);
        return VisiblePlace(button, button->rect().center());
    });
}

/// Opens the menu and finds the item, by its object name or its caption.
QPoint Story::MenuItem(const char* menu, const char* item, bool& enabled) {
    const auto find = [&] { return window->findChild<QMenu*>(Named(menu)); };
    Click(InGui([&] {
        return VisiblePlace(window->menuBar(),
                            window->menuBar()->actionGeometry(find()->menuAction()).center());
    }));
    WaitFor("the menu to open", [&] { return find()->isVisible(); });
    return InGui([&] {
        for (const QAction* action : find()->actions()) {
            enabled = action->isEnabled();
            if (action->objectName() == Named(item) || WithoutAccessKey(action->text()) == item)
                return VisiblePlace(find(),
                                    find()->actionGeometry(const_cast<QAction*>(action)).center());
        }
        throw std::runtime_error(std::string("no menu item ") + item);
    });
}

void Story::ChooseMenu(const char* menu, const char* item) {
    bool enabled = false;
    const QPoint place = MenuItem(menu, item, enabled);
    EXPECT_TRUE(enabled) << item;
    Click(place);
}

bool Story::IsItemEnabled(const char* menu, const char* item) {
    bool enabled = false;
    MenuItem(menu, item, enabled);
    Press(Key::escape);
    Press(Key::escape);
    return enabled;
}

void Story::MoveWindow(int child, QPoint place) {
    const QPoint from = TitleOf(child);
    Drag(from, InGui([&] {
             const QWidget* frame = window->Area().Content(child)->parentWidget();
             return from + window->Area().mapToGlobal(place) - frame->mapToGlobal(QPoint());
         }));
}

void Story::WaitForBox(const std::string& title) {
    WaitFor("the box " + title, [&] {
        const QDialog* front = BoxInFront();
        return IsReadyForInput(front) && Utf8(front->windowTitle()) == title;
    });
}

void Story::WaitForEndOf(const QPointer<QDialog>& front) {
    WaitFor("the box to go", [&] {
        const QDialog* next = BoxInFront();
        if (next != nullptr)
            return next != front && IsReadyForInput(next);
        return !window->isVisible() || IsReadyForInput(QApplication::activeWindow());
    });
}

void Story::Answer(const std::string& title, const std::string& text, const char* button) {
    WaitForBox(title);
    EXPECT_EQ(TextOf(box, "MessageText"), text);
    const QPoint place = InGui([&] {
        for (const QAbstractButton* found : BoxInFront()->findChildren<QAbstractButton*>())
            if (WithoutAccessKey(found->text()) == button)
                return VisiblePlace(found, found->rect().center());
        throw std::runtime_error(std::string("no button ") + button);
    });
    const QPointer<QDialog> front = InGui(BoxInFront);
    Click(place);
    WaitForEndOf(front);
}

void Story::ChooseFile(const std::string& title, const std::string& path) {
    WaitForBox(title);
    const QPointer<QDialog> front = InGui(BoxInFront);
    Press({Key::ctrl, KeyOf('a')});
    Type(path);
    EXPECT_EQ(TextOf(box, "fileNameEdit"), path);
    Press(Key::enter);
    WaitForEndOf(front);
}

void Story::CancelPrompt(const std::string& title) {
    WaitForBox(title);
    const QPointer<QDialog> front = InGui(BoxInFront);
    Press(Key::escape);
    WaitForEndOf(front);
}

void Story::Enter(const std::string& number) {
    Type(number);
    Press(Key::enter);
}

std::string Story::TextOf(int child, const char* control) {
    return InGui([&] {
        const QWidget* widget = Control(child, control);
        const char* const property =
            widget->property("currentText").isValid() ? "currentText" : "text";
        return Utf8(widget->property(property).toString());
    });
}

bool Story::IsVisible(int child, const char* control) {
    return InGui([&] { return Control(child, control)->isVisible(); });
}

std::string Story::Layers(int construction) {
    return InGui([&] {
        const auto* list = qobject_cast<LayerList*>(Control(construction, "Construction"));
        QStringList names;
        for (int line = 0; line < list->count(); ++line) {
            const QString name = list->item(line)->text().left(nameColumn).trimmed();
            names << (list->item(line)->isSelected() ? QStringLiteral("[%1]").arg(name) : name);
        }
        return Utf8(names.join(QStringLiteral(", ")));
    });
}

std::vector<std::string> Story::Materials() {
    return InGui([&] {
        const auto* list = qobject_cast<MaterialList*>(Control(dialog, "UValueList"));
        std::vector<std::string> names;
        for (int line = 0; line < list->count(); ++line)
            names.push_back(Utf8(list->item(line)->text().left(nameColumn).trimmed()));
        return names;
    });
}

std::string Story::Focus() {
    return InGui([] {
        const QWidget* focus = QApplication::focusWidget();
        return focus != nullptr ? Utf8(focus->objectName()) : std::string();
    });
}

int Story::ActiveWindow() {
    return InGui([this] { return window->Area().Active(); });
}

} // namespace strativo
