#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "BandStackBench.h"
#include "bandstack/BandStackParts.h"
#include "radio/SimulatedPorts.h"

namespace korvex {
namespace {

/// It would be written over the band that the radio stands on.
TEST(BandStackWriterTest, TheRegistersOfABandThatTheRadioRefusesAreLeftOut) {
    for (const Pace pace : {Pace::Every100Ms, Pace::Answered}) {
        BandStackBench<SimulatedPorts> bench;
        bench.program.link.pace = pace;
        bench.openPort();
        bench.fileDialog.cancel();
        const auto untilEnded = [&bench](void (BandStackWindow::*click)()) {
            bench.ends.clear();
            (bench.window.*click)();
            bench.clock.advanceUntil([&bench] { return !bench.ends.empty(); }, 600'000);
        };
        const auto isTold = [&bench](const std::string& text) {
            return bench.program.link.received().text().find(text) != std::string::npos;
        };
        // The walk at fixed intervals leads nowhere back; it says where it has led to.
        untilEnded(&BandStackWindow::mnu_readBandStack_Click);
        const std::string there = readableAnswer(bench.ports.radio().answer("FA;"));
        EXPECT_EQ(isTold("The radio stands on " + there), pace == Pace::Every100Ms);
        bench.ports.radio().quirks.hasSixtyMetres = false;
        const auto bands = [&bench] {  // a walk leaves each band two registers on
            auto all = bench.ports.radio().state.registers;
            for (auto band = all.begin(); band != all.end(); band += RadioState::registersPerBand) {
                std::sort(band, band + RadioState::registersPerBand);
            }
            return all;
        };
        const auto before = bands();
        std::vector<std::string> refused;
        const auto told = bench.window.writer().ended.connect([&](const Outcome& end) { refused = end.refused; });
        untilEnded(&BandStackWindow::mnu_writeBandStack_Click);
        EXPECT_EQ(refused, (std::vector<std::string>{"02.1 BS", "02.2 BS", "02.3 BS"}));
        EXPECT_TRUE(bands() == before);
        EXPECT_EQ(isTold("may stand on another band than before"), pace == Pace::Every100Ms);
    }
}

}  // namespace
}  // namespace korvex
