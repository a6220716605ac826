#include "memory/MemoryRecord.h"

#include <gtest/gtest.h>

#include "base/NumberText.h"
#include "memory/MemoryCodes.h"
#include "memory/MemoryFile.h"
#include "memory/MemoryTables.h"

namespace korvex {
namespace {

TEST(MemoryRecord, CutsEveryFieldAndPutsItBackInItsPlace) {
    const std::string stored = "MR00714250000-123401201348;";
    const auto record = parseMemoryString(stored);
    ASSERT_TRUE(record);
    const std::array<const char*, memoryFieldCount> expected = {"007", "14250000", "-", "1234", "0", "1",
                                                                "2",   "0",        "1", "34",   "8", ""};
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ((*record)[static_cast<MemoryField>(i)], expected[i]) << i;
    EXPECT_EQ(memoryWriteCommand(*record), "MW00714250000-123401201348;");
    EXPECT_EQ(memoryWriteCommand(stored), memoryWriteCommand(*record));
}

TEST(MemoryRecord, TakesTheRestOfTheLineAsTheRemark) {
    const std::string bare = "MW00714250000-123401201348;";
    EXPECT_FALSE(parseMemoryString(bare.substr(0, 25)));
    EXPECT_TRUE(parseMemoryString(bare.substr(0, 26)));  // only the ";" is missing
    EXPECT_EQ((*parseMemoryString(bare))[MemoryField::Remark], "");
    EXPECT_EQ((*parseMemoryString(bare + "x"))[MemoryField::Remark], "x");
    const auto record = parseMemoryString(bare + "D\xFCse; 21\xB0");
    EXPECT_EQ((*record)[MemoryField::Remark], "D\xFCse; 21\xB0");
    EXPECT_EQ(memoryListLine(*record), bare + "D\xFCse; 21\xB0");
}

TEST(MemoryRecord, KeepsWhatTheRadioAnswersUnderTheChannelThatWasAskedFor) {
    const std::string answer = "MR04214250000+000000200080;";
    EXPECT_EQ(storedMemoryString("MR042;", answer), answer);
    EXPECT_EQ(storedMemoryString("MR007;", answer), "MR00714250000+000000200080;");
    for (const char* nothing : {"?;", "?", "MR042", "MR;", ""}) EXPECT_FALSE(storedMemoryString("MR042;", nothing));

    EXPECT_EQ(memoryAnswerIn("\xF0~?xx" + answer), answer);  // line noise
    EXPECT_EQ(memoryAnswerIn("~?;"), "?;");
    EXPECT_FALSE(memoryAnswerIn("FA00014250000;"));  // the dial was turned
}

TEST(MemoryRecord, MakesReadCommandsForChannels1To100) {
    const auto commands = makeMemoryReadCommands();
    EXPECT_EQ(commands[7], "MR007;");
    EXPECT_EQ(commands[42], "MR042;");
    EXPECT_EQ(commands[100], "MR100;");
    for (const int empty : {-1, 0, 101, 102, 103}) EXPECT_EQ(commands[empty], "") << empty;
}

TEST(MemoryCodes, TranslateBothWays) {
    EXPECT_EQ(modeTable.code(0), "1");
    EXPECT_EQ(modeTable.code(9), "A");
    EXPECT_EQ(modeTable.code(11), "C");
    EXPECT_EQ(modeTable.label(*modeTable.position("B")), "FM(N)");
    EXPECT_EQ(toneTable.code(8), "08");
    int tenths = 0;  // of all tones: each is higher than the one before it
    for (int i = 0, last = 0; i < toneTable.size(); ++i) {
        std::string tone(toneTable.label(i));
        tone.erase(tone.find('.'), 1);
        EXPECT_GT(*parseWhole(tone), last) << i;
        tenths += last = *parseWhole(tone);
    }
    EXPECT_EQ(tenths, 75'284);
    EXPECT_EQ(toneTable.label(*toneTable.position("49")), "254.1");
    EXPECT_EQ(directionTable.position("-"), 1);
    for (const auto* list : {&modeTable, &toneTable, &ctcssModeTable, &shiftTable, &clarifierTable, &directionTable}) {
        for (int i = 0; i < list->size(); ++i) EXPECT_EQ(list->position(list->code(i)), i);
        EXPECT_EQ(list->position(""), 0);
        EXPECT_FALSE(list->position("D"));
        EXPECT_FALSE(list->position("50"));
        EXPECT_EQ(list->code(list->size()) + list->code(-1), "");
    }
}

TEST(MemoryFile, PassesOverBlankLinesAndRefusesWhatIsNoMemoryFile) {
    const std::string good = "MR00114250000+000000200080;";
    const auto lines = parseMemoryFile(good + "\r\n\r\n \"" + good + "\"\n" + good);
    ASSERT_TRUE(lines);
    EXPECT_EQ(*lines, (std::vector<std::string>{good, good, good}));

    std::string long_;
    for (int i = 0; i < 102; ++i) long_ += good + "\n";
    EXPECT_EQ(parseMemoryFile(long_)->size(), 102U);
    for (int i = 0; i < 100'000; ++i) long_ += good + "\n";
    EXPECT_FALSE(parseMemoryFile(long_));

    for (const std::string bad :
         {"MR;TX1;", "MR002\rKY6;", "MW00114250000+000000200080;", "\"MR002\rKY6;\"", "MR00114250000+000000200080",
          "MR00114250000+000000200080;x", "MR001\tTX1;\t000+000000200080;", "MR00114250000+0000 0200080;"}) {
        const auto refused = parseMemoryFile(good + "\r\n\r\n" + bad + "\r\n");
        ASSERT_FALSE(refused) << bad;
        EXPECT_EQ(refused.error().text.find("Line 3 (M"), 0U) << refused.error().text;
    }
}

}  // namespace
}  // namespace korvex
