#include "cat/FrequencyText.h"

#include <gtest/gtest.h>

namespace korvex {
namespace {

TEST(FrequencyText, ShowsMegahertzKilohertzAndHertz) {
    EXPECT_EQ(groupedFrequency("14250000"), "14.250.000");
    EXPECT_EQ(groupedFrequency("07050000"), "7.050.000");
    EXPECT_EQ(groupedFrequency("00475000"), "0.475.000");
    EXPECT_EQ(groupedFrequency("0"), "0.000.000");
    for (const char* kept : {"", "7x", "FA;"}) EXPECT_EQ(groupedFrequency(kept), kept);
    EXPECT_FALSE(isTunable("00029999"));
    EXPECT_TRUE(isTunable("00030000"));
    EXPECT_TRUE(isTunable("60000000"));
    EXPECT_FALSE(isTunable("60000001"));
    EXPECT_FALSE(isTunable(""));
}

TEST(FrequencyText, UnderstandsWhatPersonsAndSpreadsheetsWrite) {
    const auto digits = [](const char* text) {
        const auto read = frequencyFromText(text);
        return read ? *read : read.error().text;
    };
    for (const char* text : {"14250000",
                             "014250000",
                             "14.250.000",
                             "14,250,000",
                             "14'250'000",
                             " 14 250 000 ",
                             "14\xC2\xA0"
                             "250\xC2\xA0"
                             "000",
                             "14.25 MHz",
                             "14,25MHZ",
                             "14.250000 mhz",
                             "14250 kHz",
                             "14.250 kHz",
                             "14,250.0 kHz",
                             "14.250,000 kHz",
                             "14.250.000 Hz",
                             "14.250.000 MHz",
                             "14250000 hz",
                             "14250000.0",
                             "14250000,00",
                             "14 250 kHz"}) {
        EXPECT_EQ(digits(text), "14250000") << text;
    }
    EXPECT_EQ(digits("7.1 kHz"), "00007100");
    EXPECT_EQ(digits("7.100 kHz"), "07100000");
    EXPECT_EQ(digits("475.125 kHz"), "00475125");
    EXPECT_EQ(digits("0.475.000"), "00475000");
    EXPECT_EQ(digits("0"), "00000000");
    EXPECT_EQ(digits("99999999"), "99999999");
    EXPECT_EQ(digits("145.5 MHz"), "does not fit into eight digits of Hz");
}

TEST(FrequencyText, RefusesWhatCouldBeSomethingElse) {
    for (const char* text : {"",           " ",
                             "MHz",        "14.25",
                             "50.125",     "50.125 kHz",
                             "14.250.00",  "14.25.0000",
                             "14.250,000", "1,2,3 MHz",
                             "-7050 kHz",  "+7050000",
                             "7050 m",     "1e7",
                             "14..25 MHz", ".5 MHz",
                             "14. MHz",    "14.2500001 MHz",
                             "7050000.5",  "7 05 kHz",
                             "14 MHz 250", "99999999999999999999999999"}) {
        EXPECT_FALSE(frequencyFromText(text)) << text;
    }
}

}  // namespace
}  // namespace korvex
