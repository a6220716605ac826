#include "memory/DigitBox.h"

#include <gtest/gtest.h>

namespace korvex {
namespace {

TEST(DigitBox, ShiftsDigitsInFromTheRight) {
    DigitBox box(frequencyPattern);
    EXPECT_EQ(box.text.get(), "00'000'000");
    for (const char key : std::string("14.250'000")) box.type(key);
    EXPECT_EQ(box.text.get(), "14'250'000");
    box.setDigits("07050000");
    box.type('5');
    EXPECT_EQ(box.text.get(), "70'500'005");
    EXPECT_EQ(box.digits(), "70500005");
    for (const char key : std::string(",.-+ xE\x7F\xB2")) box.type(key);
    EXPECT_EQ(box.digits(), "70500005");
    box.backspace();
    EXPECT_EQ(box.text.get(), "07'050'000");
    box.clear();
    box.backspace();
    EXPECT_EQ(box.text.get(), "00'000'000");

    DigitBox offset(clarifierPattern);
    offset.setDigits("1234");
    EXPECT_EQ(offset.text.get(), "1'234");
    offset.type('9');
    EXPECT_EQ(offset.digits(), "2349");
}

TEST(DigitBox, HoldsItsDigitsWhateverIsPasted) {
    DigitBox box(frequencyPattern);
    const std::pair<const char*, const char*> taken[] = {{"14.250.000", "14250000"}, {" 14 250 000 ", "14250000"},
                                                         {"7'050'000", "07050000"},  {"14250", "00014250"},
                                                         {"0014250000", "14250000"}, {"14,25", "00001425"}};
    for (const auto& [text, digits] : taken) {
        box.clear();
        EXPECT_TRUE(box.paste(text));
        EXPECT_EQ(box.digits(), digits) << text;
    }
    box.setDigits("07050000");
    for (const char* refused : {"", " ", "145.500.000", "14 MHz", "-5", "１４", "14\n25"}) {
        EXPECT_FALSE(box.paste(refused)) << refused;
        EXPECT_EQ(box.digits(), "07050000") << refused;
    }
}

TEST(DigitBox, ShowsZeroForWhatAListCellCannotMean) {
    DigitBox box(frequencyPattern);
    box.setDigits("0");
    EXPECT_EQ(box.text.get(), "00'000'000");
    for (const char* strange : {"1425x000", "145500000", "", "+1425000"}) {
        box.setDigits("12345678");
        box.setDigits(strange);
        EXPECT_EQ(box.digits(), "00000000") << strange;
    }
}

}  // namespace
}  // namespace korvex
