#include "ui/MoreWindows.h"

#include "WindowTest.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

namespace strativo {
namespace {

std::vector<WindowLine> Walls(int count) {
    std::vector<WindowLine> lines;
    for (int number = 1; number <= count; ++number)
        lines.push_back({std::to_string(number), "Wall", "Opaque", "0.25"});
    return lines;
}

class ListOfWindows : public WindowTest {
protected:
    /// Chooses among 5,000 windows by these steps.
    int Choose(std::function<void(QDialog&)> steps) {
        InDialog(std::move(steps));
        std::vector<WindowLine> lines = Walls(5000);
        lines[59] = {"60", "Flat roof <b>", "Transparent", "1.90"};
        return ChooseWindow(lines, nullptr);
    }

    static void Filter(QDialog& dialog, const char* text) {
        Find<QLineEdit>(dialog, "Filter")->setText(QLatin1String(text));
    }

    static int Lines(const QDialog& dialog) {
        return Find<QTreeView>(dialog, "Windows")->model()->rowCount();
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
        Filter(dialog, "CONSTRUCTION 499");
        EXPECT_EQ(Lines(dialog), 15) << "499, 1499 to 4499, 4990 to 4999";
    });
}

TEST_F(ListOfWindows, ShowsNumberNameTypeAndUValue) {
    Choose([](QDialog& dialog) {
        const auto* model = Find<QTreeView>(dialog, "Windows")->model();
        const char* const headings[] = {"Number", "Name", "Type", "U-value W/m2C"};
        const char* const texts[] = {"60", "Flat roof <b>", "Transparent", "1.90"};
        ASSERT_EQ(model->columnCount(), 4);
        for (int column = 0; column < 4; ++column) {
            EXPECT_EQ(Bytes(model->headerData(column, Qt::Horizontal).toString()),
                      headings[column]);
            EXPECT_EQ(Bytes(model->index(59, column).data().toString()), texts[column]);
        }
    });
}

TEST_F(ListOfWindows, FindsAWindowByAnyOfThem) {
    for (const char* text : {"flat roof", "TRANSP", "1.90", "roof 1.90"})
        EXPECT_EQ(Choose([&](QDialog& dialog) {
                      Filter(dialog, text);
                      PressKey(&dialog, Qt::Key_Return);
                  }),
                  59)
            << text;
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
        auto* list = Find<QTreeView>(dialog, "Windows");
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
