#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"

namespace korvex {
namespace {

/// A conversation about items 001 to 00n; the test is the radio. Its line is fast enough to be left out of the figures.
class DialogueTest : public testing::Test {
protected:
    DialogueTest() {
        bench.openPort();
        EXPECT_FALSE(bench.program.MSComm1.setSettings("256000,n,8,1"));
        line.forgetWrites();
    }

    void begin(int items, bool sets) {
        operation = bench.program.link.begin({ActiveOperation::MenuReadToFile, "Talking", items});
        operation->onEnd([this](const Outcome& outcome) { end = outcome; });
        const auto next = [this, items, sets]() -> std::optional<Exchange> {
            if (asked == items) return std::nullopt;
            const std::string head = "EX00" + std::to_string(++asked);
            Exchange exchange{head.substr(2), head + ";", {head, 7}};
            if (sets) exchange.command = head + "5;";
            if (sets) exchange.confirms = [head](std::string_view answer) { return answer == head + "5;"; };
            return exchange;
        };
        const auto told = [this](const Reply& reply) { story += nameOf(reply.kind) + reply.answer + " "; };
        operation->converse({next, told, [this](const Outcome& outcome) { operation->end(outcome); }});
    }

    static std::string nameOf(Reply::Kind kind) {
        static const std::map<Reply::Kind, std::string> names = {{Reply::Kind::Answer, ""},
                                                                 {Reply::Kind::Refused, "refused "},
                                                                 {Reply::Kind::Different, "different "},
                                                                 {Reply::Kind::Unconfirmed, "unconfirmed "},
                                                                 {Reply::Kind::None, "none "}};
        return names.at(kind);
    }

    using Bench = fakes::ProgramBench<fakes::ScriptedPorts>;
    Bench bench;
    fakes::ScriptedLine& line = bench.ports.plug(1);
    std::unique_ptr<Operation> operation;
    std::optional<Outcome> end;
    std::string story;
    int asked = 0;
};

TEST_F(DialogueTest, AsksWhenTheAnswerHasComeAndTakesNothingElseForIt) {
    begin(4, false);
    EXPECT_EQ(line.story(), "0 EX001;");
    line.feed("EX001;");                  // an adapter's echo
    line.feed("FA14195000;EX0021;\xE4");  // unasked, and of another item
    line.feed("EX0");
    bench.clock.advance(3);
    line.feed("011;EX0011;");  // in pieces, and twice
    EXPECT_EQ(line.story(), "0 EX001;|3 EX002;");
    line.feed("EX0011;?;EX0033;");  // once more; a refusal; and the next
    EXPECT_EQ(line.story(), "0 EX001;|3 EX002;|3 EX003;|3 EX004;");
    line.feed("EX00");  // its end is lost, and the answer to the second question stands behind it
    bench.clock.advance(205);
    line.feed("EX0044;");
    bench.clock.advance(300);
    EXPECT_EQ(story, "EX0011; refused ?; EX0033; EX0044; ");
    ASSERT_TRUE(end);
    EXPECT_EQ(end->kind, Outcome::Kind::Done);
}

/// Patience: 200 ms and what the line takes for question and answer.
TEST_F(DialogueTest, AsksAgainAndThenWaitsForWhatIsStillOwedOrForQuiet) {
    begin(3, false);
    bench.clock.advance(202);
    EXPECT_EQ(line.story(), "0 EX001;");
    bench.clock.advance(1);
    EXPECT_EQ(line.story(), "0 EX001;|203 EX001;");
    line.feed("EX0011;");
    bench.clock.advance(100);
    line.feed("?;");  // the second question met a busy radio: nobody's
    bench.clock.advance(24);
    EXPECT_EQ(line.story(), "0 EX001;|203 EX001;");
    line.forgetWrites();
    bench.clock.advance(1);  // more room in front of the next one
    EXPECT_EQ(line.story(), "1 EX002;");

    bench.clock.advance(500);  // known to be slow by now, and slower still: asked once more
    line.feed("?;");
    line.forgetWrites();
    bench.clock.advance(2'000);  // the second refusal was lost
    EXPECT_TRUE(line.story().ends_with(" EX003;")) << line.story();
    line.feed("EX0033;");
    bench.clock.advance(2'000);
    EXPECT_EQ(story, "EX0011; refused ?; EX0033; ");
    EXPECT_TRUE(end);
}

TEST_F(DialogueTest, FallsBackStepByStepAndRecovers) {
    line.answer = [this](std::string_view wire) {
        static int heard = 0;
        EXPECT_FALSE(wire.empty());
        const bool lost = heard++ < 4;
        return lost && heard % 2 == 1 ? "" : std::string(wire.substr(0, 5)) + "1;";
    };
    begin(9, false);
    bench.clock.advance(5'000);
    ASSERT_TRUE(end);
    std::string gaps;
    for (std::size_t i = 1; i < line.writes.size(); ++i) {
        gaps += std::to_string(line.writes[i].at - line.writes[i - 1].at) + " ";
    }
    // lost: patience. Answered after 10 ms; then quiet is waited for, and room left.
    EXPECT_EQ(gaps, "203 238 203 263 60 60 60 60 60 60 ");
}

TEST_F(DialogueTest, GivesUpAfterFourTriesAndTheConversationAfterTwoSilentItems) {
    line.answer = [](std::string_view wire) { return wire == "EX002;" ? "EX0022;" : ""; };
    begin(5, false);
    bench.clock.advance(20'000);
    EXPECT_EQ(story, "none  EX0022; none  none  ");
    ASSERT_TRUE(end);
    EXPECT_EQ(end->kind, Outcome::Kind::NoAnswer);
    EXPECT_EQ(line.writes.size(), 13U);
}

/// A radio whose items hold what was set, with troubles for some.
struct WritingTest : DialogueTest {
    WritingTest() {
        line.answer = [this](std::string_view wire) {
            std::string all;
            while (!wire.empty()) {
                all += answer(std::string(wire.substr(0, wire.find(';') + 1)));
                wire.remove_prefix(wire.find(';') + 1);
            }
            return all;
        };
    }
    std::string answer(const std::string& command) {
        const std::string item = command.substr(2, 3);
        const bool sets = command.size() > 6;
        if (int& deaf = sets ? deafToSet[item] : deafToQuery[item]; deaf > 0 && deaf-- > 0) return "";
        if ((sets ? refusesSet : refusesQuery).contains(item)) return "?;";
        if (sets) value[item] = command.substr(5, 1);
        if (sets && keeps.contains(item)) value[item] = "0";
        return sets ? "" : "EX" + item + (value.contains(item) ? value[item] : "0") + ";";
    }
    std::string outcome() {
        begin(1, true);
        bench.clock.advance(10'000);
        EXPECT_TRUE(end);
        return story + "| " + inWords(*end, {"item", "items", true}) + " | " + sent();
    }
    std::string sent() {
        std::string all;
        for (const auto& write : line.writes) all += write.text + " ";
        return all;
    }

    std::map<std::string, std::string> value;
    std::map<std::string, int> deafToSet;
    std::map<std::string, int> deafToQuery;
    std::set<std::string> refusesSet;
    std::set<std::string> refusesQuery;
    std::set<std::string> keeps;  ///< its value, without a word
};

TEST_F(WritingTest, SendsCommandAndQueryInOneGoAndIsConfirmed) {
    EXPECT_EQ(outcome(), "EX0015; | 1 item written | EX0015;EX001; ");
}
TEST_F(WritingTest, KnowsARefusal) {
    refusesSet = {"001"};
    EXPECT_EQ(outcome(), "refused EX0010; | 0 items written, 1 refused: 001 | EX0015;EX001; ");
}
TEST_F(WritingTest, KnowsARefusalOfBoth) {
    refusesSet = refusesQuery = {"001"};
    EXPECT_EQ(outcome(), "refused ?; | 0 items written, 1 refused: 001 | EX0015;EX001; ");
}
TEST_F(WritingTest, ARefusedQueryAloneLeavesItUnconfirmed) {
    refusesQuery = {"001"};
    EXPECT_EQ(outcome(), "unconfirmed  | 0 items written, 1 not confirmed: 001 | EX0015;EX001; EX001; ");
}
TEST_F(WritingTest, ACommandThatWasNotHeardIsSentOnceMore) {
    deafToSet["001"] = 1;
    EXPECT_EQ(outcome(), "EX0015; | 1 item written | EX0015;EX001; EX0015;EX001; ");
}
TEST_F(WritingTest, AValueThatStaysIsDifferent) {
    keeps = {"001"};
    EXPECT_EQ(outcome(), "different EX0010; | 0 items written, 1 different: 001 | EX0015;EX001; EX0015;EX001; ");
}
TEST_F(WritingTest, AfterALostAnswerOnlyTheQueryIsSentAgain) {
    deafToQuery["001"] = 1;
    EXPECT_EQ(outcome(), "EX0015; | 1 item written | EX0015;EX001; EX001; ");
}
TEST_F(WritingTest, WhereNeitherWasHeardTheQueryGoesFirstAndApartFromTheNextCommand) {
    deafToSet["001"] = deafToQuery["001"] = 1;
    EXPECT_EQ(outcome(), "EX0015; | 1 item written | EX0015;EX001; EX001; EX0015; EX001; ");
}
/// Its answers begin with noise: it is written into as at the fixed pace, and nothing is said to be confirmed.
TEST_F(WritingTest, GoesOnBlindWhereTheRadioTalksButSaysNothing) {
    line.answer = [](std::string_view wire) {
        return wire.find("EX002;") == wire.npos ? "E\xD8"
                                                  "0010;"
                                                : "?;";
    };
    begin(5, true);
    bench.clock.advance(20'000);
    ASSERT_TRUE(end);
    EXPECT_EQ(inWords(*end, {"item", "items", true}), "0 items written, 5 not confirmed: 001, 002, 003, 004, 005");
}

TEST_F(WritingTest, ASlowRefusalOfBothIsNotTakenForTheNextItems) {
    refusesSet = refusesQuery = {"001"};
    line.answerDelay = 530;
    begin(2, true);
    bench.clock.advance(10'000);
    EXPECT_EQ(story, "refused ?; EX0025; ") << sent();
}

}  // namespace
}  // namespace korvex
