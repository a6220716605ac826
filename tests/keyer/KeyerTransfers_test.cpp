#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "fakes/ScriptedDevice.h"
#include "keyer/KeyerBench.h"
#include "radio/SimulatedPorts.h"

namespace korvex {
namespace {

/// The test is the radio.
struct KeyerTransferTest : testing::Test {
    KeyerTransferTest() {
        bench.openPort();
        line.forgetWrites();
    }
    KeyerBench<fakes::ScriptedPorts> bench;
    fakes::ScriptedLine& line = bench.ports.plug(1);
    fakes::VirtualClock& clock = bench.clock;
    KeyerWindow& window = bench.window;
    ProgressWindow& progress = bench.program.progress;
};

TEST_F(KeyerTransferTest, ReadsAMemoryEvery400ms) {
    line.answer = [](std::string_view wire) { return wire == "KM3;" ? "KM3;" : "KM1CQ \xC4 DE;"; };
    for (int row = 1; row < 6; ++row) bench.setText(row, "old");
    window.readKeyer();
    EXPECT_EQ(bench.text(5), "");
    EXPECT_EQ(progress.maximum.get(), 10);
    EXPECT_EQ(progress.value.get(), 1);
    clock.advance(399);
    EXPECT_EQ(line.story(), "");
    clock.advance(41);
    EXPECT_EQ(line.story(), "400 KM1;");
    EXPECT_EQ(bench.text(1), "CQ Ä DE");
    EXPECT_EQ(bench.count(1), "7");
    EXPECT_EQ(progress.value.get(), 2);
    EXPECT_EQ(bench.program.link.received().text(), "KM1CQ \xC4 DE;\r\n");
    clock.advance(1960 - 1);
    EXPECT_TRUE(progress.visible);
    clock.advance(1);
    EXPECT_EQ(line.story(), "400 KM1;|800 KM2;|1200 KM3;|1600 KM4;|2000 KM5;");
    EXPECT_EQ(bench.text(3) + bench.count(3), "0");
    EXPECT_FALSE(progress.visible);
    EXPECT_EQ(bench.operation(), ActiveOperation::Idle);
    EXPECT_FALSE(window.reader().running());
    EXPECT_NE(window.hint.get().find("only 2 of 5"), std::string::npos);  // the others named another memory

    line.answer = [](std::string_view wire) { return std::string(wire.substr(0, 3)) + "TU;"; };
    line.forgetWrites();
    window.readKeyer();
    clock.advance(5000);
    EXPECT_EQ(bench.ends, (std::vector{Outcome::Kind::NoAnswer, Outcome::Kind::Done}));
    EXPECT_EQ(window.hint.get(), "");
}

TEST_F(KeyerTransferTest, StrayAndGluedAnswersDoNoHarm) {
    window.readKeyer();
    line.feed("FA00007030000;KM1EARLY;");  // before anything was asked
    EXPECT_EQ(bench.grid().TextMatrix(0, 1), "Keyer Text");
    clock.advance(400);
    line.feed("KM1FIRST;KM2SECOND;");
    EXPECT_EQ(bench.text(1), "FIRST");
    clock.advance(400);
    line.feed("?;");
    EXPECT_EQ(bench.text(2) + bench.count(2), "0");
    clock.advance(400);
    line.feed("KM3SP");
    line.feed("LIT;");
    EXPECT_EQ(bench.text(3), "SPLIT");
    line.feed("IF001;");  // unasked, behind the answer
    EXPECT_EQ(bench.text(3), "SPLIT");
    clock.advance(1000);
    line.feed("KM4");  // late: the fifth has been asked for
    line.feed("DE ME;");
    EXPECT_EQ(bench.text(4) + bench.text(5), "DE ME");
    clock.advance(1600);
    EXPECT_FALSE(progress.visible);
    line.feed("KM5TOO LATE;");
    EXPECT_EQ(bench.text(5), "");
    EXPECT_EQ(bench.ends, std::vector{Outcome::Kind::NoAnswer});
    EXPECT_NE(window.hint.get().find("3 of 5"), std::string::npos);
}

TEST_F(KeyerTransferTest, ASlowRadioIsWaitedForAndNoiseInFrontOfAnAnswerIsNoText) {
    line.answer = [](std::string_view wire) { return "\xFF" + std::string(wire.substr(0, 3)) + "TEXT;"; };
    line.answerDelay = 30;
    window.readKeyer();
    clock.advance(2400);
    EXPECT_EQ(bench.text(5), "TEXT");
    line.answer = [](std::string_view wire) { return std::string(wire.substr(0, 3)) + "LATE;"; };
    line.answerDelay = 950;
    window.readKeyer();
    clock.advance(5000);
    EXPECT_EQ(bench.ends, (std::vector{Outcome::Kind::Done, Outcome::Kind::Done}));
    for (int row = 1; row < 6; ++row) EXPECT_EQ(bench.text(row), "LATE") << row;
}

TEST_F(KeyerTransferTest, WritesEachTextAsOneCommand) {
    const std::string fifty(50, 'E');
    bench.setText(1, "CQ Ä");
    bench.setText(3, fifty);
    bench.setText(4, fifty + "E");
    bench.setText(5, "TU");
    line.answer = [](std::string_view) { return "?;"; };
    window.writeKeyer();
    clock.advance(450);
    EXPECT_EQ(bench.operation(), ActiveOperation::KeyerWrite);
    EXPECT_EQ(progress.value.get(), 2);
    clock.advance(5000);
    EXPECT_EQ(line.story(), "400 KM1CQ \xC4;|800 KM2;|1200 KM3" + fifty + ";|1600 KM4" + fifty + "E;|2000 KM5TU;");
    EXPECT_TRUE(bench.program.link.sent().text().starts_with("KM1CQ \xC4;\r\nKM2;\r\n"));
    EXPECT_EQ(bench.program.link.received().text(), "");
    EXPECT_EQ(bench.text(2), "");
    EXPECT_EQ(bench.operation(), ActiveOperation::Idle);
    EXPECT_FALSE(progress.visible);
    EXPECT_NE(window.hint.get().find("nothing in the radio: KM2."), std::string::npos);
    EXPECT_NE(window.hint.get().find("does not take: KM4."), std::string::npos);
}

TEST_F(KeyerTransferTest, WritesNothingWhileATextWouldBeMoreThanOneCommand) {
    for (const char* bad : {"CQ;TX1", "CQ\r\nDE", "Ω"}) {
        bench.setText(4, bad);
        bench.msgBox.foresee("Memory 4");
        window.writeKeyer();
        clock.advance(5000);
        EXPECT_EQ(line.story(), "") << bad;
        EXPECT_FALSE(progress.visible);
    }
}

TEST_F(KeyerTransferTest, AClosedPortAndTheOtherTransferEndASequence) {
    window.readKeyer();
    clock.advance(900);
    bench.program.link.togglePort();
    bench.openPort();
    line.forgetWrites();
    clock.advance(5000);
    EXPECT_EQ(line.story(), "");
    EXPECT_EQ(bench.ends, std::vector{Outcome::Kind::PortClosed});

    bench.setText(1, "TU");
    window.readKeyer();
    clock.advance(500);
    bench.msgBox.foresee("Reading the keyer memories, memory 1 of 5. Stop it?", MsgAnswer::No);
    window.writeKeyer();
    EXPECT_TRUE(window.reader().running());
    EXPECT_EQ(window.hint.get(), "Reading the keyer memories, memory 1 of 5 goes on.");
    bench.setText(1, "TU");
    bench.msgBox.foresee("Stop it?", MsgAnswer::Yes);
    window.writeKeyer();
    line.forgetWrites();
    clock.advance(5000);
    EXPECT_EQ(bench.ends.at(2), Outcome::Kind::Cancelled);
    EXPECT_EQ(line.writes.size(), 5U);
    EXPECT_EQ(line.writes.front().text, "KM1TU;");

    bench.program.link.togglePort();
    line.forgetWrites();
    window.readKeyer();
    clock.advance(5000);
    EXPECT_EQ(line.story(), "");
    EXPECT_FALSE(progress.visible);
    EXPECT_EQ(bench.operation(), ActiveOperation::Idle);
    EXPECT_EQ(clock.armedTimers(), 0U);
}

TEST(KeyerWithTheRadio, ComesBackAsItWasWritten) {
    KeyerBench<SimulatedPorts> bench;
    bench.openPort();
    bench.window.readKeyer();
    bench.clock.advance(3000);
    EXPECT_EQ(bench.text(2), "DE DL1XYZ");
    EXPECT_EQ(bench.window.hint.get(), "");
    const std::vector<std::string> texts = {"CQ CQ", std::string(50, '5'), "R UR 599", "A | B", "73 E E"};
    for (int row = 1; row < 6; ++row) bench.setText(row, texts.at(static_cast<std::size_t>(row - 1)));
    bench.window.writeKeyer();
    bench.clock.advance(3000);
    bench.window.readKeyer();
    bench.clock.advance(3000);
    for (int row = 1; row < 6; ++row) EXPECT_EQ(bench.text(row), texts.at(static_cast<std::size_t>(row - 1)));
    EXPECT_EQ(bench.count(2), "50");
}

}  // namespace
}  // namespace korvex
