#include "ui/WINFORM.h"

#include "WindowTest.h"
#include "edit/GlassTypes.h"

#include <QClipboard>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GlassTypesWindow : public WindowTest {
protected:
    /// Glass types of these names in slots 1, 2, ...; an empty name is a free slot.
    void AddTypes(const std::vector<std::string>& names) {
        for (const std::string& name : names)
            AddGlassType(project, name.empty() ? "to be freed" : name);
        for (GlassType& type : project.glassTypes)
            if (type.name == "to be freed")
                type.name.clear();
    }

    /// The window, open beside a field that can take the focus away from it.
    void Open() {
        auto* row = new QHBoxLayout(&host);
        window = new WinForm(program, &host);
        elsewhere = new QLineEdit(&host);
        row->addWidget(window);
        row->addWidget(elsewhere);
        list = Find<QListWidget>(*window, "WinList");
        atEndOfAction = [this] { window->ShowGlassTypes(); };
        Show(host);
        list->setFocus();
    }

    void Open(const std::vector<std::string>& names) {
        AddTypes(names);
        Open();
    }

    QPushButton* Button(const char* name) { return Find<QPushButton>(*window, name); }

    std::vector<std::string> Listed() const {
        std::vector<std::string> lines;
        for (int row = 0; row < list->count(); ++row)
            lines.push_back(Bytes(list->item(row)->text()));
        return lines;
    }

    void ClickLine(int row) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, LinePosition(row));
    }

    QPoint LinePosition(int row) const { return list->visualItemRect(list->item(row)).center(); }

    void ExpectSelectionButtons(bool enabled) {
        EXPECT_EQ(Button("EditBut")->isEnabled(), enabled) << "EditBut";
        EXPECT_EQ(Button("DelBut")->isEnabled(), enabled) << "DelBut";
    }

    QWidget host;
    WinForm* window = nullptr;
    QLineEdit* elsewhere = nullptr;
    QListWidget* list = nullptr;
};

TEST_F(GlassTypesWindow, HasItsCaptions) {
    Open();
    EXPECT_EQ(Bytes(window->windowTitle()), "GlassTypes");
    EXPECT_EQ(Bytes(Find<QLabel>(*window, "WInlab")->text()), "&Glass type");
    EXPECT_EQ(Bytes(Button("Addbut")->text()), "&Add");
    EXPECT_EQ(Bytes(Button("EditBut")->text()), "&Edit");
    EXPECT_EQ(Bytes(Button("DelBut")->text()), "&Delete");
    EXPECT_EQ(Bytes(Button("WFLoad")->text()), "Load");
    EXPECT_EQ(Bytes(Button("Closebut")->text()), "&Close");
    EXPECT_EQ(Find<QLabel>(*window, "WInlab")->buddy(), list);
}

TEST_F(GlassTypesWindow, ExplainsEveryControl) {
    Open();
    EXPECT_FALSE(list->accessibleName().isEmpty());
    EXPECT_FALSE(list->toolTip().isEmpty());
    for (const char* name : {"Addbut", "EditBut", "DelBut", "WFLoad", "Closebut"})
        EXPECT_FALSE(Button(name)->toolTip().isEmpty()) << name;
}

TEST_F(GlassTypesWindow, IsWalkedThroughByTabInReadingOrder) {
    Open({"CLEAR"});
    ClickLine(0);
    std::vector<std::string> order;
    for (int steps = 0; steps < 6; ++steps) {
        order.push_back(Bytes(QApplication::focusWidget()->objectName()));
        PressKey(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_THAT(order, ElementsAre("WinList", "Addbut", "EditBut", "DelBut", "WFLoad", "Closebut"));
}

TEST_F(GlassTypesWindow, RecordsItsSourceWhenItIsLoaded) {
    EXPECT_EQ(project.windowSources[3], "");
    Open();
    EXPECT_EQ(project.windowSources[3].substr(0, 11), "WINFORM.cpp");
}

TEST_F(GlassTypesWindow, ListsNamesInSlotOrderWithoutFreeSlots) {
    Open({"B", "", "A", "C"});
    EXPECT_THAT(Listed(), ElementsAre("B", "A", "C"));
}

TEST_F(GlassTypesWindow, NeverListsTwoDimensionalTypes) {
    AddGlassType2D(project, "BLINDS 2D");
    Open();
    EXPECT_THAT(Listed(), IsEmpty());
}

TEST_F(GlassTypesWindow, ShowsNamesAsTheyStand) {
    Open({"<b>LOW & HIGH</b>", "\x80 5"});
    EXPECT_THAT(Listed(), ElementsAre("<b>LOW & HIGH</b>", "€ 5"));
}

TEST_F(GlassTypesWindow, SelectsNothingAtFirst) {
    Open({"CLEAR"});
    EXPECT_THAT(list->selectedItems(), IsEmpty());
    ExpectSelectionButtons(false);
}

TEST_F(GlassTypesWindow, AClickOnAnEntryEnablesEditAndDelete) {
    Open({"CLEAR", "TINTED"});
    ClickLine(1);
    ExpectSelectionButtons(true);
}

TEST_F(GlassTypesWindow, ArrowKeysSelectAsWell) {
    Open({"CLEAR", "TINTED"});
    PressKey(list, Qt::Key_Down);
    ExpectSelectionButtons(true);
}

TEST_F(GlassTypesWindow, ARefreshSelectsNothing) {
    Open({"CLEAR", "TINTED"});
    ClickLine(1);
    RefreshGlassTypeList(project);
    window->ShowGlassTypes();
    EXPECT_THAT(Listed(), ElementsAre("CLEAR", "TINTED"));
    EXPECT_THAT(list->selectedItems(), IsEmpty());
    ExpectSelectionButtons(false);
}

TEST_F(GlassTypesWindow, AddOpensTheEditorOnANewNamelessType) {
    Open({"CLEAR"});
    InDialog([this](QDialog& editor) {
        EXPECT_EQ(editor.objectName(), QStringLiteral("Profile"));
        EXPECT_EQ(project.currentGlassType, 2);
        EXPECT_EQ(Find<QLineEdit>(editor, "GlassText")->text(), QString());
    });
    Button("Addbut")->click();
}

TEST_F(GlassTypesWindow, AddThenOkListsTheNewType) {
    Open({"CLEAR"});
    InDialog([this](QDialog& editor) {
        Find<QLineEdit>(editor, "GlassText")->setText(QStringLiteral("TINTED"));
        Find<QPushButton>(editor, "OkBut")->click();
    });
    Button("Addbut")->click();
    EXPECT_THAT(Listed(), ElementsAre("CLEAR", "TINTED"));
}

TEST_F(GlassTypesWindow, AddThenCancelLeavesANamelessSlotThatTheNextAddTakes) {
    Open({"CLEAR"});
    for (int times = 0; times < 2; ++times) {
        InDialog([this](QDialog& editor) { Find<QPushButton>(editor, "CancelBut")->click(); });
        Button("Addbut")->click();
        EXPECT_THAT(Listed(), ElementsAre("CLEAR"));
        EXPECT_EQ(project.glassTypes.Size(), 2);
        EXPECT_EQ(project.currentGlassType, 2);
    }
}

TEST_F(GlassTypesWindow, EditOpensTheSelectedType) {
    Open({"CLEAR", "TINTED", "MIRROR"});
    ClickLine(1);
    InDialog([](QDialog& editor) {
        EXPECT_EQ(Bytes(Find<QLineEdit>(editor, "GlassText")->text()), "TINTED");
    });
    Button("EditBut")->click();
    EXPECT_EQ(project.currentGlassType, 2);
}

TEST_F(GlassTypesWindow, ADoubleClickOnAnEntryEditsIt) {
    Open({"CLEAR", "TINTED"});
    ClickLine(0);
    InDialog([](QDialog& editor) {
        EXPECT_EQ(Bytes(Find<QLineEdit>(editor, "GlassText")->text()), "CLEAR");
    });
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, LinePosition(0));
}

TEST_F(GlassTypesWindow, ADoubleClickBelowTheLastEntryOpensNothing) {
    Open({"CLEAR"});
    ClickLine(0);
    project.currentGlassType = 1;
    const QPoint below = LinePosition(0) + QPoint(0, 60);
    QTimer::singleShot(0, qApp, [] { ASSERT_EQ(QApplication::activeModalWidget(), nullptr); });
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, below);
    QApplication::processEvents();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(GlassTypesWindow, OkInTheEditorListsTheNewName) {
    Open({"CLEAR", "TINTED"});
    ClickLine(0);
    InDialog([](QDialog& editor) {
        Find<QLineEdit>(editor, "GlassText")->setText(QStringLiteral("CLEAR 6"));
        Find<QPushButton>(editor, "OkBut")->click();
    });
    Button("EditBut")->click();
    EXPECT_THAT(Listed(), ElementsAre("CLEAR 6", "TINTED"));
}

TEST_F(GlassTypesWindow, WithEqualNamesEditOpensTheLastAndDeleteRemovesTheFirst) {
    Open({"TWIN", "OTHER", "TWIN"});
    ClickLine(0);
    InDialog([](QDialog&) {});
    Button("EditBut")->click();
    EXPECT_EQ(project.currentGlassType, 3);
    prompts.Answers(Answer::yes);
    Button("DelBut")->click();
    EXPECT_EQ(project.glassTypes[1].name, "");
    EXPECT_THAT(Listed(), ElementsAre("OTHER", "TWIN"));
}

TEST_F(GlassTypesWindow, LetterCaseAndBlanksTellNamesApart) {
    Open({"CLEAR", "Clear", "CLEAR "});
    ClickLine(0);
    InDialog([](QDialog&) {});
    Button("EditBut")->click();
    EXPECT_EQ(project.currentGlassType, 1);
}

TEST_F(GlassTypesWindow, DeleteAsksFirst) {
    Open({"CLEAR"});
    ClickLine(0);
    prompts.Answers(Answer::no);
    Button("DelBut")->click();
    EXPECT_THAT(prompts.messages,
                ElementsAre(Message{"Do you want to delete this window type?", "Delete Window Type",
                                    Buttons::yesNo, Icon::question, Answer::no}));
}

TEST_F(GlassTypesWindow, AfterNoTheEntryStaysSelectedWithItsButtons) {
    Open({"CLEAR", "TINTED"});
    ClickLine(1);
    prompts.Answers(Answer::no);
    Button("DelBut")->click();
    EXPECT_THAT(Listed(), ElementsAre("CLEAR", "TINTED"));
    ASSERT_EQ(list->selectedItems().size(), 1);
    EXPECT_EQ(list->row(list->selectedItems().first()), 1);
    ExpectSelectionButtons(true);
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassTypesWindow, AfterYesTheNameIsGoneAndTheProjectChanged) {
    Open({"CLEAR", "TINTED"});
    ClickLine(0);
    Button("DelBut")->setFocus();
    prompts.Answers(Answer::yes);
    Button("DelBut")->click();
    EXPECT_THAT(Listed(), ElementsAre("TINTED"));
    EXPECT_TRUE(project.changed);
    ExpectSelectionButtons(false);
    EXPECT_TRUE(list->hasFocus()) << "not on the button after the one that is disabled now";
}

TEST_F(GlassTypesWindow, AddTakesTheSlotOfADeletedType) {
    Open({"CLEAR", "TINTED"});
    ClickLine(0);
    prompts.Answers(Answer::yes);
    Button("DelBut")->click();
    InDialog([this](QDialog& editor) {
        EXPECT_EQ(project.currentGlassType, 1);
        Find<QLineEdit>(editor, "GlassText")->setText(QStringLiteral("NEW"));
        Find<QPushButton>(editor, "OkBut")->click();
    });
    Button("Addbut")->click();
    EXPECT_THAT(Listed(), ElementsAre("NEW", "TINTED"));
}

TEST_F(GlassTypesWindow, LoadImportsAndListsTheTypesOfAFile) {
    const TemporaryFolder folder;
    prompts.OpensFile(folder.Write("glass.con", "!WINDOW = 'IMPORTED'\n!TRANS\n1\n!END\n"));
    Open({"CLEAR"});
    Button("WFLoad")->click();
    EXPECT_THAT(Listed(), ElementsAre("CLEAR", "IMPORTED"));
    EXPECT_TRUE(project.changed);
}

TEST_F(GlassTypesWindow, ACancelledLoadChangesNothing) {
    prompts.OpensFile("");
    Open({"CLEAR"});
    Button("WFLoad")->click();
    EXPECT_THAT(Listed(), ElementsAre("CLEAR"));
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassTypesWindow, CloseAsksToBeClosed) {
    Open();
    const QSignalSpy requests(window, &WinForm::CloseRequested);
    Button("Closebut")->click();
    EXPECT_EQ(requests.count(), 1);
}

TEST_F(GlassTypesWindow, LeavingItDisablesEditAndDelete) {
    Open({"CLEAR"});
    ClickLine(0);
    elsewhere->setFocus();
    ExpectSelectionButtons(false);
}

TEST_F(GlassTypesWindow, ComingBackDecidesAsAClickDoes) {
    Open({"CLEAR"});
    ClickLine(0);
    elsewhere->setFocus();
    Button("Closebut")->setFocus();
    ExpectSelectionButtons(true);
}

TEST_F(GlassTypesWindow, ComingBackWithoutASelectionEnablesNothing) {
    Open({"CLEAR"});
    elsewhere->setFocus();
    list->setFocus();
    ExpectSelectionButtons(false);
}

TEST_F(GlassTypesWindow, ABoxInFrontIsNoLeaving) {
    Open({"CLEAR"});
    ClickLine(0);
    QDialog box(&host);
    auto* button = new QPushButton(&box);
    InDialog([&](QDialog&) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return button->hasFocus(); }));
        ExpectSelectionButtons(true);
    });
    box.exec();
    ExpectSelectionButtons(true);
}

TEST_F(GlassTypesWindow, AListGoneStaleIsReadAgainOnComingBack) {
    Open({"CLEAR", "TINTED"});
    ClickLine(0);
    elsewhere->setFocus();
    ResetGlassTypes(project);
    AddGlassType(project, "OTHER");
    list->setFocus();
    EXPECT_THAT(Listed(), ElementsAre("OTHER"));
    ExpectSelectionButtons(false);
}

TEST_F(GlassTypesWindow, EditOfANameThatHasGoneOpensNothing) {
    Open({"CLEAR", "TINTED"});
    ClickLine(1);
    ResetGlassTypes(project);
    AddGlassType(project, "OTHER");
    QTimer::singleShot(0, qApp, [] { EXPECT_EQ(QApplication::activeModalWidget(), nullptr); });
    Button("EditBut")->click();
    QApplication::processEvents();
    EXPECT_EQ(project.currentGlassType, 1);
}

TEST_F(GlassTypesWindow, OpensTheEditorAsAModalDialog) {
    Open({"CLEAR"});
    ClickLine(0);
    InDialog([](QDialog& editor) { EXPECT_TRUE(editor.isModal()); });
    Button("EditBut")->click();
}

TEST_F(GlassTypesWindow, TheFirstEntryIsReachedByKeys) {
    for (const int types : {1, 2}) {
        AddTypes({std::string(static_cast<std::size_t>(types), 'A')});
        if (window == nullptr)
            Open();
        RefreshGlassTypeList(project);
        window->ShowGlassTypes();
        elsewhere->setFocus();
        list->setFocus(Qt::TabFocusReason);
        ExpectSelectionButtons(false);
        PressKey(list, Qt::Key_Down);
        ASSERT_EQ(list->selectedItems().size(), 1) << types;
        EXPECT_EQ(list->row(list->selectedItems().front()), 0) << types;
        ExpectSelectionButtons(true);
    }
}

TEST_F(GlassTypesWindow, ARightDoubleClickOpensNothing) {
    Open({"CLEAR"});
    ClickLine(0);
    QTest::mouseDClick(list->viewport(), Qt::RightButton, {}, LinePosition(0));
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(GlassTypesWindow, ControlCLeavesTheSystemsClipboardAlone) {
    Open({"CLEAR"});
    QApplication::clipboard()->setText(QStringLiteral("the user's"));
    ClickLine(0);
    PressKey(list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("the user's"));
}

TEST_F(GlassTypesWindow, TheFocusGoesToTheListAfterEditAndDelete) {
    Open({"CLEAR", "TINTED"});
    ClickLine(0);
    InDialog([this](QDialog& dialog) { Find<QPushButton>(dialog, "OkBut")->click(); });
    Button("EditBut")->setFocus();
    Button("EditBut")->click();
    EXPECT_EQ(host.focusWidget(), list);
    ClickLine(0);
    prompts.Answers(Answer::yes);
    Button("DelBut")->setFocus();
    Button("DelBut")->click();
    EXPECT_EQ(host.focusWidget(), list);
    EXPECT_THAT(Listed(), ElementsAre("TINTED"));
}

} // namespace
} // namespace strativo
