#include <gtest/gtest.h>
#include <string>

#include "eq/EqCurve.h"
#include "eq/EqPreset.h"
#include "eq/EqWindow.h"
#include "fakes/ProgramBench.h"
#include "radio/SimulatedPorts.h"

namespace korvex {
namespace {

constexpr EqValues flat{0, 5, 3, 600, -7, 2, 1400, 10, 10};
constexpr EqValues shaped{300, 5, 4, 1000, -12, 1, 3200, 10, 10};

TEST(EqCurve, IsTheSumOfPeakingFiltersAndFlatWhereABandIsOff) {
    for (const double hertz : {50.0, 300.0, 4000.0}) EXPECT_DOUBLE_EQ(eq::response(flat, hertz), 0);
    EqValues one = flat;
    one[3] = 1000;
    EXPECT_NEAR(eq::response(one, 1000), -7, 1e-9);
    EXPECT_NEAR(eq::response(one, 500), eq::response(one, 2000), 1e-9) << "even on both sides";
    // By hand: A = 10^(-7/40), Q = 2, twice the centre.
    EXPECT_NEAR(eq::response(one, 2000), -0.7544, 0.0001);
    EqValues narrow = one;
    narrow[5] = 10;
    EXPECT_GT(eq::response(narrow, 1500), eq::response(one, 1500));
    one[3] = 1099;
    EXPECT_NEAR(eq::response(one, 1000), -7, 1e-9) << "the radio has hundreds";
    EXPECT_NEAR(eq::response(shaped, 300) - 5, eq::response({0, 0, 1, 1000, -12, 1, 3200, 10, 10}, 300), 1e-9);

    const auto levels = eq::curve(shaped, 101);
    ASSERT_EQ(levels.size(), 101U);
    EXPECT_NEAR(levels.front(), eq::response(shaped, eq::lowestHertz), 1e-9);
    EXPECT_NEAR(levels.back(), eq::response(shaped, eq::highestHertz), 1e-6);
    EXPECT_NEAR(eq::placeOf(eq::hertzAt(0.3)), 0.3, 1e-9);
    EXPECT_EQ(eq::levelAxis(levels, {}), (eq::LevelAxis{-20, 10}));
    EXPECT_EQ(eq::levelAxis({0, -21}, {10.1}), (eq::LevelAxis{-30, 20}));
}

TEST(EqPreset, ComesBackAsItWasAndRefusesWhatItIsNot) {
    const std::string text = eqPresetText(shaped);
    EXPECT_EQ(text.substr(0, 92),
              "Korvex equalizer preset 1\r\nLow center frequency = 300\r\nLow gain = +05\r\nLow Q = 04\r\nMiddle ce");
    EXPECT_NE(eqPresetText(flat).find("High center frequency = OFF\r\n"), std::string::npos);
    EXPECT_EQ(*parseEqPreset(text), shaped);
    EXPECT_EQ(*parseEqPreset(eqPresetText(flat)), flat);
    std::string unix = text;
    std::erase(unix, '\r');
    EXPECT_EQ(*parseEqPreset(unix), shaped);

    const auto refused = [&text](const std::string& from, const std::string& to) {
        std::string file = text;
        file.replace(file.find(from), from.size(), to);
        const auto read = parseEqPreset(file);
        return read ? std::string("taken") : read.error().text.substr(read.error().text.rfind(':') + 2);
    };
    EXPECT_EQ(refused("preset 1", "preset 2"), "line 1 is not \"Korvex equalizer preset 1\".");
    EXPECT_EQ(refused("+05", "+11"), "line 3 has a value that the radio does not know.");
    EXPECT_EQ(refused("= 300", "= 350"), "line 2 has a value that the radio does not know.");
    EXPECT_EQ(refused("+05", "5"), "line 3 has a value that the radio does not know.");
    EXPECT_EQ(refused("Low Q = 04\r\n", ""), "line 4 should begin with \"Low Q = \".");
    EXPECT_EQ(refused("High Q = 10\r\n", ""), "line 10 should begin with \"High Q = \".");
    EXPECT_EQ(refused("High Q = 10\r\n", "High Q = 10\r\nHigh Q = 10\r\n"), "line 11 is one too many.");
    EXPECT_FALSE(parseEqPreset(""));
}

struct EqSetsTest : ::testing::Test {
    EqSetsTest() {
        window.toggleEqPort();
        clock.advance(10'000);
    }
    int radioHas(int menu) {
        return std::stoi(bench.ports.radio().answer("EX" + std::to_string(menu) + ";").substr(5));
    }

    fakes::ProgramBench<SimulatedPorts> bench;
    fakes::VirtualClock& clock = bench.clock;
    EqWindow& window = bench.program.eqWindow;
    EqExchange& exchange = window.exchange();
};

TEST_F(EqSetsTest, BothSetsAreKnownSoonAndTheProcessorAsTheRadioHasIt) {
    EXPECT_TRUE(window.canWrite);
    EXPECT_FALSE(exchange.processorOn);
    ASSERT_TRUE(exchange.shownValues() && exchange.other().values.get());
    const EqValues off = *exchange.shownValues();
    const EqValues on = *exchange.other().values.get();
    EXPECT_NE(off, on);

    bench.ports.radio().answer("PR1;");
    window.mnu_ReadAgain_Click();
    EXPECT_FALSE(window.canWrite);
    clock.advance(1000);
    EXPECT_TRUE(exchange.processorOn);
    clock.advance(10'000);
    EXPECT_EQ(exchange.shownValues(), on);
    EXPECT_EQ(exchange.other().values.get(), off);
    EXPECT_EQ(clock.armedTimers(), 0U);

    window.Command1_Click(1);  // what was shown stays behind, without another reading
    EXPECT_EQ(exchange.other().values.get(), on);
    clock.advance(5000);
    EXPECT_EQ(exchange.shownValues(), off);
    EXPECT_FALSE(exchange.other().reading());
}

TEST_F(EqSetsTest, ACopyAsksWritesAtItsPaceAndHoldsTheRadioToIt) {
    const EqValues off = *exchange.shownValues();
    bench.msgBox.foresee("for processor ON are replaced", MsgAnswer::No);
    window.mnu_CopyOffToOn_Click();
    EXPECT_NE(exchange.other().values.get(), off);
    bench.msgBox.foresee("for processor ON are replaced", MsgAnswer::Yes);
    window.mnu_CopyOffToOn_Click();
    EXPECT_FALSE(window.canWrite);
    clock.advance(6000);
    EXPECT_EQ(exchange.other().values.get(), off);
    EXPECT_EQ(window.errorPanel.get(), "Written");
    EXPECT_TRUE(window.canWrite);
    EXPECT_EQ(radioHas(134), radioHas(125));
    EXPECT_EQ(radioHas(142), radioHas(133));

    // Into the shown set, and a radio that forgets one of the nine.
    exchange.applyValue(1, exchange.value[1] == -20 ? -19 : -20);
    clock.advance(100);
    bench.ports.faults().forgetsWrite = 1;
    bench.msgBox.foresee("for processor OFF are replaced", MsgAnswer::Yes);
    window.mnu_CopyOnToOff_Click();
    clock.advance(7000);
    EXPECT_EQ(window.errorPanel.get(), "1 of 9 values did not take");
}

TEST_F(EqSetsTest, APresetGoesIntoAFileAndBackIntoTheRadio) {
    const EqValues before = *exchange.shownValues();
    const std::string file = bench.folder.file("my.eqp");
    bench.fileDialog.choose(file);
    window.mnu_SavePreset_Click();
    EXPECT_EQ(*parseEqPreset(fakes::fileContent(file)), before);
    for (std::size_t item = 0; item < eqItemCount; ++item) exchange.applyValue(item, eqItems[item].highest);
    clock.advance(1000);
    EXPECT_EQ(radioHas(142 - 9), 10);
    bench.fileDialog.choose(file);
    bench.msgBox.foresee(eq::inWords(before), MsgAnswer::Yes);
    window.mnu_LoadPreset_Click();
    clock.advance(7000);
    EXPECT_EQ(exchange.shownValues(), before);
    EXPECT_EQ(window.errorPanel.get(), "Written");

    fakes::writeFile(file, "not one");
    bench.fileDialog.choose(file);
    bench.msgBox.foresee("This is no equalizer preset");
    window.mnu_LoadPreset_Click();
    window.toggleEqPort();
    window.mnu_ReadAgain_Click();
    clock.advance(1000);
    EXPECT_EQ(exchange.shownValues(), before);
}

TEST_F(EqSetsTest, APresetForAProcessorThatTheRadioDoesNotSwitchIsForgotten) {
    const EqValues off = *exchange.shownValues();
    const std::string file = bench.folder.file("my.eqp");
    fakes::writeFile(file, eqPresetText(shaped));
    bench.ports.faults().refusesItems = {"PR1"};
    window.Command1_Click(0);
    bench.fileDialog.choose(file);
    window.mnu_LoadPreset_Click();
    EXPECT_EQ(window.errorPanel.get(), "The preset waits for the reading");
    clock.advance(10'000);  // no question comes for the other set
    EXPECT_EQ(window.errorPanel.get(), "The radio did not switch the processor");
    EXPECT_EQ(exchange.shownValues(), off);
    window.mnu_ReadAgain_Click();
    clock.advance(10'000);
    EXPECT_TRUE(window.canWrite);
    EXPECT_EQ(exchange.shownValues(), off);
}

TEST_F(EqSetsTest, AWriteIsCutOffByThePortAndByTheProcessor) {
    const auto begin = [this] {
        bench.msgBox.foresee("replaced", MsgAnswer::Yes);
        window.mnu_CopyOffToOn_Click();
        clock.advance(250);
    };
    begin();
    window.toggleEqPort();
    EXPECT_FALSE(window.canWrite);
    EXPECT_EQ(clock.armedTimers(), 0U);
    window.toggleEqPort();
    clock.advance(10'000);
    begin();
    window.Command1_Click(0);
    clock.advance(10'000);
    EXPECT_NE(window.errorPanel.get(), "Written");
    EXPECT_TRUE(window.canWrite);
}

}  // namespace
}  // namespace korvex
