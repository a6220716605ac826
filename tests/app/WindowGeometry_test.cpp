#include "app/WindowGeometry.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace korvex {
namespace {

class MapStore : public SettingsStore {
public:
    std::string get(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view fallback) const override {
        EXPECT_EQ(application, "Korvex");
        EXPECT_EQ(section, "Settings");
        const auto found = values.find(std::string(key));
        return found == values.end() ? std::string(fallback) : found->second;
    }
    void save(std::string_view, std::string_view, std::string_view key, std::string_view value) override {
        values[std::string(key)] = value;
    }
    std::map<std::string, std::string> values;
};

TEST(WindowGeometry, OpensAtItsDefaultsAndWhereItWasLeft) {
    MapStore store;
    EXPECT_EQ(geometry::startWindow.load(store), (WindowPlace{3000, 3000, 6165, 7725}));
    geometry::startWindow.save(store, {0, 450, 9000, 8000});
    EXPECT_EQ(store.values["UtilitiesWidth"], "9000");
    EXPECT_EQ(geometry::startWindow.load(store), (WindowPlace{0, 450, 9000, 8000}));
    EXPECT_EQ(geometry::terminal.load(store), (WindowPlace{1000, 1000, 6500, 8500}));
}

TEST(WindowGeometry, AMinusInLeftOrTopTakesAllFixedValues) {
    MapStore store;
    store.values = {{"UtilitiesTop", "-32000"}, {"UtilitiesLeft", "700"}, {"UtilitiesWidth", "9999"}};
    EXPECT_EQ(geometry::startWindow.load(store), (WindowPlace{2000, 2000, 6165, 7725}));
    store.values = {{"frmEQ_SetLeft", "-1"}, {"frmEQ_SetHeight", "9999"}};
    EXPECT_EQ(geometry::equalizer.load(store), (WindowPlace{1000, 1000, 6555, 5500}));
}

TEST(WindowGeometry, NonsenseInTheStoreGivesTheDefault) {
    MapStore store;
    store.values = {{"TermLeft", "abc"}, {"TermTop", "99999999999"}, {"TermWidth", "0"}, {"TermHeight", "-8500"}};
    EXPECT_EQ(geometry::terminal.load(store), geometry::terminal.atFirst);
    store.values = {{"TermLeft", "480001"}, {"TermTop", ""}, {"TermWidth", "6.5"}, {"TermHeight", "4000"}};
    EXPECT_EQ(geometry::terminal.load(store), (WindowPlace{1000, 1000, 6500, 4000}));
}

TEST(WindowGeometry, KeepsOnlyWhatTheWindowOwns) {
    MapStore store;
    store.values = {{"BandStackHeight", "1"}, {"BandStackWidth", "7000"}};
    EXPECT_EQ(geometry::bandStack.load(store).height, geometry::bandStack.atFirst.height);
    EXPECT_EQ(geometry::bandStack.load(store).width, 7000);
    store.values.clear();
    geometry::bandStack.save(store, {1, 2, 3, 4});
    geometry::keyer.save(store, {5, 6, 7, 8});
    EXPECT_EQ(store.values, (std::map<std::string, std::string>{{"BandStackLeft", "1"},
                                                                {"BandStackTop", "2"},
                                                                {"BandStackWidth", "3"},
                                                                {"KeyerLeft", "5"},
                                                                {"KeyerTop", "6"}}));
}

TEST(WindowGeometry, AWindowOffEveryScreenComesIntoSight) {
    const std::vector<WindowPlace> screens = {{0, 0, 15000, 12000}, {15000, 0, 15000, 12000}};
    const WindowPlace onSecond{20000, 300, 6000, 6000};
    EXPECT_EQ(broughtIntoSight(onSecond, screens), onSecond);
    EXPECT_EQ(broughtIntoSight({100000, 90000, 6000, 6000}, screens), (WindowPlace{9000, 5550, 6000, 6000}));
    const WindowPlace corner{29000, 11000, 6000, 6000};  // enough left to grasp it by
    EXPECT_EQ(broughtIntoSight(corner, screens), corner);
    EXPECT_EQ(broughtIntoSight({500, 11900, 6000, 6000}, screens).top, 5550);  // the title bar was out of reach
    EXPECT_EQ(broughtIntoSight({500, 600, 90000, 90000}, screens), (WindowPlace{0, 0, 15000, 11550}));
}

}  // namespace
}  // namespace korvex
