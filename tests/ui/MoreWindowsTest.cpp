#include "ui/MoreWindows.h"

#include "WindowTest.h"

#include <QLineEdit>
#include <QListView>
#include <QPushButton>

namespace strativo {
namespace {

QStringList Captions(int count) {
    QStringList captions;
    for (int number = 1; number <= count; ++number)
        captions << QStringLiteral("Construction %1").arg(number);
    return captions;
}

class ListOfWindows : public WindowTest {
protected:
    /// Chooses among 5,000 windows by these steps.
    int Choose(std::function<void(QDialog&)> steps) {
        InDialog(std::move(steps));
        return ChooseWindow(Captions(5000), nullptr);
    }

    static void Filter(QDialog& dialog, const char* text) {
        Find<QLineEdit>(dialog, "Filter")->setText(QLatin1String(text));
    }

    static int Lines(const QDialog& dialog) {
        return Find<QListView>(dialog, "Windows")->model()->rowCount();
    }
};

TEST_F(ListOfWindows, ListsThemAll) {
    Choose([](QDialog& dialog) { EXPECT_EQ(Lines(dialog), 5000); });
}

TEST_F(ListOfWindows, GivesTheFirstOneOnEnterAlone) {
    EXPECT_EQ(Choose([](QDialog& dialog) { PressKey(&dialog, Qt::Key_Return); }), 0);
}

TEST_F(ListOfWindows, GivesTheIndexInTheWholeListWhateverIsFiltered) {
    const int chosen = Choose([](QDialog& dialog) {
        Filter(dialog, "4711");
        EXPECT_EQ(Lines(dialog), 1);
        Find<QPushButton>(dialog, "OKButton")->click();
    });
    EXPECT_EQ(chosen, 4710);
}

TEST_F(ListOfWindows, FiltersWithoutRegardToLetterCase) {
    Choose([](QDialog& dialog) {
        Filter(dialog, "construction 499");
        EXPECT_EQ(Lines(dialog), 11);
    });
}

TEST_F(ListOfWindows, TakesTheFilterTextAsItStands) {
    Choose([](QDialog& dialog) {
        Filter(dialog, ".*");
        EXPECT_EQ(Lines(dialog), 0);
    });
}

TEST_F(ListOfWindows, ArrowsInTheFilterFieldWalkThroughTheList) {
    const int chosen = Choose([](QDialog& dialog) {
        PressKey(Find(dialog, "Filter"), Qt::Key_Down);
        PressKey(Find(dialog, "Filter"), Qt::Key_Down);
        PressKey(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(chosen, 2);
}

TEST_F(ListOfWindows, ADoubleClickChooses) {
    const int chosen = Choose([](QDialog& dialog) {
        auto* list = Find<QListView>(dialog, "Windows");
        const QPoint third = list->visualRect(list->model()->index(2, 0)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, third);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, third);
    });
    EXPECT_EQ(chosen, 2);
}

TEST_F(ListOfWindows, GivesNoneOnCancelAndOnEscape) {
    EXPECT_EQ(Choose([](QDialog& dialog) { Find<QPushButton>(dialog, "CancelButton")->click(); }),
              -1);
    EXPECT_EQ(Choose([](QDialog& dialog) { PressKey(&dialog, Qt::Key_Escape); }), -1);
}

TEST_F(ListOfWindows, OffersNoOkWhenNothingMatches) {
    const int chosen = Choose([](QDialog& dialog) {
        Filter(dialog, "no such window");
        EXPECT_FALSE(Find(dialog, "OKButton")->isEnabled());
        PressKey(&dialog, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        Filter(dialog, "");
        EXPECT_TRUE(Find(dialog, "OKButton")->isEnabled());
    });
    EXPECT_EQ(chosen, -1);
}

} // namespace
} // namespace strativo
