#include "bandstack/BandStackParts.h"

#include <gtest/gtest.h>
#include <set>

#include "bandstack/BandStackBench.h"
#include "fakes/TalkativePorts.h"

namespace korvex {
namespace {

struct Parts : testing::Test {
    Parts() {
        bench.openPort();
        read();
    }
    void read() {
        const std::string file = bench.folder.file("radio.bsr");
        bench.fileDialog.choose(file);
        window.mnu_readBandStack_Click();
        EXPECT_TRUE(bench.clock.advanceUntil([this] { return !bench.ends.empty(); }, 200'000));
        bench.ends.clear();
        bench.ports.written.clear();
    }
    std::string written() {
        settle();
        EXPECT_EQ(bench.ends, std::vector{Outcome::Kind::Done});
        return bench.ports.written;
    }
    void settle() {
        EXPECT_TRUE(bench.clock.advanceUntil([this] { return bench.program.link.operation() == nullptr; }, 200'000));
    }
    int count(const std::string& text, const std::string& part) {
        int found = 0;
        for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++found;
        return found;
    }

    BandStackBench<fakes::TalkativePorts> bench;
    BandStackWindow& window = bench.window;
    BandStackComparison& comparison = window.comparison();
    RadioState& radio = bench.ports.radio().state;
};

TEST(BandStackParts, SayWhatAPersonCallsThem) {
    EXPECT_EQ(registerInWords(1), "160 m / 1");
    EXPECT_EQ(registerInWords(17), "20 m / 2");
    EXPECT_EQ(registerInWords(33), "6 m / 3");
    EXPECT_EQ(firstOfBand(18), 16);
    EXPECT_EQ(bandOfFrequency("FA14350000;"), 5);
    EXPECT_EQ(bandOfFrequency("FA14350001;"), -1);
    EXPECT_EQ(bandOfFrequency("FA01800000;"), 0);
    EXPECT_EQ(bandOfFrequency("MD02;"), -1);
    EXPECT_EQ(readableAnswer("FA14074000;"), "14.074.000");
    EXPECT_EQ(readableAnswer("FB00475000;"), "0.475.000");
    for (const char* kept : {"FA1407400;", "FA14074000", "FA1407400x;", "MD02;", "?;", ""}) {
        EXPECT_EQ(readableAnswer(kept), kept);
    }
    const BandStackCells cells;
    std::set<std::string_view> names;
    for (int row = 1; row < cells.rows(); ++row) names.insert(settingInWords(cells.query(row), row));
    EXPECT_EQ(names.size(), 24U);
    EXPECT_FALSE(names.contains(""));
}

TEST_F(Parts, OneBandIsWrittenAloneAndTheGridStays) {
    for (const Pace pace : {Pace::Every100Ms, Pace::Answered}) {
        bench.ends.clear();
        bench.ports.written.clear();
        bench.program.link.pace = pace;
        const BandStackCells before = window.stack().cells();
        const Values stood = radio.currentRegister();
        window.stack().grid.setCurrent(5, 17);
        window.mnu_writeBand_Click();
        const std::string text = written();
        EXPECT_EQ(count(text, "BS05;"), 4) << "and one step to the first of them: " << text;
        EXPECT_EQ(count(text, "BS"), 5) << "and back to 6 m, where the reading has left the radio: " << text;
        EXPECT_EQ(radio.band, 10);
        EXPECT_EQ(radio.currentRegister(), stood);
        for (const int column : {16, 17, 18}) EXPECT_GE(count(text, before.at(10, column)), 1);
        EXPECT_EQ(count(text, before.at(10, 1)), 0);
        EXPECT_EQ(window.stack().cells(), before);
    }
    bench.setCell(7, 18, "");
    bench.ends.clear();
    bench.ports.written.clear();
    bench.msgBox.foresee("20 m / 3 is empty or incomplete.\r\nWrite 20 m all the same?", MsgAnswer::No);
    window.mnu_writeBand_Click();
    bench.setCell(1, 16, "?;");
    bench.msgBox.foresee("20 m / 1 was refused");
    window.mnu_writeBand_Click();
    bench.clock.advance(2'000);
    EXPECT_EQ(bench.ports.written, "");
}

TEST_F(Parts, OneBandIsWrittenAndTheRadioIsLedBackOrItIsSaidThatItIsNot) {
    const auto writeTwentyMetres = [&] {
        window.stack().grid.setCurrent(5, 17);
        window.mnu_writeBand_Click();
        settle();
    };
    radio.band = 3;
    radio.set("FA", "07123456");  // on the band, and tuned away from what the reading found
    const Values stood = radio.currentRegister();
    writeTwentyMetres();
    EXPECT_EQ(radio.band, 3);
    EXPECT_EQ(radio.currentRegister(), stood);

    radio.band = 5;
    writeTwentyMetres();
    EXPECT_EQ(radio.band, 5);
    EXPECT_EQ("FA" + radio.get("FA") + ";", bench.cell(10, 16)) << "on the first of what was written";

    radio.band = 3;
    radio.set("FA", "06070000");
    bench.msgBox.foresee("The radio stood on 6.070.000; now it does not.");
    writeTwentyMetres();
    radio.memoryMode = true;
    radio.recalled = radio.currentRegister();
    radio.set("FA", "07050000");
    bench.msgBox.foresee("The radio stood on 7.050.000; now it does not.");
    writeTwentyMetres();
}

TEST_F(Parts, OneRegisterIsWrittenIntoTheOneThatTheRadioStandsOn) {
    for (const Pace pace : {Pace::Every100Ms, Pace::Answered}) {
        bench.ends.clear();
        bench.ports.written.clear();
        bench.program.link.pace = pace;
        window.stack().grid.setCurrent(5, 17);
        bench.msgBox.foresee("Write 20 m / 2 there now?", MsgAnswer::No);
        window.mnu_writeRegister_Click();
        EXPECT_FALSE(window.writer().running());
        bench.msgBox.foresee("Choose that with the radio's band key first", MsgAnswer::Yes);
        window.mnu_writeRegister_Click();
        const std::string text = written();
        EXPECT_EQ(count(text, "BS"), 0) << text;
        EXPECT_EQ(count(text, "FA1"), 1) << text;
        EXPECT_EQ(count(text, bench.cell(10, 17)), 1) << text;
        EXPECT_EQ(window.comparison().result.get(), "20 m / 2: 22 settings written");
    }
}

TEST_F(Parts, AreComparedWithOneAnotherWithAFileAndWithTheRadio) {
    auto& grid = window.stack().grid;
    comparison.compareRegisters();
    EXPECT_NE(comparison.result.get().find("Mark the register first"), std::string::npos);
    for (int row = 1; row <= BandStackCells::lastQueried; ++row) bench.setCell(row, 17, bench.cell(row, 16));
    bench.setCell(10, 17, "FA14200000;");
    grid.setCurrent(1, 16);
    comparison.markRegister();
    grid.setCurrent(1, 17);
    comparison.compareRegisters();
    EXPECT_EQ(comparison.result.get(), "1 setting differs: 20 m / 1 and 20 m / 2");
    EXPECT_TRUE(comparison.backColour(10, 16));
    EXPECT_FALSE(comparison.backColour(10, 18));
    EXPECT_FALSE(comparison.backColour(9, 16));
    EXPECT_EQ(comparison.text(10, 17), "\u226014.200.000");
    EXPECT_EQ(comparison.description(10, 17), "FA14200000;\n20 m / 1: " + bench.cell(10, 16));
    EXPECT_EQ(comparison.text(0, 17), "20 m / 2\nBS05;");
    EXPECT_EQ(comparison.text(10, 0), "FA;  VFO A frequency");

    bench.fileDialog.choose(bench.folder.file("radio.bsr"));
    comparison.compareFile();
    EXPECT_NE(comparison.result.get().find(" in 1 register differ"), std::string::npos) << comparison.result.get();
    EXPECT_NE(comparison.result.get().find("from radio.bsr"), std::string::npos);
    EXPECT_FALSE(comparison.differs(10, 16));
    window.stack().show(BandStackCells());  // the grid is another now
    EXPECT_NE(comparison.result.get().find("in 33 registers"), std::string::npos);
    comparison.end();
    EXPECT_EQ(comparison.result.get(), "");

    bench.fileDialog.choose(bench.folder.file("radio.bsr"));
    window.loadBandStackFile();
    const BandStackCells before = window.stack().cells();
    bench.program.link.pace = Pace::Answered;
    const auto compareRadio = [&] {
        comparison.compareRadio();
        settle();
    };
    const RadioState stood = radio;
    compareRadio();  // which begins in each band with the register that the reading has ended with
    EXPECT_EQ(comparison.result.get(), "No setting differs from the radio");
    EXPECT_EQ(radio, stood) << "put back";
    EXPECT_NE(comparison.reader().cells(), before);
    EXPECT_EQ(window.stack().cells(), before);
    bench.setCell(5, 33, "MD0C;");
    compareRadio();
    EXPECT_EQ(comparison.result.get(), "1 setting in 1 register differs from the radio");
    EXPECT_TRUE(comparison.differs(5, 33));
    radio.memoryMode = true;
    radio.recalled = radio.currentRegister();
    radio.set("FA", "07050000");
    compareRadio();
    EXPECT_NE(comparison.result.get().find("differs from the radio. The radio stood on"), std::string::npos);
    bench.program.link.closePort();
    comparison.compareRadio();
    EXPECT_NE(comparison.result.get().find("differs"), 0U);
}

}  // namespace
}  // namespace korvex
