#include "bandstack/QueryLedger.h"

#include <gtest/gtest.h>

namespace korvex {
namespace {

constexpr QueryLedger::Place first{1, 1, 2};
constexpr QueryLedger::Place next{1, 1, 3};

/// The first row was asked for every 100 ms and answered `latency` ms after its first query.
QueryLedger answeredAfter(std::int64_t latency) {
    QueryLedger ledger;
    for (std::int64_t at = 0; at < latency; at += 100) {
        EXPECT_TRUE(ledger.due(first, at));
        ledger.sent(first, "MD0;", at);
    }
    EXPECT_EQ(ledger.ownerOf("MD02;", first, "MD0;", latency), first);
    return ledger;
}

TEST(QueryLedger, WaitsThreeTimesAsLongAsTheRadioTookForAnswersThatAreOwed) {
    for (const auto& [latency, silence] : {std::pair(150, 450), std::pair(101, 303), std::pair(450, 1'350),
                                           std::pair(499, 1'497), std::pair(600, 1'500)}) {
        QueryLedger ledger = answeredAfter(latency);
        EXPECT_FALSE(ledger.due(next, latency + silence - 1)) << latency;
        EXPECT_TRUE(ledger.due(next, latency + silence)) << latency;
    }
    EXPECT_TRUE(answeredAfter(90).due(next, 91)) << "nothing is owed";
}

TEST(QueryLedger, LateAnswersGoWhereTheyBelongAndASlowRadioIsAskedLess) {
    QueryLedger ledger = answeredAfter(350);
    EXPECT_EQ(ledger.ownerOf("MD02;", next, "PA0;", 450), first);  // to the query of 100 ms
    EXPECT_EQ(ledger.ownerOf("?;", next, "PA0;", 550), std::nullopt);
    EXPECT_EQ(ledger.ownerOf("MD02;", next, "PA0;", 650), first);
    EXPECT_EQ(ledger.ownerOf("MD02;", next, "PA0;", 660), std::nullopt) << "unasked";
    EXPECT_TRUE(ledger.due(next, 661));
    ledger.sent(next, "PA0;", 661);
    EXPECT_FALSE(ledger.due(next, 661 + 2 * 350 - 1));
    EXPECT_TRUE(ledger.due(next, 661 + 2 * 350));
    EXPECT_EQ(ledger.ownerOf("FA14195000;", next, "PA0;", 900), next) << "for want of a better one";
    EXPECT_EQ(ledger.ownerOf("PA01;", next, "PA0;", 1'000), next);
}

}  // namespace
}  // namespace korvex
