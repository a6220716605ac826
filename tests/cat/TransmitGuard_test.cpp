#include "cat/TransmitGuard.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvex {
namespace {

TEST(TransmitGuard, KnowsEveryCommandThatKeysTheTransmitter) {
    const std::vector<std::string> bad = {"TX1", "TX2", "TX9",  "MX1",   "VX1",   "KY1",   "KY6",   "KYA",
                                          "KY",  "PB1", "PB01", "AC002", "AC012", "AC992", "AC0021"};
    for (const auto& command : bad) {
        EXPECT_TRUE(keysTransmitter(command + ";")) << command;
        EXPECT_TRUE(keysTransmitter(command)) << command << " without its end";
        EXPECT_TRUE(keysTransmitter("EX0011;" + command + ";FA;")) << command << " in between";
    }
    EXPECT_TRUE(keysTransmitter("tx1;"));
    for (const char* good : {"", ";", "EX0011;", "TX0;", "TX;", "MX;", "MX0;", "VX0;", "VX;", "AC;", "AC001;", "AC021;",
                             "KM1TX1", "KM1CQ TX1;", "KP10;", "XT1;", "?;", "FA"}) {
        EXPECT_FALSE(keysTransmitter(good)) << good;
    }
}

TEST(TransmitGuard, IsNotGotRoundByWhatARadioMayPassOverOrDrop) {
    for (const char* bad : {" \r\nTX1;", "T\r\nX 1;", "T\tX1;", "FA\nTX1;", "FA\rTX1", "FA\x7fKY6;", "MR002\rKY6;",
                            "EX001\r\nTX1;", "EX001\xe4TX1;", "FA\nAC0 02;"}) {
        EXPECT_TRUE(keysTransmitter(bad)) << bad;
    }
    // The next line could complete these.
    for (const char* open : {"EX0011;AC0", "EX0011;T", "FA\nTX", "K"}) EXPECT_TRUE(keysTransmitter(open)) << open;
    EXPECT_FALSE(keysTransmitter("FA;\r\nFB;\r\n"));
}

TEST(TransmitGuard, SeesCharactersThatNoCommandHas) {
    for (const char* bad : {"\r", "FA;\n", "F\tA;", "FA\x7f;", "\x1b[2J"}) EXPECT_TRUE(holdsControlCharacter(bad));
    for (const char* good : {"", "FA;", "KM1A B;", "\xe4"}) EXPECT_FALSE(holdsControlCharacter(good));
}

}  // namespace
}  // namespace korvex
