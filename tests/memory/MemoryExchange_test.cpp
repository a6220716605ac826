#include "memory/MemoryExchange.h"

#include <gtest/gtest.h>

namespace korvex {
namespace {

/// The radio tells in one digit where it has the channel from; all else must be as it was written.
TEST(MemoryExchange, IsConfirmedByTheSameChannelWhateverItsSource) {
    const std::string command = "MW00714250000+000000200080;";
    const Exchange exchange = memoryWriting(command);
    EXPECT_EQ(exchange.item + " " + exchange.command + exchange.query, "007 " + command + "MR007;");
    EXPECT_TRUE(exchange.confirms("MR00714250000+000000200080;"));
    EXPECT_TRUE(exchange.confirms("MR00714250000+000000210080;"));
    for (std::size_t i = 2; i < command.size(); ++i) {
        std::string answer = "MR" + command.substr(2);
        answer[i] = 'x';
        EXPECT_EQ(exchange.confirms(answer), i == 21) << answer;
    }
    EXPECT_FALSE(exchange.confirms("MR"));
}

}  // namespace
}  // namespace korvex
