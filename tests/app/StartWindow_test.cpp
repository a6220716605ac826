#include "app/StartWindow.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "fakes/VirtualClock.h"

namespace korvex {
namespace {

struct StartWindowTest : testing::Test {
    std::string marks() {
        std::string seen;
        for (int tool = 0; tool < StartWindow::toolCount; ++tool) {
            const int color = window.backColor(tool);
            seen += color == 8438015 ? 'o' : color == 8454016 ? 'g' : '?';
        }
        return seen;
    }

    fakes::VirtualClock clock;
    std::vector<std::string> calls;
    std::function<void()> whileOpening = [] {};
    int busyFor = -1;  // the tool that may not be opened
    StartWindow window{clock,
                       {[this] { calls.push_back("close equalizer port"); }, [this] { calls.push_back("hide tools"); },
                        [this](int tool) { return tool != busyFor; },
                        [this](int tool) {
                            calls.push_back("open " + std::to_string(tool));
                            whileOpening();
                        },
                        [] {}, [] { return true; }}};
};

TEST_F(StartWindowTest, AClickMarksTheToolAndOpensItOnTheSecondTick) {
    EXPECT_EQ(marks(), "oooooo");
    window.Command1_Click(StartWindow::BandStack);
    EXPECT_EQ(marks(), "oooogo");
    EXPECT_EQ(calls, (std::vector<std::string>{"close equalizer port", "hide tools"}));
    calls.clear();
    clock.advance(299);
    EXPECT_TRUE(calls.empty());
    clock.advance(1);
    EXPECT_EQ(calls, std::vector<std::string>{"open 4"});
    clock.advance(5000);
    EXPECT_EQ(calls.size(), 1u);
    EXPECT_EQ(clock.armedTimers(), 0u);
}

TEST_F(StartWindowTest, OnlyTheLastPickedToolOpensAndBearsTheMark) {
    window.Command1_Click(StartWindow::Terminal);
    clock.advance(200);
    window.Command1_Click(StartWindow::Keyer);
    clock.advance(100);
    EXPECT_EQ(marks(), "ooooog");
    EXPECT_EQ(calls.back(), "open 5");
    window.Command1_Click(StartWindow::MenuManager);
    clock.advance(300);
    EXPECT_EQ(calls.back(), "open 2");
    EXPECT_EQ(marks(), "oogooo");
    const auto before = calls.size();
    busyFor = StartWindow::Equalizer;
    window.Command1_Click(StartWindow::Equalizer);
    EXPECT_EQ(calls.size(), before) << "nothing is hidden for a tool that may not come";
    EXPECT_EQ(marks(), "oogooo");
    window.markClosed(StartWindow::MenuManager);
    EXPECT_EQ(marks(), "oooooo");
}

TEST_F(StartWindowTest, AToolThatAsksSomethingWhileItOpensIsOpenedOnce) {
    whileOpening = [this] { clock.letEventsRun(2000); };
    window.Command1_Click(StartWindow::Terminal);
    clock.advance(300);
    EXPECT_EQ(calls, (std::vector<std::string>{"close equalizer port", "hide tools", "open 0"}));
}

TEST_F(StartWindowTest, AResizeTakesTheMark) {
    window.Command1_Click(StartWindow::Equalizer);
    window.Form_Resize();
    EXPECT_EQ(marks(), "oooooo");
    clock.advance(300);
    EXPECT_EQ(calls.back(), "open 3");
}

}  // namespace
}  // namespace korvex
