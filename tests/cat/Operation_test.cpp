#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"

namespace korvex {
namespace {

class OperationTest : public testing::Test {
protected:
    OperationTest() {
        bench.openPort();
        line.forgetWrites();
    }
    std::unique_ptr<Operation> begin(ActiveOperation code = ActiveOperation::MenuReadToFile) {
        auto operation = link.begin({code, "Reading menu", 149, {}, "Save Menu of FT-2000", 155});
        if (operation) operation->onEnd([this](const Outcome& outcome) { ends.push_back(outcome); });
        return operation;
    }

    using Bench = fakes::ProgramBench<fakes::ScriptedPorts>;
    Bench bench;
    CatLink& link = bench.program.link;
    ProgressWindow& progress = bench.program.progress;
    fakes::ScriptedLine& line = bench.ports.plug(1);
    std::vector<Outcome> ends;
    PhaseFlag phase;
};

TEST_F(OperationTest, GetsAnswersCutAndCleanAndNothingOfWhatCameBefore) {
    line.feed("EX001");
    auto operation = begin();
    operation->expect({"EX", 7});
    std::vector<std::string> answers;
    std::vector<std::string> strange;
    operation->onAnswer([&](std::string_view answer) {
        answers.emplace_back(answer);
        return Rest::GoOn;
    });
    operation->onStrange([&](std::string_view piece) {
        strange.emplace_back(piece);
        return Rest::GoOn;
    });
    line.feed("EX0");
    line.feed("011;\x01?;FA00007030000;x");
    line.feed("yEX002EX00305;EX004;");
    EXPECT_EQ(answers, (std::vector<std::string>{"EX0011;", "?;", "EX00305;"}));
    EXPECT_EQ(strange, (std::vector<std::string>{"FA00007030000;", "EX004;"}));

    operation->expect({"KM1", 0, true});
    line.feed("-KM1 DE KM1 K;");
    EXPECT_EQ(answers.back(), "KM1 DE KM1 K;");

    operation->onAnswer([&](std::string_view) {
        operation->end({Outcome::Kind::Done, 149, 149, {}, {}});
        return Rest::GoOn;
    });
    line.feed("KM1A;KM1B;");
    EXPECT_EQ(ends.size(), 1U);
    EXPECT_EQ(link.activeOperation(), ActiveOperation::Idle);
    EXPECT_EQ(link.received().text().find("KM1B"), std::string::npos) << "behind the last answer in the same read";
    line.feed("FA1;");
    EXPECT_TRUE(link.received().text().ends_with("FA1;\r\n"));
}

TEST_F(OperationTest, KeepsItsPaceAndItsHalfStepFromRunToRun) {
    std::string story;
    const auto start = bench.clock.now();
    const auto run = [&] {
        auto operation = begin();
        operation->every(50, phase, [&] { story += std::to_string(bench.clock.now() - start) + " "; });
        operation->tick();
        return operation;
    };
    auto operation = run();
    bench.clock.advance(149);
    EXPECT_EQ(story, "50 ");
    bench.clock.advance(1);
    EXPECT_EQ(story, "50 150 ");
    operation->breakOff(Outcome::Kind::Cancelled);
    bench.clock.advance(100);
    EXPECT_EQ(story, "50 150 ");
    operation = run();
    bench.clock.advance(50);
    EXPECT_EQ(story, "50 150 300 ");
    operation.reset();
    phase.invert();  // a run that ends between two steps
    operation = run();
    EXPECT_EQ(story, "50 150 300 300 ");

    operation->after(600, [&] { story += "later"; });
    operation->after(601, [&] { operation->end({}); });
    bench.clock.advance(600);
    EXPECT_TRUE(operation->running());
    bench.clock.advance(1);
    EXPECT_FALSE(operation->running());
    EXPECT_EQ(story.find("later"), std::string::npos);
    EXPECT_EQ(ends.size(), 2U);
    EXPECT_EQ(bench.clock.armedTimers(), 1U) << "the connect clock";
}

TEST_F(OperationTest, TellsSilenceOnceCountedFromTheLastAnswer) {
    auto operation = begin();
    int silences = 0;
    operation->onSilence(2000, [&] { ++silences; });
    bench.clock.advance(1990);
    line.feed("EX0011;");
    bench.clock.advance(1990);
    line.feed("no end");
    EXPECT_EQ(silences, 0);
    bench.clock.advance(10);
    EXPECT_EQ(silences, 1);
    bench.clock.advance(9000);
    EXPECT_EQ(silences, 1);
}

TEST_F(OperationTest, ShowsItemAndTimeLeftAndIsCancelledFromTheProgressWindow) {
    auto operation = begin();
    EXPECT_TRUE(progress.visible);
    EXPECT_EQ(progress.caption.get(), "Save Menu of FT-2000");
    EXPECT_EQ(progress.maximum.get(), 155);
    operation->step(1);
    EXPECT_EQ(progress.detail.get(), "item 1 of 149");
    bench.clock.advance(3300);
    operation->step(34);
    EXPECT_EQ(progress.value.get(), 34);
    EXPECT_EQ(progress.detail.get(), "item 34 of 149, about 12 s left");
    progress.cancelled.emit();
    EXPECT_FALSE(progress.visible);
    EXPECT_FALSE(progress.cancellable);
    ASSERT_EQ(ends.size(), 1U);
    EXPECT_EQ(ends[0].kind, Outcome::Kind::Cancelled);
    EXPECT_EQ(ends[0].done, 33);
    operation->send("EX001;");
    operation->step(35);
    EXPECT_EQ(line.story(), "");
    EXPECT_EQ(progress.value.get(), 34);
}

TEST_F(OperationTest, OneAtATimeAndThePersonDecides) {
    EXPECT_TRUE(link.freeLine());
    auto first = begin();
    first->step(34);
    bench.msgBox.foresee("Reading menu, item 34 of 149. Stop it?", MsgAnswer::No);
    EXPECT_EQ(begin(ActiveOperation::KeyerRead), nullptr);
    EXPECT_EQ(link.notBegun().reason, "Reading menu, item 34 of 149 goes on.");
    EXPECT_TRUE(first->running());
    EXPECT_TRUE(progress.visible);

    bench.msgBox.foresee("Stop it?", MsgAnswer::Yes);
    auto second = begin(ActiveOperation::KeyerRead);
    ASSERT_TRUE(second);
    EXPECT_FALSE(first->running());
    EXPECT_EQ(ends.size(), 1U);
    EXPECT_EQ(link.operation(), second.get());
    EXPECT_TRUE(progress.visible);

    bench.msgBox.whileShown = [&] { second->end({}); };  // it has ended by itself while the box was up
    bench.msgBox.foresee("Stop it?", MsgAnswer::No);
    EXPECT_EQ(begin(), nullptr);
    bench.msgBox.whileShown = nullptr;

    link.togglePort();
    EXPECT_EQ(begin(), nullptr);
    EXPECT_EQ(link.notBegun().kind, Outcome::Kind::PortClosed);
}

TEST_F(OperationTest, AClosedPortEndsItAndItsOwnersWordsStay) {
    auto operation = begin();
    operation->onEnd([&](const Outcome& outcome) { link.panels().Error = inWords(outcome, operation->plan().words); });
    operation->step(3);
    link.togglePort();
    EXPECT_EQ(link.panels().Error.get(), "The port was closed at item 3 of 149; 2 items are read.");
}

TEST_F(OperationTest, KnowsWhatTheRadioRefusedAndWaitsForALateRefusalUnlessSomebodyWantsTheLine) {
    for (const int waits : {599, 600}) {
        ends.clear();
        auto operation = begin(ActiveOperation::KeyerWrite);
        operation->expect({"KM"});
        operation->write("KM1", "KM1A;");
        operation->write("KM2", "KM2B;");
        line.feed("?;?;");  // the second one is of nothing
        operation->send("KM3;");
        line.feed("?;");
        operation->write("KM4", "KM4D;");
        operation->finish(3);
        EXPECT_FALSE(progress.visible);
        EXPECT_EQ(link.activeOperation(), ActiveOperation::Idle);
        line.feed("\xE4?;");
        bench.clock.advance(waits);
        EXPECT_EQ(ends.size(), waits == 600 ? 1U : 0U);
        if (waits == 599) {
            EXPECT_TRUE(link.freeLine()) << "nobody is asked";
        }
        ASSERT_EQ(ends.size(), 1U);
        EXPECT_EQ(inWords(ends.front(), {"text", "texts", true}), "1 text written, 2 refused: KM2, KM4");
    }
}

TEST(OutcomeInWords, SaysWhatIsWhere) {
    const ItemWords writing{"item", "items", true};
    const ItemWords channels{"channel", "channels", false};
    EXPECT_EQ(inWords({Outcome::Kind::Done, 149, 149, {"031", "088"}, {}}, writing),
              "149 items written, 2 refused: 031, 088");
    EXPECT_EQ(inWords({Outcome::Kind::Done, 0, 149, std::vector<std::string>(13, "x"), {}}, writing),
              "0 items written, 13 refused: x, x, x, x, x, x, x, x, x, x, x, x, ...");
    EXPECT_EQ(inWords({Outcome::Kind::Done, 1, 99, {}, {}}, channels), "1 channel read");
    EXPECT_EQ(inWords({Outcome::Kind::Cancelled, 33, 149, {}, {}}, writing),
              "Stopped at item 34 of 149; items 1 to 33 are in the radio.");
    EXPECT_EQ(inWords({Outcome::Kind::Cancelled, 0, 149, {}, {}}, writing),
              "Stopped at item 1 of 149; nothing was written.");
    EXPECT_EQ(inWords({Outcome::Kind::NoAnswer, 1, 99, {}, "Is it switched on?"}, channels),
              "The radio has stopped answering at channel 2 of 99; 1 channel is read. Is it switched on?");
}

}  // namespace
}  // namespace korvex
