#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "bandstack/BandStackBench.h"
#include "base/NumberText.h"
#include "fakes/ScriptedDevice.h"
#include "radio/SimulatedPorts.h"

namespace korvex {
namespace {

using Write = fakes::ScriptedLine::Write;

/// The test is the radio: each query is answered after 30 ms with itself and a digit.
struct BandStackTransferTest : testing::Test {
    BandStackTransferTest() {
        line.answerDelay = 30;
        line.answer = [](std::string_view wire) {
            return isQuery(wire) ? std::string(wire.substr(0, wire.size() - 1)) + "2;" : "";
        };
        bench.openPort();
        line.forgetWrites();
    }
    static bool isQuery(std::string_view wire) { return wire.ends_with(';') && !wire.starts_with("BS"); }
    int count(std::string_view text) const {
        return static_cast<int>(
            std::count_if(line.writes.begin(), line.writes.end(), [&](const Write& w) { return w.text == text; }));
    }

    BandStackBench<fakes::ScriptedPorts> bench;
    fakes::ScriptedLine& line = bench.ports.plug(1);
    fakes::VirtualClock& clock = bench.clock;
    BandStackWindow& window = bench.window;
};

TEST_F(BandStackTransferTest, ReadsTwentyTwoAnswersOfEachRegister) {
    bench.fileDialog.cancel();
    window.mnu_readBandStack_Click();
    EXPECT_EQ(bench.program.progress.caption.get(), "Read Band Stack Registers of  FT-2000");
    EXPECT_EQ(bench.program.progress.maximum.get(), 800);
    clock.advance(49);
    EXPECT_EQ(line.story(), "0 BS00;");
    clock.advance(101);
    EXPECT_EQ(line.story(), "0 BS00;|50 AC;|150 BC0;");
    EXPECT_EQ(bench.error(), "Reading Band Stack ");
    EXPECT_EQ(bench.cell(1, 1), "AC2;");
    // A register takes its 22 queries and the time to the last answer; the next begins with that answer.
    constexpr int perRegister = 50 + 21 * 100 + 30;
    clock.advance(perRegister);
    EXPECT_EQ(line.writes.at(22), (Write{2150, "AN0;"}));
    EXPECT_EQ(line.writes.at(23), (Write{perRegister, "BS00;"}));
    EXPECT_EQ(line.writes.at(24), (Write{perRegister + 50, "AC;"}));
    clock.advance(80'000);
    ASSERT_EQ(line.writes.size(), 33U * 23);
    EXPECT_EQ(line.writes.at(32 * 23), (Write{32 * perRegister, "BS10;"}));
    EXPECT_EQ(line.writes.back(), (Write{32 * perRegister + 2150, "AN0;"}));
    EXPECT_EQ(bench.ends, std::vector{Outcome::Kind::Cancelled});
    EXPECT_EQ(bench.operation(), ActiveOperation::Idle);
    EXPECT_FALSE(bench.program.progress.visible);
    EXPECT_FALSE(window.reader().running());
    EXPECT_EQ(bench.cell(10, 33), "FA2;");
    EXPECT_EQ(bench.cell(23, 33) + bench.cell(24, 33), "");
}

TEST_F(BandStackTransferTest, AtTheAnsweredPaceTheBandSelectGoesWithTheFirstQueryAndItsRefusalIsKept) {
    line.answerDelay = 5;
    line.answer = [](std::string_view wire) -> std::string {
        if (wire.ends_with("ID;")) return "ID2;";
        if (wire.starts_with("BS")) return wire == "BS01;AC;" ? "?;AC2;" : "AC2;";
        return std::string(wire.substr(0, wire.size() - 1)) + "2;";
    };
    bench.program.link.pace = Pace::Answered;
    bench.fileDialog.cancel();
    window.mnu_readBandStack_Click();
    clock.advance(10);
    EXPECT_EQ(line.story(), "0 FA;|5 MD0;|10 BS00;AC;");
    clock.advance(33 * 22 * 5 - 5);
    ASSERT_EQ(line.writes.size(), 2 + 33U * 22);
    EXPECT_EQ(line.writes.at(3), (Write{15, "BC0;"}));
    EXPECT_EQ(line.writes.at(24), (Write{10 + 22 * 5, "BS00;AC;"}));
    clock.advance(2'000);
    EXPECT_EQ(line.writes.at(2 + 33U * 22).text, "BS02;ID;") << "home, the band that it stood on last";
    EXPECT_EQ(bench.ends, std::vector{Outcome::Kind::Cancelled});
    EXPECT_EQ(bench.cell(22, 33), "AN02;");
    EXPECT_EQ(bench.cell(1, 4) + bench.cell(2, 4), "?;BC02;");

    line.answer = [](std::string_view wire) {
        const std::string question(wire.substr(0, wire.size() - 1));
        return wire.starts_with("BS") ? "AC2;" : wire == "FA;" || wire == "MD0;" ? question + "2;" : "";
    };
    window.mnu_readBandStack_Click();
    clock.advance(10'000);
    EXPECT_EQ(bench.ends.back(), Outcome::Kind::NoAnswer);
    EXPECT_EQ(bench.error(), "The radio has stopped answering at register 1 of 33; nothing was read.");
}

TEST_F(BandStackTransferTest, ASilentRadioIsAskedAgainUntilThePortCloses) {
    line.answer = nullptr;
    window.mnu_readBandStack_Click();
    clock.advance(100'000);
    EXPECT_EQ(count("AC;"), 1000);
    bench.program.link.togglePort();
    line.forgetWrites();
    clock.advance(5000);
    EXPECT_EQ(line.story(), "");
    EXPECT_EQ(bench.ends, std::vector{Outcome::Kind::PortClosed});
    EXPECT_EQ(bench.operation(), ActiveOperation::Idle);
    EXPECT_EQ(clock.armedTimers(), 0U);
    bench.setCell(1, 1, "kept");
    window.mnu_readBandStack_Click();  // with the port closed nothing is sent, and nothing lost
    EXPECT_EQ(bench.cell(1, 1), "kept");
    bench.msgBox.foresee("32 of 33 registers are empty: 00.2 to 10.3. 1 is incomplete: 00.1.", MsgAnswer::Yes);
    window.mnu_writeBandStack_Click();
    clock.advance(5000);
    EXPECT_EQ(line.story(), "");
}

TEST_F(BandStackTransferTest, AnswersAreStoredAsTheyComeAndAutomaticsMadeSettable) {
    line.answer = [](std::string_view wire) -> std::string {
        if (wire == "GT0;") return "GT06;";
        if (wire == "GT1;") return "GT13;";
        if (wire == "RF0;") return "RF05;";
        if (wire == "KR;") return "?;";
        if (wire == "BI;")
            return "BI\x84"
                   "1;";
        return isQuery(wire) ? "X;" : "";
    };
    window.mnu_readBandStack_Click();
    clock.advance(2400);
    EXPECT_EQ(bench.cell(12, 1), "GT04;");
    EXPECT_EQ(bench.cell(13, 1), "GT13;");
    EXPECT_EQ(bench.cell(19, 1), "RF00;");
    EXPECT_EQ(bench.cell(14, 1), "?;");
    EXPECT_EQ(bench.cell(15, 1), "BI„1;");
    EXPECT_EQ(bench.cell(1, 2), "X;");  // the next register is under way
}

TEST_F(BandStackTransferTest, WhatComesLateTwiceOrUnaskedMovesNoRow) {
    const auto expectRegisters = [this](int last) {
        for (int column = 1; column <= last; ++column) {
            for (int row = 1; row <= BandStackCells::lastQueried; ++row) {
                const std::string query = bench.cell(row, 0);
                const std::string answer = query == "KR;" ? "?;" : query.substr(0, query.size() - 1) + "2;";
                ASSERT_EQ(bench.cell(row, column), answer) << "row " << row << " of register " << column;
            }
        }
    };
    const auto sensible = line.answer;
    line.answer = [sensible](std::string_view wire) { return wire == "KR;" ? "?;" : sensible(wire); };
    line.answerDelay = 450;  // each query is out five times until the program knows that radio
    window.mnu_readBandStack_Click();
    clock.advance(60'000);
    expectRegisters(3);
    window.reader().stop();
    clock.advance(2'000);

    line.answerDelay = 40;
    window.mnu_readBandStack_Click();
    for (int times = 0; times < 300; ++times) {
        clock.advance(37);
        line.feed("FA14195000;");
    }
    clock.advance(1'000);
    EXPECT_EQ(bench.cell(9, 2), "NA12;");
    window.reader().stop();
}

struct BandStackWriteTest : BandStackTransferTest {
    BandStackWriteTest() {
        line.answer = [this](std::string_view wire) { return wire == "AN0;" ? antenna : std::string(); };
        for (int column = 1; column <= 33; ++column) {
            for (int row = 1; row <= 22; ++row) bench.setCell(row, column, bench.cell(row, 0));
            bench.setCell(22, column, "AN0123;");
        }
    }
    std::string antenna = "AN0110;";
};

TEST_F(BandStackWriteTest, SendsEachCellEvery100msThenSetsTheAntennaRight) {
    bench.setCell(22, 2, "AN0210;");
    window.mnu_writeBandStack_Click();
    EXPECT_EQ(bench.program.progress.caption.get(), "Write Band Stack Regiters to FT2000");
    clock.advance(2250);
    ASSERT_EQ(line.writes.size(), 23U);
    EXPECT_EQ(line.writes.at(0), (Write{50, "BS00;\r\n"}));
    EXPECT_EQ(line.writes.at(1), (Write{150, "AC;\r\n"}));
    EXPECT_EQ(line.writes.at(22), (Write{2250, "AN01;\r\n"}));  // cut to the form that sets
    EXPECT_EQ(window.cellWritten.get(), "AN01;\r\n");
    EXPECT_EQ(bench.error(), "Writing Band Stack Regiters");
    EXPECT_EQ(bench.program.link.sent().text(), "AN0123;");
    clock.advance(3250);
    EXPECT_EQ(line.writes.at(23), (Write{2850, "AN0;"}));
    EXPECT_EQ(line.writes.at(24), (Write{3250, "AN05;"}));  // the fifth characters differ
    EXPECT_EQ(bench.cell(23, 1), "AN0110;");
    EXPECT_EQ(line.writes.at(25), (Write{3500, "BS00;\r\n"}));
    // The fifth characters of the second register are the same: it needs no command at its end.
    clock.advance(150'000);
    EXPECT_EQ(count("AN05;"), 32);
    EXPECT_EQ(count("AN0;"), 33);
    ASSERT_EQ(line.writes.size(), 33U * 24 + 32);
    EXPECT_EQ(line.writes.at(line.writes.size() - 25), (Write{32 * 3450 + 50, "BS10;\r\n"}));
    EXPECT_EQ(line.writes.back(), (Write{32 * 3450 + 3250, "AN05;"}));
    EXPECT_EQ(bench.error(), "Terminated");
    EXPECT_EQ(bench.program.link.lineWritten.get(), "Terminated");
    EXPECT_EQ(bench.ends, std::vector{Outcome::Kind::Done});
    EXPECT_EQ(bench.operation(), ActiveOperation::Idle);
    EXPECT_FALSE(window.writer().running());

    // A second write finds nothing of the first: it asks anew, and where the antenna is right it does nothing.
    antenna = "AN0120;";
    line.forgetWrites();
    window.mnu_writeBandStack_Click();
    EXPECT_EQ(bench.cell(23, 1) + bench.cell(24, 1), "");
    clock.advance(150'000);
    EXPECT_EQ(count("AN0;"), 33);
    EXPECT_EQ(count("AN05;"), 1);  // the register that differs now
    EXPECT_EQ(bench.cell(23, 1) + bench.cell(24, 1), "AN0120;");
}

TEST_F(BandStackWriteTest, TheReceiveAntennaIsToggledOnlyWhereBothSidesTellItAndDiffer) {
    for (const auto& [stored, present] :
         {std::pair("", "AN0110;"), std::pair("AN01;", "AN0110;"), std::pair("?;", "AN010;"),
          std::pair("AN010;", "AN01;"), std::pair("AN0110;", "AN0110;"), std::pair("AN05;", "AN010;")}) {
        for (int column = 1; column <= 33; ++column) bench.setCell(22, column, stored);
        antenna = present;
        line.forgetWrites();
        window.mnu_writeBandStack_Click();
        clock.advance(150'000);
        EXPECT_EQ(count("AN05;") + count("AN05;\r\n"), 0) << stored << present;
        EXPECT_EQ(line.writes.size(), 33U * 24);
        EXPECT_EQ(bench.ends.back(), Outcome::Kind::Done);
    }
}

TEST_F(BandStackWriteTest, EmptyRegistersAreAskedForBeforeAnythingIsSent) {
    for (int row = 1; row <= 22; ++row) {
        for (int column = 16; column <= 33; ++column)
            bench.setCell(row, column, column > 16 || row > 5 ? "" : "AC000;");
        bench.setCell(row, 2, "");
    }
    for (const bool yes : {false, true}) {
        bench.msgBox.foresee("18 of 33 registers are empty: 00.2, 05.2 to 10.3. 1 is incomplete: 05.1.",
                             yes ? MsgAnswer::Yes : MsgAnswer::No);
        window.mnu_writeBandStack_Click();
        EXPECT_EQ(bench.msgBox.shown.back().buttons, MsgButtons::YesNoCareful);
        clock.advance(300);
        EXPECT_EQ(line.writes.empty(), !yes);
        bench.msgBox.foresee("1 is incomplete: 05.1.\r\nSave the band stack all the same?",
                             yes ? MsgAnswer::Yes : MsgAnswer::No);
        if (yes) bench.fileDialog.cancel();
        window.mnu_saveDatafromHD_Click();
    }
    EXPECT_EQ(bench.fileDialog.shown.back().start, bench.folder.file("files/radio-incomplete.bsr"));
}

TEST_F(BandStackWriteTest, ARadioThatDoesNotTellItsAntennaIsAskedThreeTimes) {
    antenna = "?;";
    bench.msgBox.foresee("The radio refused at register 2 of 33; register 1 is in the radio.");
    window.mnu_writeBandStack_Click();
    clock.advance(3'640);
    antenna = "AN0120;";  // it was busy
    clock.advance(3'000);
    EXPECT_EQ(count("AN0;"), 2);
    antenna = "?;";
    clock.advance(10'000);
    EXPECT_EQ(count("AN0;"), 2 + 3);
    EXPECT_EQ(bench.ends, std::vector{Outcome::Kind::Refused});
    EXPECT_EQ(bench.operation(), ActiveOperation::Idle);

    antenna = "";
    line.forgetWrites();
    bench.msgBox.foresee("The radio has stopped answering at register 1 of 33");
    window.mnu_writeBandStack_Click();
    clock.advance(60'000);
    EXPECT_EQ(line.story().substr(line.story().find("AN0;") - 5), "2850 AN0;|5650 AN0;|8450 AN0;");
    EXPECT_EQ(bench.ends.back(), Outcome::Kind::NoAnswer);
    EXPECT_FALSE(bench.program.progress.visible);
    EXPECT_NE(bench.error().find("AN0;"), std::string::npos) << bench.error();
}

TEST_F(BandStackWriteTest, NothingThatWasReadKeysTheTransmitter) {
    bench.setCell(1, 1, "AC002;");
    bench.setCell(2, 1, "TX1;");
    window.mnu_writeBandStack_Click();
    bench.clock.advance(6'000);
    const std::string written = line.written();
    EXPECT_NE(written.find("AC001;\r\n\r\n"), std::string::npos) << written;
    EXPECT_EQ(written.find("TX1"), std::string::npos);
    EXPECT_NE(written.find("AN0;"), std::string::npos);
}

TEST_F(BandStackWriteTest, ARefusedRegisterSkipsThreeColumns) {
    bench.setCell(1, 1, "?;");
    bench.setCell(1, 5, "?;");   // the second of its band: the rest of it and the first of the next
    bench.setCell(1, 31, "?;");  // the last band: the end
    window.mnu_writeBandStack_Click();
    clock.advance(150'000);
    EXPECT_EQ(line.writes.at(0), (Write{50, "BS01;\r\n"}));
    EXPECT_EQ(count("BS00;\r\n"), 0);
    EXPECT_EQ(count("BS01;\r\n"), 1);
    EXPECT_EQ(count("BS02;\r\n"), 2);
    EXPECT_EQ(count("BS10;\r\n"), 0);
    EXPECT_EQ(bench.error(), "Terminated");
    EXPECT_EQ(bench.ends, std::vector{Outcome::Kind::Done});
}

TEST_F(BandStackWriteTest, AClosedPortEndsItWhereverItStands) {
    for (const int ms : {1'000, 2'400, 2'900, 3'300}) {
        window.mnu_writeBandStack_Click();
        clock.advance(ms);
        bench.program.link.togglePort();
        EXPECT_FALSE(window.writer().running());
        EXPECT_EQ(bench.ends.back(), Outcome::Kind::PortClosed);
        line.forgetWrites();
        line.answer = nullptr;
        bench.program.link.togglePort();
        clock.advance(10'000);
        EXPECT_EQ(line.story(), "0 FA;\r\n");
    }
}

TEST_F(BandStackWriteTest, NoiseAndAnEchoAreNoAntennaAndWhatFollowsTheAnswerIsNotLookedAt) {
    antenna =
        "AN0;\xff\xfe"
        "AN0120;AN0110;";
    window.mnu_writeBandStack_Click();
    clock.advance(4'000);
    EXPECT_EQ(bench.cell(23, 1), "AN0120;");
    EXPECT_EQ(count("AN05;"), 0);
    EXPECT_EQ(count("BS00;\r\n"), 2);
}

TEST_F(BandStackWriteTest, WhoHasTheLineIsAskedBeforeItStops) {
    window.mnu_readBandStack_Click();
    clock.advance(500);
    for (int column = 1; column <= 33; ++column) {
        for (int row = 1; row <= 22; ++row) bench.setCell(row, column, bench.cell(row, 0));
    }
    bench.msgBox.foresee("Reading the band stack, register 1 of 33. Stop it?", MsgAnswer::No);
    window.mnu_writeBandStack_Click();
    EXPECT_TRUE(window.reader().running());
    bench.msgBox.foresee("Reading the band stack, register 1 of 33. Stop it?", MsgAnswer::Yes);
    window.mnu_writeBandStack_Click();
    EXPECT_FALSE(window.reader().running());
    EXPECT_TRUE(window.writer().running());
    EXPECT_EQ(bench.ends.back(), Outcome::Kind::Cancelled);
}

/// Read, turn the radio over, write back, read again: the second file is the first.
TEST(BandStackWithARadio, ARestoreBringsTheRegistersBack) {
    BandStackBench<SimulatedPorts> bench;
    bench.openPort();
    const auto untilEnd = [&] {
        const bool came = bench.clock.advanceUntil([&] { return !bench.ends.empty(); }, 300'000);
        bench.ends.clear();
        return came;
    };
    const auto send = [&](const std::string& commands) {
        bench.program.link.send(commands);
        bench.clock.advance(1000);
    };
    const auto read = [&] {
        const std::string file = bench.folder.file("radio.bsr");
        bench.fileDialog.choose(file);
        bench.window.mnu_readBandStack_Click();
        EXPECT_TRUE(untilEnd());
        return fakes::fileContent(file);
    };
    const auto first = read();
    std::set<std::string> frequencies;
    for (int column = 1; column <= 33; ++column) frequencies.insert(bench.cell(10, column));
    EXPECT_EQ(frequencies.size(), 33U);

    send("BS03;FA07123450;MD02;PA01;NB01;BI1;BS09;FA28500000;RF01;AN05;");
    bench.window.mnu_writeBandStack_Click();
    EXPECT_TRUE(untilEnd());
    // The first press of a band recalls the register that was used last, so that three presses end two registers
    // further on. The owner steps each band round to where it began.
    for (int band = 0; band <= 10; ++band) {
        const std::string press = "BS" + zeroPadded(band, 2) + ";";
        send(press + press);
    }
    EXPECT_TRUE(read() == first);  // no cell differs: this radio answers what it can be set to
    EXPECT_EQ(bench.ports.radio().timesKeyed, 0);
}

}  // namespace
}  // namespace korvex
