#include "MainWindowTest.h"

#include "ui/DragPayload.h"
#include "ui/UValue.h"
#include "ui/UvalsDialog.h"
#include "ui/WindowArea.h"

#include <QAbstractButton>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>

#include <cstdlib>

namespace strativo {

namespace {

constexpr char libraryBytes[] = "12'FACE BRICK' 0.84 1700 800\r\n"
                                "30'PLASTER' 0.5 1300 1000\r\n"
                                "7'INSULATION' 0.035 30 1400\r\n";

std::string Bytes(const QString& text) {
    return text.toStdString();
}

SeenBox See(const QWidget& box) {
    SeenBox seen{Bytes(box.windowTitle()), "", {}};
    if (const auto* text = box.findChild<QLabel*>(QStringLiteral("MessageText")))
        seen.text = Bytes(text->text());
    for (const QAbstractButton* button : box.findChildren<QAbstractButton*>())
        if (!button->text().isEmpty())
            seen.buttons.push_back(Bytes(QString(button->text()).remove(QLatin1Char('&'))));
    return seen;
}

} // namespace

MainWindowTest::MainWindowTest()
    : library(folder.Write("library/stdmat.lby", libraryBytes)),
      watch(std::make_unique<QObject>()) {
    folder.Write("settings/Stratv.ini", "[Files]\nStdMat=" + library + "\n");
    setenv("XDG_CONFIG_HOME", (folder.Path() / "settings").c_str(), 1);
    setenv("XDG_STATE_HOME", (folder.Path() / "state").c_str(), 1);
    WatchForBoxes();
}

MainWindowTest::~MainWindowTest() {
    watch.reset();
    program.reset();
    // Ending the program stops every further event loop until the next start.
    QTimer::singleShot(0, qApp, [] { QApplication::exit(0); });
    QApplication::exec();
}

void MainWindowTest::TearDown() {
    EXPECT_TRUE(script.empty()) << script.size() << " boxes did not come up";
}

void MainWindowTest::Start(const std::string& commandLine) {
    program = std::make_unique<UValueMDI>();
    program->MDIForm_Load(commandLine);
    TakeKeyboard(*program);
}

/// Without a window manager, nothing else activates a window after a box has closed.
void MainWindowTest::TakeKeyboard(QWidget& window) {
    if (!window.isVisible())
        return;
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
}

QAction* MainWindowTest::Item(const char* itemName) {
    for (QMenu* menu : program->findChildren<QMenu*>())
        for (const QAction* action : menu->actions())
            if (action->objectName() == QLatin1String(itemName)) {
                emit menu->aboutToShow();
                return menu->findChild<QAction*>(QLatin1String(itemName));
            }
    throw std::runtime_error(std::string("no menu item ") + itemName);
}

QMenu* MainWindowTest::Menu(const char* menuName) {
    return FindIn<QMenu>(program.get(), menuName);
}

void MainWindowTest::Choose(const char* itemName) {
    QAction* item = Item(itemName);
    ASSERT_TRUE(item->isEnabled()) << itemName;
    item->trigger();
    TakeKeyboard(*program);
}

std::vector<std::string> MainWindowTest::Captions(const char* menuName) {
    QMenu* menu = Menu(menuName);
    emit menu->aboutToShow();
    std::vector<std::string> captions;
    for (const QAction* action : menu->actions())
        captions.push_back(action->isSeparator() ? "-" : Bytes(action->text()));
    return captions;
}

UValue* MainWindowTest::Window(int number) {
    // Windows below a newly active one are made only after it has been painted.
    if (!QTest::qWaitFor([&] { return program->ConstructionWindow(number) != nullptr; }))
        throw std::runtime_error("no window " + std::to_string(number));
    return program->ConstructionWindow(number);
}

QWidget* MainWindowTest::DialogWidget() {
    return &program->Dialog();
}

std::vector<std::string> MainWindowTest::LayersShown(int number) {
    std::vector<std::string> names;
    for (int line = 0; line < List(number)->count(); ++line)
        names.push_back(Bytes(List(number)->item(line)->text().left(37).trimmed()));
    return names;
}

std::vector<int> MainWindowTest::MarksShown(int number) {
    std::vector<int> lines;
    for (int line = 0; line < List(number)->count(); ++line)
        if (List(number)->item(line)->isSelected())
            lines.push_back(line);
    return lines;
}

std::string MainWindowTest::TextOf(int number, const char* control) {
    QWidget* widget = Find(number, control);
    if (const auto* field = qobject_cast<QLineEdit*>(widget))
        return Bytes(field->text());
    return Bytes(qobject_cast<QLabel*>(widget)->text());
}

std::string MainWindowTest::StatusText(const char* label) {
    return Bytes(FindIn<QLabel>(program.get(), label)->text());
}

QPoint MainWindowTest::LinePosition(QListWidget* list, int line) {
    return list->visualItemRect(list->item(line)).center();
}

void MainWindowTest::ClickLine(QListWidget* list, int line, Qt::KeyboardModifiers modifiers) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers, LinePosition(list, line));
}

void MainWindowTest::SelectMaterial(const std::string& name) {
    for (int line = 0; line < Materials()->count(); ++line) {
        if (Bytes(Materials()->item(line)->text()).rfind(name, 0) != 0)
            continue;
        Materials()->scrollToItem(Materials()->item(line));
        ClickLine(Materials(), line);
        Materials()->setFocus();
        return;
    }
    FAIL() << "no material " << name;
}

void MainWindowTest::Insert(const std::string& material) {
    SelectMaterial(material);
    QTest::keyClick(Materials(), Qt::Key_Return);
}

void MainWindowTest::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(KeyTarget(), key, modifiers);
}

void MainWindowTest::Type(const char* text) {
    for (const char* letter = text; *letter != '\0'; ++letter)
        QTest::keyClick(KeyTarget(), *letter);
}

/// The focused control. A box that has closed does not return the focus by itself.
QWidget* MainWindowTest::KeyTarget() {
    if (QApplication::activeModalWidget() == nullptr)
        TakeKeyboard(*program);
    QWidget* focus = QApplication::focusWidget();
    return focus != nullptr ? focus : program.get();
}

std::string MainWindowTest::Focus() {
    const QWidget* widget = QApplication::focusWidget();
    return widget == nullptr ? "nothing" : Bytes(widget->objectName());
}

void MainWindowTest::MoveWindow(int number, QPoint position) {
    QWidget* frame = Window(number)->parentWidget();
    const QPoint grip(60, 10);
    QTest::mousePress(frame, Qt::LeftButton, {}, grip);
    const QPoint wanted = grip + position - frame->pos();
    QMouseEvent move(QEvent::MouseMove, wanted, frame->mapToGlobal(wanted), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(frame, &move);
    QTest::mouseRelease(frame, Qt::LeftButton, {}, grip);
}

void MainWindowTest::StartDrag(QListWidget* list, int line, Qt::KeyboardModifiers modifiers) {
    const QPoint start = LinePosition(list, line);
    QTest::mousePress(list->viewport(), Qt::LeftButton, modifiers, start);
    list->setFocus(Qt::MouseFocusReason);
    MoveMouse(list, start + QPoint(QApplication::startDragDistance() + 1, 0), modifiers);
}

void MainWindowTest::MoveMouse(QListWidget* list, QPoint place, Qt::KeyboardModifiers modifiers) {
    QMouseEvent move(QEvent::MouseMove, place, list->viewport()->mapToGlobal(place), Qt::NoButton,
                     Qt::LeftButton, modifiers);
    QApplication::sendEvent(list->viewport(), &move);
}

bool MainWindowTest::Drop(QMimeData* data, QWidget* on, QPoint place) {
    const std::unique_ptr<QMimeData> payload(data);
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(place, actions, data, Qt::LeftButton, {});
    QApplication::sendEvent(on, &enter);
    QDragMoveEvent move(place, actions, data, Qt::LeftButton, {});
    move.setAccepted(enter.isAccepted()); // as the toolkit does
    QApplication::sendEvent(on, &move);
    if (!enter.isAccepted() || !move.isAccepted()) {
        QDragLeaveEvent leave;
        QApplication::sendEvent(on, &leave);
        return false;
    }
    QDropEvent drop(place, actions, data, Qt::LeftButton, {});
    QApplication::sendEvent(on, &drop);
    return drop.isAccepted();
}

void MainWindowTest::DragLine(QListWidget* from, int line, QListWidget* to, int row,
                              Qt::KeyboardModifiers modifiers) {
    StartDrag(from, line, modifiers);
    const DragKind kind = from == Materials() ? DragKind::material : DragKind::layers;
    Drop(MakeDragPayload(kind), to->viewport(), QPoint(60, row * rowHeight + rowHeight / 2));
}

void MainWindowTest::InBox(std::function<void(QWidget& box)> steps) {
    script.push_back(std::move(steps));
}

void MainWindowTest::Answer(const std::string& button) {
    InBox([button](QWidget& box) {
        for (QAbstractButton* candidate : box.findChildren<QAbstractButton*>())
            if (Bytes(QString(candidate->text()).remove(QLatin1Char('&'))) == button)
                return candidate->click();
        ADD_FAILURE() << "no button " << button;
    });
}

void MainWindowTest::ChooseFile(const std::string& path) {
    InBox([path](QWidget& box) {
        auto* name = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(name, nullptr) << "no file prompt";
        name->setText(QString::fromStdString(path));
        QTest::keyClick(name, Qt::Key_Return);
    });
}

void MainWindowTest::CancelPrompt() {
    InBox([](QWidget& box) {
        ASSERT_NE(qobject_cast<QFileDialog*>(&box), nullptr) << "no file prompt";
        qobject_cast<QDialog*>(&box)->reject();
    });
}

/// Each check schedules the next one, since a box may come up while another is being answered.
void MainWindowTest::WatchForBoxes() {
    QTimer::singleShot(1, watch.get(), [this] {
        WatchForBoxes();
        LookForBox();
    });
}

void MainWindowTest::LookForBox() {
    QWidget* box = QApplication::activeModalWidget();
    if (box == nullptr || !box->isVisible() || box == met)
        return;
    met = box;
    TakeKeyboard(*box);
    boxes.push_back(See(*box));
    if (script.empty()) {
        ADD_FAILURE() << "unexpected box: " << LastBox().title << ": " << LastBox().text;
    } else {
        const auto steps = script.front();
        script.pop_front();
        steps(*box);
    }
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        if (dialog == box)
            dialog->reject();
    met = nullptr;
}

} // namespace strativo
