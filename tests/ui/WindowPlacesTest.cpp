#include "ui/WindowPlaces.h"

#include <chrono>
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
    WindowPlaces places{{20, 48, 25, {100, 30}}, [this] { ++changes; }};
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

TEST_F(Places, ThousandsOfWindowsAreOpenedInNoTime) {
    const auto start = std::chrono::steady_clock::now();
    Open(20000);
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    EXPECT_LT(seconds.count(), 2) << "a search for each among all others takes minutes";
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

TEST_F(Places, NewWindowsLieSideBySideWhileThereIsRoom) {
    Open(6);
    const QPoint expected[] = {{0, 0}, {200, 0}, {0, 100}, {200, 100}, {0, 200}, {200, 200}};
    for (int id = 1; id <= 6; ++id)
        EXPECT_EQ(At(id), expected[id - 1]) << id;
}

TEST_F(Places, ANewWindowTakesThePlaceThatWasFreed) {
    Open(6);
    places.Close(2);
    places.Open(7, size);
    EXPECT_EQ(At(7), QPoint(200, 0));
}

TEST_F(Places, NewWindowsKeepClearOfTheOneInTheCorner) {
    places.Open(0, size, {.inCorner = true});
    Open(4);
    EXPECT_EQ(At(0), QPoint(292, 192));
    EXPECT_EQ(At(3), QPoint(0, 100));
    EXPECT_EQ(At(4), QPoint(0, 200));
}

TEST_F(Places, NewWindowsLieBelowTheOneInTheCornerUntilTheyAreRaisedAgain) {
    places.Open(0, size, {.inCorner = true});
    places.Raise(0);
    Open(3);
    EXPECT_THAT(places.Order(), ElementsAre(1, 2, 3, 0));
    places.Raise(2);
    EXPECT_THAT(places.Order(), ElementsAre(1, 3, 2, 0)) << "the first time";
    places.Raise(2);
    EXPECT_THAT(places.Order(), ElementsAre(1, 3, 0, 2));
    OpenAt(4, {});
    places.Raise(4);
    EXPECT_THAT(places.Order(), ElementsAre(1, 3, 0, 2, 4)) << "the corner is covered already";
}

TEST_F(Places, NewWindowsThatNeedNotLeaveTheCornerInSightLieOnTopOfIt) {
    places.Open(0, size, {.inCorner = true});
    places.Open(1, size, {.leavesCornerInSight = false});
    places.Raise(1);
    EXPECT_THAT(places.Order(), ElementsAre(0, 1));
}

TEST_F(Places, NewWindowsLieOnTopOfTheOneInTheCornerWhereItWouldCoverTheirTitle) {
    places.Open(0, size, {.inCorner = true});
    OpenAt(1, places.Geometry(0).topLeft());
    places.Raise(1);
    EXPECT_THAT(places.Order(), ElementsAre(0, 1));
    OpenAt(2, places.Geometry(0).topLeft() - QPoint(1, 0));
    places.Raise(2);
    places.SetHidden(1, true);
    EXPECT_THAT(places.Seen(), ElementsAre(2, 0)) << "the corner is covered already";
    places.SetHidden(1, false);
    places.Raise(0);
    OpenAt(3, places.Geometry(0).topLeft() - QPoint(1, 0));
    places.Raise(3);
    EXPECT_THAT(places.Order(), ElementsAre(1, 2, 3, 0)) << "its left edge can be seen";
}

TEST_F(Places, NewWindowsLieOnTopWhereNothingIsShownInTheCorner) {
    places.Open(0, size, {.inCorner = true});
    places.SetHidden(0, true);
    Open(1);
    places.Raise(1);
    EXPECT_THAT(places.Order(), ElementsAre(0, 1));
}

TEST_F(Places, FollowTheAreaAsIfTheyHadBeenOpenedInIt) {
    places.Open(0, size, {.inCorner = true});
    places.SetFollowsArea(true);
    Open(8);
    places.SetArea({900, 700});
    WindowPlaces later{{20, 48, 25, {100, 30}}, [] {}};
    later.SetArea({900, 700});
    later.Open(0, size, {.inCorner = true});
    for (int id = 1; id <= 8; ++id)
        later.Open(id, size);
    for (int id = 0; id <= 8; ++id)
        EXPECT_EQ(places.Geometry(id), later.Geometry(id)) << id;
}

TEST_F(Places, StayWhereTheyAreOnceTheyNoLongerFollowTheArea) {
    places.SetFollowsArea(true);
    Open(5);
    places.Move(2, {250, 10});
    places.SetArea({900, 300});
    EXPECT_EQ(At(2), QPoint(250, 10)) << "its user moved it";
    places.SetFollowsArea(false);
    const QPoint before = At(5);
    places.SetArea({1900, 1300});
    EXPECT_EQ(At(5), before);
}

TEST_F(Places, NewWindowsKeepClearOfIcons) {
    Open(1);
    places.SetMinimised(1, true);
    for (int id = 2; id <= 5; ++id)
        places.Open(id, size);
    EXPECT_EQ(At(5), QPoint(200, 100));
    places.Open(6, size);
    EXPECT_EQ(At(6), QPoint(100, 200)) << "beside the icon";
}

TEST_F(Places, WithoutRoomNewWindowsAreCascadedWhereNoneIsCoveredWholly) {
    Open(8);
    EXPECT_EQ(At(7), QPoint(25, 25));
    EXPECT_EQ(At(8), QPoint(50, 50));
}

TEST_F(Places, PlacesStartAnewWithoutWindows) {
    places.Open(0, size, {.remade = false, .inCorner = true});
    Open(9);
    for (int id = 1; id <= 9; ++id)
        places.Close(id);
    Open(6);
    EXPECT_EQ(At(1), QPoint(0, 0));
    EXPECT_EQ(At(2), QPoint(200, 0)) << "the second lies beside the first";
    EXPECT_EQ(At(5), QPoint(25, 25)) << "and the cascade has begun at its start";
}

TEST_F(Places, CascadeHasAsManyPlacesAsFit) {
    Open(10);
    places.Cascade();
    for (int id = 1; id <= 9; ++id)
        EXPECT_EQ(At(id), QPoint((id - 1) * 25, (id - 1) * 25)) << id;
    EXPECT_EQ(At(10), QPoint(0, 0));
}

TEST_F(Places, OfAsManyCascadedWindowsAsFitAPartOfEachIsSeen) {
    Open(9);
    places.Cascade();
    EXPECT_EQ(places.Seen().size(), 9U);
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

TEST_F(Places, CascadeLeavesTheWindowInTheCornerThereAndOnTop) {
    places.Open(0, size, {.inCorner = true});
    Open(2);
    places.Raise(0);
    places.Move(0, {290, 20});
    places.Raise(1);
    places.Cascade();
    EXPECT_EQ(At(0), QPoint(290, 20));
    EXPECT_EQ(At(2), QPoint(0, 0));
    EXPECT_EQ(At(1), QPoint(25, 25));
    EXPECT_THAT(places.Order(), ElementsAre(2, 1, 0));
}

TEST_F(Places, TheWindowInTheCornerFollowsItUntilItIsMoved) {
    places.Open(0, size, {.inCorner = true});
    places.SetArea({900, 600});
    EXPECT_EQ(At(0), QPoint(692, 492));
    places.Move(0, {100, 100});
    places.SetArea({1000, 700});
    EXPECT_EQ(At(0), QPoint(100, 100));
}

TEST_F(Places, IconsKeepClearOfTheWindowInTheCornerWhileThereIsRoom) {
    places.Open(0, size, {.inCorner = true});
    Open(7);
    for (int id = 1; id <= 7; ++id)
        places.SetMinimised(id, true);
    const QRect corner = places.Geometry(0);
    for (int id = 1; id <= 7; ++id)
        EXPECT_FALSE(places.Geometry(id).intersects(corner)) << id;
    EXPECT_EQ(At(3), QPoint(0, 240)) << "a second row begins where the window in the corner does";
}

TEST_F(Places, WithoutRoomIconsLieBelowTheWindowInTheCorner) {
    places.Open(0, {500, 290}, {.inCorner = true});
    Open(2);
    places.SetMinimised(1, true);
    places.SetMinimised(2, true);
    EXPECT_EQ(At(1), QPoint(0, 270));
    EXPECT_EQ(At(2), QPoint(100, 270));
}

TEST_F(Places, IconsKeepClearOfACornerThatComesNearerToThem) {
    places.Open(0, size, {.inCorner = true});
    Open(2);
    places.SetMinimised(1, true);
    places.SetMinimised(2, true);
    places.SetArea({320, 300});
    EXPECT_EQ(At(1), QPoint(0, 270));
    EXPECT_EQ(At(2), QPoint(0, 240));
}

TEST_F(Places, AMovedWindowCanBeGraspedLeftOfItsButtons) {
    Open(1);
    places.Move(1, {5000, 5000});
    EXPECT_EQ(At(1), QPoint(460, 280));
    places.Move(1, {-5000, -5000});
    EXPECT_EQ(At(1), QPoint(40 + 48 - 200, 0));
}

TEST_F(Places, AWindowThatFitsIsBroughtWhollyIntoASmallerArea) {
    OpenAt(1, {280, 180});
    OpenAt(2, {30, 20});
    places.SetArea({250, 150});
    EXPECT_EQ(At(1), QPoint(50, 50));
    EXPECT_EQ(At(2), QPoint(30, 20));
}

TEST_F(Places, ReturnWhenTheAreaGrowsAgain) {
    Open(2);
    OpenAt(3, {290, 190});
    places.SetArea({250, 150});
    places.SetArea({150, 80});
    EXPECT_EQ(At(3), QPoint(0, 0));
    places.SetArea({400, 300});
    EXPECT_EQ(At(3), QPoint(200, 190)) << "as far as they fit";
    places.SetArea({500, 300});
    EXPECT_EQ(At(2), QPoint(200, 0));
    EXPECT_EQ(At(3), QPoint(290, 190));
}

TEST_F(Places, StayWhereTheyWereMovedMeanwhileWhenTheAreaGrowsAgain) {
    OpenAt(1, {290, 190});
    OpenAt(2, {290, 190});
    places.SetArea({400, 300});
    places.Move(1, {10, 20});
    places.Move(2, {390, 290});
    places.BringInside(2);
    places.SetArea({500, 300});
    EXPECT_EQ(At(1), QPoint(10, 20));
    EXPECT_EQ(At(2), QPoint(200, 200));
}

TEST_F(Places, ALargerAreaLeavesWindowsWhereTheyWereMoved) {
    OpenAt(1, {450, 250});
    places.SetArea({600, 400});
    EXPECT_EQ(At(1), QPoint(450, 250));
}

TEST_F(Places, AWindowThatDoesNotFitIsBroughtInAsFarAsItsTitle) {
    OpenAt(1, {300, 250});
    places.SetArea({150, 80});
    EXPECT_EQ(At(1), QPoint(0, 0));
    EXPECT_LE(At(1).x() + 40, 150);
}

TEST_F(Places, AWindowIsBroughtWhollyInsideOnDemand) {
    OpenAt(1, {450, 250});
    places.BringInside(1);
    EXPECT_EQ(At(1), QPoint(300, 200));
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
                  places.BringInside(1);
                  places.SetArea({500, 300});
                  places.Close(7);
              }),
              0);
}

} // namespace
} // namespace strativo
