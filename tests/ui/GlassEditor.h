#pragma once

#include "WindowTest.h"
#include "edit/GlassTypes.h"
#include "ui/ProfileGraph.h"
#include "ui/WINPRO.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <memory>

namespace strativo {

/// The glass properties editor on a type "CLEAR" with transmission 0.5 and absorption 0.25
/// throughout; a second type is called "TINTED".
class GlassEditor : public WindowTest {
protected:
    GlassEditor() {
        for (const char* name : {"TINTED", "CLEAR"})
            AddGlassType(project, name);
        for (int column = 1; column <= profileColumns; ++column) {
            Stored().transmission[column] = 0.5F;
            Stored().absorption[column] = 0.25F;
        }
        project.changed = false;
    }

    GlassType& Stored() { return project.glassTypes[2]; }

    void Open(int selectedColumn = 0) {
        project.selectedProfileColumn = selectedColumn;
        editor = std::make_unique<Profile>(program);
        graph = Find<ProfileGraph>(*editor, "Graph");
        level = Find<QLineEdit>(*editor, "EditLevel");
        nameField = Find<QLineEdit>(*editor, "GlassText");
        Show(*editor);
    }

    /// Opens it with the value field focused and empty.
    void OpenToType(int selectedColumn) {
        Open(selectedColumn);
        level->setFocus();
        level->selectAll();
    }

    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        PressKey(QApplication::focusWidget(), key, modifiers);
    }

    QPushButton* Button(const char* button) { return Find<QPushButton>(*editor, button); }
    QRadioButton* Option(const char* option) { return Find<QRadioButton>(*editor, option); }
    std::string ColumnLabel() { return Bytes(Find<QLabel>(*editor, "SelColumn")->text()); }
    std::string Level() const { return Bytes(level->text()); }
    std::string FocusName() const { return Bytes(QApplication::focusWidget()->objectName()); }
    int Column() const { return project.selectedProfileColumn; }

    /// The stored transmission once the editor's OK was accepted.
    const AngularValues& Accepted() {
        Button("OkBut")->click();
        EXPECT_FALSE(editor->isVisible());
        return Stored().transmission;
    }

    std::unique_ptr<Profile> editor;
    ProfileGraph* graph = nullptr;
    QLineEdit* level = nullptr;
    QLineEdit* nameField = nullptr;
};

} // namespace strativo
