#include "windows/WindowGeometry.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

#include "fakes/FakeDialogs.h"

namespace korvex {
namespace {

TEST(WindowGeometry, OpensAtItsDefaultsAndWhereItWasLeft) {
    fakes::FakeSettings store;
    EXPECT_EQ(geometry::startWindow.load(store), (WindowPlace{3000, 3000, 6165, 7725}));
    geometry::startWindow.save(store, {0, 450, 9000, 8000});
    EXPECT_EQ(store.values["Settings/UtilitiesWidth"], "9000");
    EXPECT_EQ(geometry::startWindow.load(store), (WindowPlace{0, 450, 9000, 8000}));
    EXPECT_EQ(geometry::terminal.load(store), (WindowPlace{1000, 1000, 6500, 8500}));
}

TEST(WindowGeometry, AMinusInLeftOrTopTakesAllFixedValues) {
    fakes::FakeSettings store;
    store.values = {
        {"Settings/UtilitiesTop", "-32000"}, {"Settings/UtilitiesLeft", "700"}, {"Settings/UtilitiesWidth", "9999"}};
    EXPECT_EQ(geometry::startWindow.load(store), (WindowPlace{2000, 2000, 6165, 7725}));
    store.values = {{"Settings/frmEQ_SetLeft", "-1"}, {"Settings/frmEQ_SetHeight", "9999"}};
    EXPECT_EQ(geometry::equalizer.load(store), (WindowPlace{1000, 1000, 6555, 5500}));
}

TEST(WindowGeometry, NonsenseInTheStoreGivesTheDefault) {
    fakes::FakeSettings store;
    store.values = {{"Settings/TermLeft", "abc"},
                    {"Settings/TermTop", "99999999999"},
                    {"Settings/TermWidth", "0"},
                    {"Settings/TermHeight", "-8500"}};
    EXPECT_EQ(geometry::terminal.load(store), geometry::terminal.atFirst);
    store.values = {{"Settings/TermLeft", "480001"},
                    {"Settings/TermTop", ""},
                    {"Settings/TermWidth", "6.5"},
                    {"Settings/TermHeight", "4000"}};
    EXPECT_EQ(geometry::terminal.load(store), (WindowPlace{1000, 1000, 6500, 4000}));
}

TEST(WindowGeometry, KeepsOnlyWhatTheWindowOwns) {
    fakes::FakeSettings store;
    store.values = {{"Settings/BandStackHeight", "1"}, {"Settings/BandStackWidth", "7000"}};
    EXPECT_EQ(geometry::bandStack.load(store).height, geometry::bandStack.atFirst.height);
    EXPECT_EQ(geometry::bandStack.load(store).width, 7000);
    store.values.clear();
    geometry::bandStack.save(store, {1, 2, 3, 4});
    geometry::keyer.save(store, {5, 6, 7, 8});
    EXPECT_EQ(store.values, (std::map<std::string, std::string>{{"Settings/BandStackLeft", "1"},
                                                                {"Settings/BandStackTop", "2"},
                                                                {"Settings/BandStackWidth", "3"},
                                                                {"Settings/KeyerLeft", "5"},
                                                                {"Settings/KeyerTop", "6"}}));
}

TEST(WindowGeometry, AWindowOffEveryScreenComesIntoSight) {
    const std::vector<WindowPlace> screens = {{0, 0, 15000, 12000}, {15000, 0, 15000, 12000}};
    const WindowPlace onSecond{20000, 300, 6000, 6000};
    EXPECT_EQ(broughtIntoSight(onSecond, screens), onSecond);
    EXPECT_EQ(broughtIntoSight({100000, 90000, 6000, 6000}, screens), (WindowPlace{8850, 5550, 6000, 6000}));
    const WindowPlace corner{29000, 11000, 6000, 6000};  // enough left to grasp it by
    EXPECT_EQ(broughtIntoSight(corner, screens), corner);
    EXPECT_EQ(broughtIntoSight({500, 11900, 6000, 6000}, screens).top, 5550);  // the title bar was out of reach
    EXPECT_EQ(broughtIntoSight({500, 600, 90000, 90000}, screens), (WindowPlace{0, 0, 15000, 11550}));
}

}  // namespace
}  // namespace korvex
