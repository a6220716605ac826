#include "terminal/TypedCommands.h"

#include <gtest/gtest.h>

namespace korvex {
namespace {

std::string refused(std::string_view typed, std::string_view came) {
    TypedCommands whole(typed);
    whole.take(came);
    TypedCommands pieces(typed);
    for (const char c : came) pieces.take(std::string_view(&c, 1));
    EXPECT_EQ(pieces.refused(), whole.refused()) << "the same in pieces";
    return whole.refused();
}

TEST(TypedCommands, TheOrderOfTheAnswersTellsWhichOneWasRefused) {
    EXPECT_EQ(refused("XX;", "?;"), "XX;");
    EXPECT_EQ(refused("XX", "?;"), "XX") << "without its end";
    EXPECT_EQ(refused("EX001;EX200;EX003;", "EX0011;?;EX0030;"), "EX200;");
    EXPECT_EQ(refused("FA;ZZ;", "FA14195000;?;"), "ZZ;");
    EXPECT_EQ(refused("FA14200000;FA;", "?;FA14195000;"), "FA14200000;") << "what was set is no answer";
    EXPECT_EQ(refused("XX;YY;", "?;?;"), "XX; YY;");
    EXPECT_EQ(refused("XX;FA;YY;", "?;FA14195000;?;"), "XX;, YY;");
}

TEST(TypedCommands, WhereItCannotBeKnownItSaysSo) {
    EXPECT_EQ(refused("FA;XX;FA14200000;", "FA14195000;?;"), "one of XX; FA14200000;");
    EXPECT_EQ(refused("XX;YY;ZZ;MD0;", "?;?;MD02;"), "2 of XX; YY; ZZ;");
    EXPECT_EQ(refused("FA;", "FA14195000;"), "");
    EXPECT_EQ(refused("FA;", "FA14195000;?;"), "") << "of something else";
    EXPECT_EQ(refused("FA;", "?;FA14195000;"), "");
    EXPECT_EQ(refused("FA;", "RM01234;"), "");
    TypedCommands line("FA;XX;MD0;");
    EXPECT_FALSE(line.take("FA14195000;"));
    EXPECT_TRUE(line.take("?;"));
    EXPECT_EQ(line.refused(), "one of XX; MD0;");
    EXPECT_TRUE(line.take("MD02;")) << "it is known now";
    EXPECT_EQ(line.refused(), "XX;");
    EXPECT_FALSE(TypedCommands().take("?;"));
}

}  // namespace
}  // namespace korvex
