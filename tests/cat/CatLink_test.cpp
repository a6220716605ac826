#include <gtest/gtest.h>

#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"

namespace korvex {
namespace {

class LinkTest : public testing::Test {
protected:
    using Bench = fakes::ProgramBench<fakes::ScriptedPorts>;
    Bench bench;
    CatLink& link = bench.program.link;
    fakes::ScriptedLine& line = bench.ports.plug(1);
};

TEST_F(LinkTest, OpeningTestsTheCommunicationAndShowsThePortEverywhere) {
    line.answer = [](std::string_view) { return "FA14250000;"; };
    link.indicators().memoryEditorVisible = true;
    bench.program.terminal.Form_Load();
    link.togglePort();
    EXPECT_EQ(line.story(), "0 FA;\r\n");
    EXPECT_FALSE(line.rts);
    EXPECT_FALSE(line.dtr);
    EXPECT_TRUE(link.indicators().open);
    EXPECT_EQ(link.panels().Settings.get(), "Settings: Port 1, 4800,n,8,2 ");
    EXPECT_EQ(link.indicators().bandStack.get(), "RS232 open");
    EXPECT_EQ(link.indicators().menuManager.get(), "RS232 open ");
    EXPECT_EQ(link.indicators().memoryEditor.get(), " RS232 open ");
    EXPECT_EQ(link.indicators().clickLabel.get(), "click to close");

    bench.clock.advance(499);
    EXPECT_EQ(link.panels().Status.get(), "Status: Receive Data");
    EXPECT_EQ(link.received().text().find("Communication OK"), std::string::npos);
    bench.clock.advance(1);
    EXPECT_EQ(link.received().text(), std::string(CommTest::banner) + "FA14250000;\r\n\r\n  Communication OK  ");
    bench.clock.advance(3000);
    EXPECT_EQ(link.panels().Status.get(), "Status: ");
    EXPECT_EQ(link.panels().ConnectTime.get(), "00:00:03 ");
    for (const auto& [seconds, shown] :
         {std::pair(57, "00:01:00 "), std::pair(3'539, "00:59:59 "), std::pair(2, "01:00:01 "),
          std::pair(82'798, "23:59:59 "), std::pair(1, "00:00:00 ")}) {
        bench.clock.advance(std::int64_t{1'000} * seconds);
        EXPECT_EQ(link.panels().ConnectTime.get(), shown);
    }

    link.togglePort();
    EXPECT_EQ(link.panels().Settings.get(), "Settings: ");
    EXPECT_EQ(link.panels().ConnectTime.get(), "");
    EXPECT_EQ(link.indicators().menuManager.get(), "RS232 closed");
    EXPECT_EQ(link.indicators().memoryEditor.get(), "RS232 closed");
    EXPECT_EQ(link.indicators().clickLabel.get(), "click to open");
    EXPECT_EQ(bench.clock.armedTimers(), 0U);
}

TEST_F(LinkTest, ASilentRadioIsReportedAfterHalfASecondAndLaterAfterOne) {
    bench.program.terminal.Form_Load();
    for (const int verdictAfter : {500, 1000, 1000}) {
        link.togglePort();
        bench.clock.advance(verdictAfter - 1);
        EXPECT_EQ(link.received().text(), CommTest::banner);
        bench.clock.advance(1);
        EXPECT_TRUE(
            link.received().text().ends_with("\r\n\r\n Error: No Communication\r\n Please check settings and cable "));
        EXPECT_TRUE(link.PortOpen());
        link.togglePort();
    }
}

TEST_F(LinkTest, APortThatRefusesIsToldAndShownAsClosed) {
    line.openFailure = RuntimeError{errors::PortAlreadyOpen, "Port 1 is held by another program"};
    bench.msgBox.foresee("held by another program");
    link.togglePort();
    EXPECT_EQ(bench.msgBox.shown.at(0).icon, MsgIcon::Exclamation);
    EXPECT_FALSE(link.indicators().open);
    EXPECT_EQ(link.indicators().clickLabel.get(), "click to open");
    EXPECT_EQ(line.story(), "");
}

TEST_F(LinkTest, ADeviceThatGoesAwayClosesThePortAndIsToldOnce) {
    bench.openPort();
    bench.msgBox.foresee("");
    bench.msgBox.whileShown = [this] { EXPECT_FALSE(link.indicators().open) << "the indicators come before the box"; };
    line.goAway();
    bench.clock.advance(10'000);
    EXPECT_FALSE(link.PortOpen());
    EXPECT_EQ(bench.msgBox.shown.size(), 1U);
    EXPECT_EQ(link.panels().Settings.get(), "Settings: ");
}

TEST(AnswerRouter, CutsAtTheSemicolonAndShowsTheTrafficOfEveryCodeInItsOwnWay) {
    TrafficDisplay received;
    AnswerRouter router(received);
    std::string pieces;
    const auto shownFor = [&](int code) {
        router.own(static_cast<ActiveOperation>(code), [&](std::string_view piece) {
            pieces += std::string(piece) + "|";
            return Rest::GoOn;
        });
        received.clear();
        pieces.clear();
        router.take("?");
        router.take(";FA1;x");
        EXPECT_EQ(pieces, "?;|FA1;|") << code;
        EXPECT_EQ(router.pending(), "x") << code;
        return received.text();
    };
    for (const int code : {0, 1, 2, 4, 5, 8, 9, 11}) EXPECT_EQ(shownFor(code), "?;\r\nFA1;\r\nx") << code;
    for (const int code : {6, 12}) EXPECT_EQ(shownFor(code), "?;FA1;x") << code;
    for (const int code : {3, 7, 10, 13}) EXPECT_EQ(shownFor(code), "") << code;
}

TEST_F(LinkTest, AnEndlessStreamFillsNoMemoryAndTheViewGetsItInOneGo) {
    bench.openPort();
    int told = 0;
    auto connection = link.received().outdated.connect([&] { ++told; });
    link.received().takeUpdate();
    const std::string chunk(1000, 'x');
    for (int i = 0; i < 10'000; ++i) line.feed(chunk);
    EXPECT_EQ(told, 1);
    EXPECT_LE(link.received().text().size(), 2 * TrafficDisplay::keptCharacters);
    EXPECT_LE(link.answers().pending().size(), 2 * AnswerRouter::keptCharacters);
    const auto update = link.received().takeUpdate();
    EXPECT_TRUE(update.replacesAll);
    line.feed("end\xE4");
    EXPECT_EQ(link.received().takeUpdate().text, "end\xE4");
}

TEST_F(LinkTest, ClosingForGoodWaitsForOutputAndAsksEveryTenSeconds) {
    bench.openPort();
    line.unsent = 5;
    bench.clock.after(300, [this] { line.unsent = 0; });
    EXPECT_TRUE(link.drainAndClose());
    EXPECT_FALSE(link.PortOpen());

    bench.openPort();
    line.unsent = 5;
    const auto begin = bench.clock.now();
    bench.msgBox.foresee("Daten können nicht gesendet werden", MsgAnswer::Retry);
    bench.msgBox.foresee("Daten können nicht gesendet werden", MsgAnswer::Abort);
    EXPECT_FALSE(link.drainAndClose());
    EXPECT_TRUE(link.PortOpen());
    EXPECT_EQ(bench.clock.now() - begin, 20'000);
    bench.msgBox.foresee("Daten können nicht gesendet werden", MsgAnswer::Ignore);
    EXPECT_TRUE(link.drainAndClose());
    EXPECT_FALSE(link.PortOpen());
}

}  // namespace
}  // namespace korvex
