#include "Stage.h"

#include <QApplication>

namespace strativo::monkey {

QPoint AnyPlace(Dice& dice, const QWidget& on) {
    return {dice.Below(on.width()), dice.Below(on.height())};
}

Qt::KeyboardModifiers AnyModifiers(Dice& dice) {
    static const std::vector<Qt::KeyboardModifiers> often = {{},
                                                             {},
                                                             {},
                                                             {},
                                                             Qt::ShiftModifier,
                                                             Qt::ControlModifier,
                                                             Qt::AltModifier,
                                                             Qt::ControlModifier
                                                                 | Qt::ShiftModifier,
                                                             Qt::KeypadModifier};
    return dice.Pick(often);
}

QString AnyText(Dice& dice) {
    static const QStringList texts = {
        QStringLiteral("105"),      QStringLiteral("0.5"),          QStringLiteral("100,5"),
        QStringLiteral("0"),        QStringLiteral("-1"),           QStringLiteral("1e39"),
        QStringLiteral("12345"),    QStringLiteral("0.018"),        QStringLiteral("1"),
        QStringLiteral("Wall"),     QStringLiteral("it's"),         QStringLiteral("a*b"),
        QStringLiteral("!EOF"),     QStringLiteral("<b>x</b>"),     QStringLiteral("A/B"),
        QStringLiteral("é€ ’"),     QStringLiteral("漢字 😀"),       QStringLiteral("2D"),
        QStringLiteral("CLEAR"),    QStringLiteral("a\r\nb\tc"),    QStringLiteral(""),
        QStringLiteral("   "),      QString(300, QLatin1Char('x')), QStringLiteral("nan"),
        QStringLiteral("North & S")};
    return dice.Pick(texts);
}

QWidget* HelpWindow() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->objectName() == QLatin1String("HelpViewer"))
            return window;
    return nullptr;
}

QString Describe(const QWidget* widget) {
    if (widget == nullptr)
        return QStringLiteral("nothing");
    const QString name = widget->objectName();
    return name.isEmpty() ? QLatin1String(widget->metaObject()->className()) : name;
}

std::string Detail(const QString& text) {
    return text.left(60).simplified().toStdString();
}

const std::vector<std::string>& WantedStates() {
    static const std::vector<std::string> wanted = {"sessions begun",
                                                    "no construction open",
                                                    "1 construction open",
                                                    "2 to 5 constructions open",
                                                    "6 to 30 constructions open",
                                                    "over 30 constructions open",
                                                    "15 layers in a construction",
                                                    "windows as icons",
                                                    "dialog hidden",
                                                    "glass window open",
                                                    "glass types listed",
                                                    "user library loaded",
                                                    "menus opened",
                                                    "questions answered",
                                                    "messages read",
                                                    "open prompts answered",
                                                    "save prompts answered",
                                                    "prompts cancelled",
                                                    "saves done",
                                                    "saves read back",
                                                    "layers dragged",
                                                    "layers dropped in another window",
                                                    "drags taken back",
                                                    "steps taken back",
                                                    "materials dropped",
                                                    "files dropped",
                                                    "foreign data refused",
                                                    "windows moved",
                                                    "glass values dragged",
                                                    "glass values typed",
                                                    "glass types stored",
                                                    "ended by its user",
                                                    "ended by request",
                                                    "ended by itself",
                                                    "recovery copies kept"};
    return wanted;
}

} // namespace strativo::monkey
