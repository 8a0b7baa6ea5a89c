#include "ui/MessageBox.h"

#include "ui/Text.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QThread>
#include <QWindow>

namespace strativo {

namespace {

QDialogButtonBox::StandardButtons StandardButtons(Buttons buttons) {
    switch (buttons) {
    case Buttons::yesNo:
        return QDialogButtonBox::Yes | QDialogButtonBox::No;
    case Buttons::yesNoCancel:
        return QDialogButtonBox::Yes | QDialogButtonBox::No | QDialogButtonBox::Cancel;
    default:
        return QDialogButtonBox::Ok;
    }
}

/// The answer given by Esc and the close box.
Answer AnswerOnClose(Buttons buttons) {
    if (buttons == Buttons::yesNoCancel)
        return Answer::cancel;
    return buttons == Buttons::yesNo ? Answer::no : Answer::ok;
}

Answer AnswerOf(QDialogButtonBox::StandardButton button) {
    switch (button) {
    case QDialogButtonBox::Yes:
        return Answer::yes;
    case QDialogButtonBox::No:
        return Answer::no;
    case QDialogButtonBox::Cancel:
        return Answer::cancel;
    default:
        return Answer::ok;
    }
}

class Box : public QDialog {
public:
    Box(const Message& message, QWidget* parent)
        : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                              | Qt::WindowCloseButtonHint) {
        setObjectName(QStringLiteral("MessageBox"));
        if (parent != nullptr)
            setWindowModality(Qt::WindowModal); // the help stays free
        setWindowTitle(message.title.empty() ? QLatin1String(programTitle) : ToText(message.title));
        auto* rows = new QVBoxLayout(this);
        auto* columns = new QHBoxLayout;
        rows->addLayout(columns, 1);
        if (message.icon != Icon::none)
            columns->addWidget(IconLabel(message.icon), 0, Qt::AlignTop);
        QWidget* text = TextView(message);
        columns->addWidget(text, 1);
        rows->addWidget(ButtonRow(message));
        // A box that shows all of its text has nothing to gain from another size.
        if (qobject_cast<QLabel*>(text) != nullptr)
            rows->setSizeConstraint(QLayout::SetFixedSize);
    }

    Answer Chosen() const { return chosen; }
    void SetAnswerOnClose(Answer answer) { chosen = answer; }

private:
    QLabel* IconLabel(Icon icon) {
        auto* label = new QLabel(this);
        const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
        const QIcon picture = style()->standardIcon(
            icon == Icon::question ? QStyle::SP_MessageBoxQuestion : QStyle::SP_MessageBoxWarning);
        label->setPixmap(picture.pixmap(QSize(size, size), devicePixelRatio()));
        return label;
    }

    QWidget* TextView(const Message& message) {
        const QString text =
            message.encoding == Encoding::utf8 ? PathText(message.text) : ToText(message.text);
        QLabel* label = PlainLabel(WithPlainLineBreaks(text), this);
        label->setObjectName(QStringLiteral("MessageText"));
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setFocusPolicy(Qt::NoFocus);
        label->setContentsMargins(8, 8, 8, 8);
        constexpr int frameButtons = 100; // pixels, with what stands beside them
        label->setMinimumWidth(fontMetrics().horizontalAdvance(windowTitle()) + frameButtons);
        const QSize limit = screen()->availableSize() * 2 / 3;
        if (label->sizeHint().boundedTo(limit) == label->sizeHint())
            return label;
        auto* area = new QScrollArea(this);
        area->setWidget(label);
        area->setMinimumSize(label->sizeHint().boundedTo(limit) + QSize(24, 0));
        return area;
    }

    QDialogButtonBox* ButtonRow(const Message& message) {
        auto* buttons = new QDialogButtonBox(StandardButtons(message.buttons), this);
        for (QAbstractButton* button : buttons->buttons()) {
            const Answer answer = AnswerOf(buttons->standardButton(button));
            const bool isDefault = message.buttons == Buttons::ok || answer == message.onEnter;
            auto* pushButton = static_cast<QPushButton*>(button);
            pushButton->setIcon({});
            pushButton->setAutoDefault(true);
            pushButton->setDefault(isDefault);
            if (isDefault)
                pushButton->setFocus();
            connect(button, &QAbstractButton::clicked, this, [this, answer] {
                chosen = answer;
                accept();
            });
        }
        return buttons;
    }

    Answer chosen = Answer::ok;
};

} // namespace

QString WithPlainLineBreaks(const QString& text) {
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool isBreak = c == QLatin1Char('\r') || c == QLatin1Char('\n');
        plain += isBreak ? QLatin1Char('\n') : c;
        if (isBreak && i + 1 < text.size() && text[i + 1] != c
            && (text[i + 1] == QLatin1Char('\r') || text[i + 1] == QLatin1Char('\n')))
            ++i;
    }
    return plain;
}

namespace {

/// A window that has just been shown has no position yet, so a box could not be centred on it.
void WaitUntilPlaced(const QWidget* parent) {
    constexpr int longest = 1000; // ms
    const QWindow* window =
        parent != nullptr && parent->isVisible() ? parent->window()->windowHandle() : nullptr;
    QElapsedTimer waited;
    waited.start();
    while (window != nullptr && !window->isExposed() && waited.elapsed() < longest) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::msleep(2);
    }
}

} // namespace

Answer ShowMessageBox(const Message& message, QWidget* parent) {
    WaitUntilPlaced(parent);
    Box box(message, parent);
    box.SetAnswerOnClose(AnswerOnClose(message.buttons));
    box.exec();
    return box.Chosen();
}

} // namespace strativo
