#include "WindowChecks.h"
#include "calc/LayerList.h"
#include "calc/UValue.h"
#include "edit/ConstructionEntry.h"
#include "fuzz/Invariants.h"
#include "ui/LayerList.h"
#include "ui/STRATVMD.h"
#include "ui/Text.h"
#include "ui/UValue.h"
#include "ui/WindowArea.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>

namespace strativo::monkey {

namespace {

using fuzz::Require;

/// The window of one construction beside its record.
class ConstructionChecks {
public:
    ConstructionChecks(UValue& shown, const Construction& stored, int itsNumber)
        : window(shown), record(stored), number(itsNumber), view(ViewLayerList(stored)) {}

    void Run() {
        Require(window.isEnabled(), "a construction's window is enabled");
        RequireList();
        RequireTexts();
        RequireType();
    }

private:
    template <class Control>
    Control* Find(const char* name) {
        auto* control = window.findChild<Control*>(QLatin1String(name));
        Require(control != nullptr, "a construction's window has all of its controls");
        return control;
    }

    void RequireList() {
        auto* list = Find<LayerList>("Construction");
        Require(list->count() == static_cast<int>(view.lines.size()),
                "the list shown has a line for each layer");
        for (int line = 0; line < list->count(); ++line)
            Require(list->item(line)->text() == ToText(view.lines[static_cast<std::size_t>(line)]),
                    "the lines shown are those of the layers");
        Require(list->Marks() == view.marks, "the lines selected are the layers marked");
        const int current = record.currentLayer - 1;
        Require(list->currentRow() == (current < list->count() ? current : -1),
                "the list's focused line is the current layer");
    }

    /// A field that the user is typing into may hold anything, also while a menu or another program
    /// is looked at.
    bool IsTypedInto(const QLineEdit* field) {
        const QWidget* focus = window.window()->focusWidget();
        return !window.isActiveWindow() || focus == field
               || qobject_cast<const QMenuBar*>(focus) != nullptr;
    }

    void RequireField(const char* name, const std::string& text, const char* promise) {
        const auto* field = Find<QLineEdit>(name);
        Require(IsTypedInto(field) || field->text() == ToText(text), promise);
    }

    void RequireThickness() {
        const double thickness = record.window.shownThickness;
        const auto* field = Find<QLineEdit>("EditThick");
        // What was typed over a negative resistance stays in the field, also when a layer without a
        // thickness takes its place.
        const bool isAsTyped = CurrentLayer(record).thickness <= 0 && field->isModified();
        if (!isAsTyped)
            RequireField("EditThick", ThicknessText(thickness),
                         "the thickness shown is the one remembered");
    }

    void RequireTexts() {
        // A file's name may have characters that nobody can enter.
        RequireField("NameText", CleanEntry(record.name), "the name shown is the one stored");
        RequireThickness();
        RequireField("AbsorpText", view.absorpText, "the absorption shown is the current layer's");
        Require(Find<QLabel>("IndexText")->text() == QString::number(number),
                "the number shown is the construction's");
        Require(Find<QLabel>("ConName")->text() == ToText(view.conName),
                "the layer named is the current one");
        Require(Find<QLabel>("Result")->text() == ToText(UValueText(record)),
                "the U-value shown is that of the layers");
    }

    void RequireType() {
        Require(Find<QComboBox>("TypeCombo")->currentIndex() == record.type,
                "the type shown is the one stored");
        Require(Find<QLineEdit>("AbsorpText")->isVisibleTo(&window)
                    == (record.type == transparentType),
                "only transparent constructions show an absorption");
    }

    UValue& window;
    const Construction& record;
    int number;
    LayerListView view;
};

} // namespace

void RequireConstructionWindows(UValueMDI& program) {
    const Project& project = program.TheProject();
    for (const int id : program.Area().Windows()) {
        UValue* window = id > 0 ? program.ConstructionWindow(id) : nullptr;
        if (window == nullptr)
            continue;
        if (InUse(project, id))
            ConstructionChecks(*window, project.constructions[id], id).Run();
        else
            Require(!window->isEnabled(), "a window without a construction is without function");
    }
}

} // namespace strativo::monkey
