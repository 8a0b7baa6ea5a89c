#include "Stage.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>

namespace strativo::monkey {

namespace {

QFileDialog* Prompt() {
    return qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
}

/// A path that the prompt asks for, or any other.
std::string Path(Stage& stage, const QFileDialog& prompt) {
    Dice& dice = stage.dice;
    if (prompt.acceptMode() == QFileDialog::AcceptSave)
        return stage.world.NameToSave(dice);
    if (dice.OneIn(4))
        return stage.world.AnyPath(dice);
    const bool library = prompt.nameFilters().join(QString()).contains(QLatin1String("lby"));
    return library ? stage.world.AnyLibrary(dice) : stage.world.AnyConstructionFile(dice);
}

bool PromptFile(Stage& stage) {
    QFileDialog* prompt = Prompt();
    auto* name = prompt->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const std::string path = Path(stage, *prompt);
    const bool saves = prompt->acceptMode() == QFileDialog::AcceptSave;
    stage.Say(stage.world.ShortName(path) + " for " + Detail(prompt->windowTitle()));
    stage.journal.Reach(saves ? "save prompts answered" : "open prompts answered");
    name->setFocus();
    name->setText(QString::fromStdString(path));
    stage.hands.Key(Qt::Key_Return);
    return true;
}

bool PromptName(Stage& stage) {
    constexpr const char* names[] = {"five", "six.con", "stdmat", "input.con", "wall.lby"};
    QFileDialog* prompt = Prompt();
    auto* name = prompt->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const char* text = stage.dice.Pick(names);
    stage.Say(std::string(text) + " for " + Detail(prompt->windowTitle()));
    name->setFocus();
    name->setText(QLatin1String(text));
    stage.hands.Key(Qt::Key_Return);
    return true;
}

bool PromptCancel(Stage& stage) {
    QFileDialog* prompt = Prompt();
    const bool byKey = stage.dice.OneIn(2);
    stage.Say(Detail(prompt->windowTitle()));
    stage.journal.Reach("prompts cancelled");
    if (byKey)
        stage.hands.Key(Qt::Key_Escape);
    else
        prompt->close();
    return true;
}

} // namespace

const EventKinds& PromptEvents() {
    static const EventKinds kinds = {{"prompt file", 8, PromptFile},
                                     {"prompt name", 1, PromptName},
                                     {"prompt cancel", 3, PromptCancel}};
    return kinds;
}

} // namespace strativo::monkey
