#include "WindowTest.h"
#include "ui/LayerList.h"
#include "ui/UValue.h"

#include <QLabel>

namespace strativo {
namespace {

/// A construction window on its own, with a desktop that counts the beeps.
class Beeps : public WindowTest {
protected:
    void Open() {
        number = AddConstruction(project, {"A", "B"});
        window = std::make_unique<UValue>(number, program);
        Show(*window);
        prompts.calls.clear();
    }

    int Count() const { return prompts.Count("Beep"); }

    int number = 0;
    std::unique_ptr<UValue> window;
};

TEST_F(Beeps, ComeFromAPressOnTheBareBackground) {
    Open();
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_EQ(Count(), 1);
    QTest::mouseClick(window.get(), Qt::RightButton, {}, QPoint(3, 3));
    EXPECT_EQ(Count(), 2);
}

TEST_F(Beeps, DoNotComeFromLabelsAndControls) {
    Open();
    for (QWidget* child : window->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (child->isHidden() || child->inherits("QComboBox") || child->inherits("QPushButton"))
            continue;
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, child->geometry().center());
        EXPECT_EQ(Count(), 0) << child->objectName().toStdString();
    }
}

TEST_F(Beeps, ComeFromAPasteIntoAFullConstruction) {
    Open();
    for (int slot = 1; slot <= maxLayers; ++slot)
        project.constructions[number].layers.Edit(slot).name = "A";
    project.clipboard[1].name = "B";
    window->ShowConstruction();
    PressKey(Find(*window, "Construction"), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(project.constructions[number].layers[15].name, "A");
}

} // namespace
} // namespace strativo
