#include "eq/EqExchange.h"

#include <gtest/gtest.h>
#include <string>

#include "fakes/ScriptedDevice.h"
#include "fakes/VirtualClock.h"

namespace korvex {
namespace {

struct EqExchangeTest : ::testing::Test {
    EqExchangeTest() {
        events += port.OnComm.connect([this](CommEvent) { exchange.onReceive(port.Input()); });
    }
    void open() {
        ASSERT_FALSE(exchange.openPort());
        line.forgetWrites();
    }
    std::string sentFor(std::size_t item, int value) {
        line.forgetWrites();
        exchange.applyValue(item, value);
        return line.story();
    }

    fakes::VirtualClock clock;
    fakes::ScriptedPorts ports{clock};
    fakes::ScriptedLine& line = ports[1];
    MSComm port{ports};
    EqExchange exchange{port, clock};
    Connections events;
};

TEST_F(EqExchangeTest, EveryChangeIsOneWriteWithItsQuery) {
    exchange.applyValue(0, 700);  // closed: nothing is sent, the texts follow
    EXPECT_EQ(exchange.display[0].get(), "700");
    EXPECT_EQ(exchange.command(0), "EX12507;");
    open();
    EXPECT_EQ(sentFor(0, 300), "0 EX12503;EX125;");
    EXPECT_EQ(sentFor(0, 99), "0 EX12500;EX125;");
    EXPECT_EQ(sentFor(1, -3), "0 EX126-03;EX126;");
    EXPECT_EQ(sentFor(1, 0), "0 EX126+00;EX126;");
    EXPECT_EQ(sentFor(4, -20), "0 EX129-20;EX129;");
    EXPECT_EQ(sentFor(5, 10), "0 EX13010;EX130;");
    EXPECT_EQ(sentFor(3, 600), "0 EX12800;EX128;");
    EXPECT_EQ(exchange.display[3].get(), "0");
    EXPECT_EQ(sentFor(3, 1499), "0 EX12808;EX128;");
    EXPECT_EQ(sentFor(3, 1500), "0 EX12809;EX128;");
    EXPECT_EQ(sentFor(6, 3150), "0 EX13117;EX131;");
    EXPECT_EQ(exchange.display[6].get(), "3100");
    EXPECT_EQ(sentFor(6, 3200), "0 EX13118;EX131;");
    EXPECT_EQ(exchange.lastChanged(), 6u);
    EXPECT_EQ(sentFor(6, 3300) + sentFor(2, 0) + sentFor(9, 1), "");  // what no slider can give
}

TEST_F(EqExchangeTest, ADragSendsWhatTheRadioHasNotGotYet) {
    open();
    exchange.startReading();
    line.feed("EX12503;EX12805;");
    line.feed("EX12803;");
    for (const int value : {301, 399}) EXPECT_EQ(sentFor(0, value), "");
    EXPECT_EQ(exchange.value[0].get(), 399);
    EXPECT_EQ(sentFor(3, 950), "");
    for (const int value : {400, 401, 420}) EXPECT_EQ(sentFor(0, value), value == 400 ? "0 EX12504;EX125;" : "");
    EXPECT_EQ(sentFor(0, 399), "0 EX12503;EX125;");
    line.feed("?;");
    EXPECT_EQ(sentFor(0, 398), "0 EX12503;EX125;");
    exchange.startReading();  // the radio may have been changed by hand meanwhile
    EXPECT_EQ(sentFor(0, 397), "0 EX12503;EX125;");
}

TEST_F(EqExchangeTest, AReadingQueriesEvery400msAndEndsASecondAfterTheLast) {
    open();
    exchange.startReading();
    EXPECT_EQ(exchange.statusText.get(), " Reading EQ Settings of FT-2000");
    clock.advance(3600);
    EXPECT_EQ(line.story(),
              "400 EX125;|800 EX126;|1200 EX127;|1600 EX128;|2000 EX129;|2400 EX130;|2800 EX131;|3200 EX132;|3600 "
              "EX133;");
    clock.advance(999);
    EXPECT_EQ(exchange.phase(), EqExchange::Phase::Reading);
    clock.advance(1);
    EXPECT_EQ(exchange.phase(), EqExchange::Phase::Live);
    EXPECT_EQ(exchange.statusText.get(), "");
    EXPECT_EQ(clock.armedTimers(), 0u);
}

TEST_F(EqExchangeTest, AReadingWaitsForAPortThatIsClosed) {
    exchange.startReading();
    clock.advance(1000);
    open();
    clock.advance(600);  // the toggle went on meanwhile: the first query comes with the first tick
    EXPECT_EQ(line.story(), "200 EX125;|600 EX126;");
}

TEST_F(EqExchangeTest, AnswersSetTheValuesAndAChangedOneIsSentBackOnce) {
    open();
    exchange.startReading();
    line.answer = [](std::string_view wire) { return wire.ends_with("EX125;") ? "EX12503;" : ""; };
    clock.advance(1000);
    EXPECT_EQ(exchange.value[0].get(), 300);
    EXPECT_EQ(line.story(), "400 EX125;|410 EX12503;EX125;|800 EX126;");

    line.answer = nullptr;
    line.feed("EX1");
    line.feed("2710;");
    EXPECT_EQ(exchange.value[2].get(), 10);
    line.feed("EX12704;EX126-20;EX12809;EX13118;EX132+05;");
    EXPECT_EQ(exchange.value[2].get(), 4);
    EXPECT_EQ(exchange.value[1].get(), -20);
    EXPECT_EQ(exchange.value[3].get(), 1500);
    EXPECT_EQ(exchange.value[6].get(), 3200);
    EXPECT_EQ(exchange.value[7].get(), 5);
}

TEST_F(EqExchangeTest, WhatIsNoValueOfTheItemIsIgnoredAndLeavesNothingBehind) {
    open();
    exchange.startReading();
    for (const char* answer :
         {"EX12508;", "EX125;", "EX1253;", "EX125x1;", "EX12810;", "EX13119;", "EX126+11;", "EX126-21;", "EX126ab;",
          "EX126;", "EX127;", "EX1270;", "EX12700;", "EX12711;", "EX127xy;"}) {
        line.feed(answer);
        line.feed("EX13302;");
        EXPECT_EQ(exchange.value[8].get(), 2) << answer;
        exchange.applyValue(8, 1);
    }
    for (std::size_t item = 0; item < 8; ++item) EXPECT_EQ(exchange.value[item].get(), eqItems[item].initial) << item;
    EXPECT_EQ(line.written().find("EX12"), std::string::npos);
}

TEST_F(EqExchangeTest, RefusalsNoiseAndWhatComesUnaskedCostNoOtherItemItsAnswer) {
    open();
    exchange.startReading();
    for (const char* before : {"?;", "FA014250000;", "TX0;?;", "EX125;", "?", "~~~~~~~~~~~~~~", "EX12"}) {
        exchange.startReading();
        line.feed(before);
        line.feed("EX126-12;EX13310;");
        EXPECT_EQ(exchange.value[1].get(), -12) << before;
        EXPECT_EQ(exchange.value[8].get(), 10) << before;
        EXPECT_EQ(exchange.answered(), 2) << before;
        EXPECT_TRUE(exchange.known[1] && exchange.known[8] && !exchange.known[0]);
        exchange.applyValue(1, 0);
        exchange.applyValue(8, 1);
    }
    EXPECT_EQ(exchange.value[0].get(), 0);
}

TEST_F(EqExchangeTest, LiveAnswersChangeNothing) {
    open();
    exchange.startReading();
    clock.advance(4600);
    exchange.applyValue(0, 500);
    line.feed("EX12503;EX12504;?");
    EXPECT_EQ(exchange.value[0].get(), 500);
    exchange.startReading();
    line.feed("EX12502;");  // nothing of all that was left in its way
    EXPECT_EQ(exchange.value[0].get(), 200);
}

TEST_F(EqExchangeTest, TheProcessorHasASetOfItsOwn) {
    int asked = 0;
    events += exchange.beforeOpen.connect([&] { ++asked; });
    line.forgetWrites();
    ASSERT_FALSE(exchange.switchProcessor(true));  // opens the port that was closed
    EXPECT_TRUE(port.PortOpen());
    EXPECT_EQ(asked, 1);
    line.feed("EX13405;");
    EXPECT_EQ(exchange.value[0].get(), 500);
    clock.advance(800);
    EXPECT_EQ(line.story(), "0 PR1;|0 EX13405;EX134;|400 EX134;|800 EX135;");

    // Back within the second in which the reading ends: the new reading is not cut short by the old one's end.
    clock.advance(3300);
    line.forgetWrites();
    ASSERT_FALSE(exchange.switchProcessor(false));
    EXPECT_EQ(line.openings, 2);
    clock.advance(3600);
    EXPECT_TRUE(line.story().starts_with("0 PR0;|400 EX125;")) << line.story();
    EXPECT_TRUE(line.story().ends_with("|3600 EX133;"));
    EXPECT_EQ(exchange.phase(), EqExchange::Phase::Reading);
}

TEST_F(EqExchangeTest, ASwitchThatTheRadioRefusesLeavesItsOwnSet) {
    int refused = 0;
    events += exchange.switchRefused.connect([&] { ++refused; });
    line.answer = [](std::string_view wire) { return wire.starts_with("PR") ? "?;" : ""; };
    ASSERT_FALSE(exchange.switchProcessor(true));
    clock.advance(400);
    EXPECT_EQ(line.story(), "0 PR1;|400 EX125;");
    EXPECT_FALSE(exchange.processorOn);
    line.feed("?;");  // of an item, not of the switch
    exchange.startReading();
    line.feed("?;");
    EXPECT_EQ(refused, 1);
}

}  // namespace
}  // namespace korvex
