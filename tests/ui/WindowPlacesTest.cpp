#include "ui/WindowPlaces.h"

#include <gmock/gmock.h>
#include <stdexcept>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// An area of 500 x 300 with windows of 200 x 100.
class Places : public testing::Test {
protected:
    Places() { places.SetArea({500, 300}); }

    void Open(int windows) {
        for (int id = 1; id <= windows; ++id)
            places.Open(id, size);
    }
    void OpenAt(int id, QPoint position) { places.Open(id, size, position); }
    QPoint At(int id) const { return places.Geometry(id).topLeft(); }
    /// The number of changes that the action reports.
    template <class Action>
    int ChangesOf(Action action) {
        const int before = changes;
        action();
        return changes - before;
    }

    static constexpr QSize size{200, 100};
    int changes = 0;
    WindowPlaces places{{20, 25, {100, 30}}, [this] { ++changes; }};
};

TEST_F(Places, ANewWindowLiesOnTop) {
    Open(3);
    EXPECT_THAT(places.Order(), ElementsAre(1, 2, 3));
    EXPECT_EQ(places.Topmost(), 3);
}

TEST_F(Places, WithoutWindowsThereIsNoTopmost) {
    EXPECT_EQ(places.Topmost(), std::nullopt);
    EXPECT_THAT(places.Seen(), IsEmpty());
    EXPECT_THROW(places.Geometry(1), std::out_of_range);
}

TEST_F(Places, ARaisedWindowLiesOnTop) {
    Open(3);
    places.Raise(1);
    EXPECT_THAT(places.Order(), ElementsAre(2, 3, 1));
}

TEST_F(Places, HiddenAndMinimisedWindowsAreNotTopmost) {
    Open(3);
    places.SetHidden(3, true);
    places.SetMinimised(2, true);
    EXPECT_EQ(places.Topmost(), 1);
    EXPECT_THAT(places.Windows(), ElementsAre(1, 2));
    places.SetHidden(3, false);
    EXPECT_EQ(places.Topmost(), 3);
}

TEST_F(Places, IconsFillTheBottomAndLieBelowAllWindows) {
    Open(3);
    places.SetMinimised(3, true);
    places.SetMinimised(1, true);
    EXPECT_EQ(places.Geometry(3), QRect(0, 270, 100, 30));
    EXPECT_EQ(places.Geometry(1), QRect(100, 270, 100, 30));
    EXPECT_EQ(places.Order().back(), 2);
}

TEST_F(Places, TheSixthIconStandsInTheSecondRow) {
    Open(6);
    for (int id = 1; id <= 6; ++id)
        places.SetMinimised(id, true);
    EXPECT_EQ(At(6), QPoint(0, 240));
}

TEST_F(Places, AFreedIconPlaceIsTakenNext) {
    Open(3);
    for (const int id : {1, 2, 3})
        places.SetMinimised(id, true);
    places.SetMinimised(1, false);
    places.Close(2);
    OpenAt(4, {});
    places.SetMinimised(4, true);
    EXPECT_EQ(At(4), QPoint(0, 270));
}

TEST_F(Places, ADraggedIconGoesBackIntoItsPlaceWhenArranged) {
    Open(1);
    const QPoint window = At(1);
    places.SetMinimised(1, true);
    places.Move(1, {250, 100});
    EXPECT_EQ(At(1), QPoint(250, 100));
    places.ArrangeIcons();
    EXPECT_EQ(At(1), QPoint(0, 270));
    places.SetMinimised(1, false);
    EXPECT_EQ(At(1), window);
}

TEST_F(Places, ArrangingIconsGoesByNumber) {
    Open(3);
    for (const int id : {3, 2, 1})
        places.SetMinimised(id, true);
    places.SetMinimised(2, false);
    places.ArrangeIcons();
    EXPECT_EQ(At(1), QPoint(0, 270));
    EXPECT_EQ(At(3), QPoint(100, 270));
}

TEST_F(Places, CascadeHasAsManyPlacesAsFit) {
    Open(10);
    places.Cascade();
    for (int id = 1; id <= 9; ++id)
        EXPECT_EQ(At(id), QPoint((id - 1) * 25, (id - 1) * 25)) << id;
    EXPECT_EQ(At(10), QPoint(0, 0));
}

TEST_F(Places, CascadeGoesByTheOrderAndLeavesOutWhatIsNotShown) {
    Open(4);
    places.Raise(1);
    places.SetMinimised(2, true);
    places.SetHidden(3, true);
    const QPoint hidden = At(3);
    places.Cascade();
    EXPECT_EQ(At(4), QPoint(0, 0));
    EXPECT_EQ(At(1), QPoint(25, 25));
    EXPECT_EQ(At(2), QPoint(0, 270));
    EXPECT_EQ(At(3), hidden);
}

TEST_F(Places, CascadeLeavesAWindowThatStaysInItsPlace) {
    places.Open(0, size, QPoint(290, 190), {.cascades = false});
    Open(1);
    places.Cascade();
    EXPECT_EQ(At(0), QPoint(290, 190));
    EXPECT_EQ(At(1), QPoint(0, 0));
}

TEST_F(Places, AMovedWindowKeepsItsTitleWithinReach) {
    Open(1);
    places.Move(1, {5000, 5000});
    EXPECT_TRUE(QRect(0, 0, 500, 300).contains(At(1)));
    places.Move(1, {-5000, -5000});
    EXPECT_EQ(At(1).y(), 0);
    EXPECT_GT(places.Geometry(1).right(), 0);
}

TEST_F(Places, AWindowIsBroughtBackIntoASmallerArea) {
    OpenAt(1, {450, 250});
    places.SetArea({200, 150});
    places.BringWithinReach(1);
    EXPECT_TRUE(QRect(0, 0, 200, 150).contains(At(1)));
}

TEST_F(Places, OnlyWindowsThatOthersLeaveAPartOfAreSeen) {
    OpenAt(1, {0, 0});
    OpenAt(2, {0, 0});
    OpenAt(3, {10, 0});
    EXPECT_THAT(places.Seen(), ElementsAre(3, 2));
    places.Raise(1);
    EXPECT_THAT(places.Seen(), ElementsAre(1, 3));
}

TEST_F(Places, SeveralWindowsTogetherCoverOne) {
    OpenAt(1, {100, 0});
    OpenAt(2, {0, 0});
    OpenAt(3, {200, 0});
    EXPECT_THAT(places.Seen(), ElementsAre(3, 2));
}

TEST_F(Places, WhatIsHiddenOrOutsideTheAreaIsNotSeen) {
    OpenAt(1, {0, 0});
    OpenAt(2, {600, 0});
    OpenAt(3, {300, 0});
    places.SetHidden(3, true);
    EXPECT_THAT(places.Seen(), ElementsAre(1));
}

TEST_F(Places, AWindowSaysItselfWhetherItsFrameMayBeLetGo) {
    Open(1);
    places.Open(-1, size, {.remade = false});
    EXPECT_TRUE(places.MayLetGo(1));
    EXPECT_FALSE(places.MayLetGo(-1));
}

TEST_F(Places, EachChangeIsReported) {
    EXPECT_EQ(ChangesOf([&] { Open(2); }), 2);
    EXPECT_EQ(ChangesOf([&] { places.Raise(1); }), 1);
    EXPECT_EQ(ChangesOf([&] { places.Move(1, {7, 7}); }), 1);
    EXPECT_EQ(ChangesOf([&] { places.SetHidden(1, true); }), 1);
    EXPECT_EQ(ChangesOf([&] { places.SetMinimised(2, true); }), 1);
    EXPECT_EQ(ChangesOf([&] { places.Cascade(); }), 1);
    EXPECT_EQ(ChangesOf([&] { places.ArrangeIcons(); }), 1);
    EXPECT_EQ(ChangesOf([&] { places.SetArea({400, 300}); }), 1);
    EXPECT_EQ(ChangesOf([&] { places.Close(1); }), 1);
}

TEST_F(Places, WhatChangesNothingIsNotReported) {
    Open(2);
    EXPECT_EQ(ChangesOf([&] {
                  places.Raise(2);
                  places.Move(2, At(2));
                  places.SetHidden(1, false);
                  places.SetMinimised(1, false);
                  places.BringWithinReach(1);
                  places.SetArea({500, 300});
                  places.Close(7);
              }),
              0);
}

} // namespace
} // namespace strativo
