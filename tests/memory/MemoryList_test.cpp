#include "memory/MemoryList.h"

#include <gtest/gtest.h>

#include "memory/MemoryListFile.h"
#include "memory/MemoryListWriter.h"

namespace korvex {
namespace {

std::string line(int channel, const std::string& remark = {}) {
    return "MW" + channelText(channel) + "14" + channelText(channel) + "000+000000200080;" + remark;
}

/// A list with these channels, remark "R" and the channel.
struct ListOf : MemoryList {
    ListOf(std::initializer_list<int> channels) {
        std::map<int, MemoryRecord> records;
        for (const int channel : channels) {
            records[channel] = *parseMemoryString(line(channel, "R" + std::to_string(channel)));
        }
        replaceAll(records);
    }
};

std::string channelAndRemark(const MemoryList& list, int row) {
    return list.cell(row, MemoryField::Channel) + " " + list.cell(row, MemoryField::Remark);
}

bool rowIsEmpty(const MemoryList& list, int row) {
    for (int col = 1; col < list.grid.Cols(); ++col) {
        if (!list.grid.TextMatrix(row, col).empty()) return false;
    }
    return true;
}

TEST(MemoryList, OpensWithASampleThatIsNoChannel) {
    const MemoryList list;
    EXPECT_EQ(list.grid.Rows(), 100);
    EXPECT_EQ(list.grid.Cols(), 13);
    EXPECT_EQ(list.grid.TextMatrix(0, 11), " Shift");
    EXPECT_EQ(list.grid.TextMatrix(99, 0), "99");
    EXPECT_EQ(list.cell(1, MemoryField::ToneNumber), "01");
    EXPECT_FALSE(memoryListCommand(list, 1));
    const auto text = memoryListFileText(list);
    EXPECT_EQ(*text, "MW0+000000100010;Test\r\n\r\n");
    EXPECT_TRUE(parseMemoryListFile(*text)->empty());
    EXPECT_FALSE(list.modified);
}

TEST(MemoryList, InsertsAndDeletesRowsAndRenumbersWhatIsFilled) {
    ListOf list({1, 2, 4, 99});
    list.insertRow(2);
    EXPECT_EQ(channelAndRemark(list, 1), "001 R1");
    EXPECT_TRUE(rowIsEmpty(list, 2));
    EXPECT_EQ(channelAndRemark(list, 3), "003 R2");
    EXPECT_TRUE(rowIsEmpty(list, 4));
    EXPECT_EQ(channelAndRemark(list, 5), "005 R4");
    EXPECT_TRUE(rowIsEmpty(list, 99));
    EXPECT_EQ(list.grid.TextMatrix(5, 0), "5");

    list.deleteRow(2);
    EXPECT_EQ(channelAndRemark(list, 2), "002 R2");
    EXPECT_EQ(channelAndRemark(list, 4), "004 R4");

    list.clearRow(4);
    list.insertRow(1);
    EXPECT_TRUE(list.grid.CellBackColor(5, 12));  // what is marked moves along
    EXPECT_FALSE(list.grid.CellBackColor(4, 1));
    EXPECT_FALSE(list.grid.CellBackColor(5, 0));

    ListOf last({98, 99});
    last.insertRow(99);
    EXPECT_EQ(channelAndRemark(last, 98), "098 R98");
    EXPECT_TRUE(rowIsEmpty(last, 99));
    last.deleteRow(1);
    EXPECT_EQ(channelAndRemark(last, 97), "097 R98");
    last.insertRow(0);  // the header's row is no channel
    last.deleteRow(0);
    EXPECT_EQ(channelAndRemark(last, 97), "097 R98");
}

TEST(MemoryList, AReadingKeepsRemarksOfChannelsThatAreStillTheSame) {
    ListOf list({5, 6, 7});
    list.setRemark(7, "typed");
    MemoryTable table;
    for (const int channel : {5, 7}) table.set(channel, "MR" + line(channel).substr(2));
    table.set(6, "MR00614250000+000000200080;");
    list.fillListFromMemoryTable(table);
    EXPECT_EQ(channelAndRemark(list, 5), "005 R5");
    EXPECT_EQ(channelAndRemark(list, 6), "006 ");
    EXPECT_EQ(channelAndRemark(list, 7), "007 typed");
    EXPECT_TRUE(list.modified);  // no radio and no file has what was typed
    list.setRemark(7, "R7");
    EXPECT_FALSE(list.modified);
}

TEST(MemoryList, FillsFromTheTableInOneRedrawAndKeepsOtherRows) {
    ListOf list({5, 6});
    MemoryTable table;
    table.set(1, "MR00514250000+000000200080;");
    table.set(2, "MR00814250000+000000200080;");
    table.set(3, "MR008too short");
    table.set(4, "MR00818000000+000000200080;");  // left over from an earlier, longer reading
    table.set(5, "MR00018000000+000000200080;");
    int redraws = 0;
    int cells = 0;
    const auto all = list.grid.allChanged.connect([&] { ++redraws; });
    const auto one = list.grid.cellChanged.connect([&](int, int) { ++cells; });
    list.fillListFromMemoryTable(table);
    EXPECT_EQ(redraws, 1);
    EXPECT_EQ(cells, 0);
    EXPECT_EQ(channelAndRemark(list, 5), "005 ");
    EXPECT_EQ(channelAndRemark(list, 6), "006 R6");
    EXPECT_EQ(list.cell(8, MemoryField::Frequency), "18000000");
    EXPECT_EQ(list.grid.TextMatrix(0, 1), "Cha");
}

TEST(MemoryList, UndoesWhateverChangedTheRowsAndMakesItAgain) {
    ListOf list({5, 6, 7});
    EXPECT_EQ(list.history().undoable(), "loading of a file");
    list.insertRow(6);
    list.clearRow(5);
    MemoryTable table;
    table.set(1, "MR00718000000+000000200080;");
    list.fillListFromMemoryTable(table);
    EXPECT_TRUE(list.radioHas(7));
    EXPECT_EQ(*list.undo(), "reading of the memories");
    EXPECT_EQ(channelAndRemark(list, 7), "007 R6");
    EXPECT_FALSE(list.radioHas(7));
    EXPECT_TRUE(list.isChanged(7));
    EXPECT_FALSE(list.isChanged(4));
    EXPECT_EQ(*list.undo(), "deletion of the content");
    EXPECT_EQ(channelAndRemark(list, 5), "005 R5");
    EXPECT_FALSE(list.grid.CellBackColor(5, 1));
    EXPECT_EQ(*list.redo(), "deletion of the content");
    EXPECT_TRUE(rowIsEmpty(list, 5));
    EXPECT_TRUE(list.grid.CellBackColor(5, 1));
    list.setRemark(99, "else");
    EXPECT_FALSE(list.redo());
    while (list.undo()) continue;
    EXPECT_EQ(list.cell(1, MemoryField::Remark), "Test");
    EXPECT_TRUE(list.modified);

    ListOf saved({5});
    saved.clearRow(5);
    saved.noteSaved();
    EXPECT_FALSE(saved.modified);
    saved.undo();
    EXPECT_TRUE(saved.modified);  // the file is without it
    for (int i = 0; i < 300; ++i) saved.setRemark(1, std::to_string(i));
    int steps = 0;
    while (saved.undo()) ++steps;
    EXPECT_EQ(steps, 200);
}

TEST(MemoryListFile, KeepsEveryWindows1252RemarkAndTellsWhatItCannotKeep) {
    ListOf list({3, 17});
    list.setCell(3, MemoryField::Remark, "Düsseldorf 21° €");
    const auto text = memoryListFileText(list);
    EXPECT_EQ(*text, line(3, "D\xFCsseldorf 21\xB0 \x80") + "\r\n" + line(17, "R17") + "\r\n\r\n");
    MemoryList again;
    again.replaceAll(*parseMemoryListFile(*text));
    EXPECT_EQ(channelAndRemark(again, 3), "003 Düsseldorf 21° €");
    EXPECT_TRUE(rowIsEmpty(again, 1));
    EXPECT_EQ(*memoryListFileText(again), *text);

    list.setCell(17, MemoryField::Remark, "Ω");
    ASSERT_FALSE(memoryListFileText(list));
    EXPECT_NE(memoryListFileText(list).error().text.find("channel 017: The character \"Ω\""), std::string::npos);
    for (const char* lost : {"two\nlines", "Köln, Dom"}) {
        list.setCell(17, MemoryField::Remark, lost);
        EXPECT_FALSE(memoryListFileText(list)) << lost;
    }
}

TEST(MemoryListFile, ReadsHostileFilesWithoutHarm) {
    std::string content = line(5, "first") + "\r\n" + line(0) + "\n" + line(100) + "\r" + line(5, "last, cut here") +
                          "\r\n\r\nshort\r\n" + line(6, std::string("nul\0byte", 8)) + "\r\n" +
                          line(7, std::string(1'000'000, 'x')) + "\r\n";
    for (int i = 0; i < 100'000; ++i) content += line(8) + "\r\n";
    content += line(9, "no line end");
    const auto records = *parseMemoryListFile(content);
    EXPECT_EQ(records.size(), 5U);
    EXPECT_EQ(records.at(5)[MemoryField::Remark], "last");
    EXPECT_EQ(records.at(6)[MemoryField::Remark].size(), 8U);
    EXPECT_EQ(records.at(7)[MemoryField::Remark].size(), 1'000'000U);
    EXPECT_EQ(records.at(9)[MemoryField::Remark], "no line end");
}

TEST(MemoryListFile, TakesNothingThatHasNotTheShapeOfAMemory) {
    // The rest of a remark is long enough to be one, and begins as channel 007.
    const auto tail = parseMemoryListFile(line(5, "home, MW007 is the repeater on the hill") + "\r\n" + line(7));
    EXPECT_EQ(tail->at(5)[MemoryField::Remark], "home");
    EXPECT_EQ(tail->at(7)[MemoryField::Frequency], "14007000");
    const auto strange = parseMemoryListFile(line(1) + "\r\n\r" + line(2) + "\n \"EX007 and more than 26 characters\"");
    ASSERT_FALSE(strange);
    EXPECT_EQ(strange.error().text, "Line 4 (EX007 and more than 26 charact) is no memory channel");
    for (const auto& text : {line(5).replace(2, 3, "5 9"), line(5).replace(26, 1, "0"), line(5).replace(13, 1, "0")}) {
        EXPECT_FALSE(parseMemoryListFile(text + "remark")) << text;
    }
}

TEST(MemoryListWriter, SendsOnlyRowsThatAreTheirOwnChannel) {
    ListOf list({5, 6, 7, 8});
    EXPECT_EQ(memoryListCommand(list, 5), line(5));
    EXPECT_FALSE(memoryListCommand(list, 9));
    list.setCell(5, MemoryField::Frequency, "00000000");
    list.setCell(6, MemoryField::Channel, "007");
    list.setCell(7, MemoryField::Frequency, "14x50000");
    list.setCell(8, MemoryField::ClarifierOffset, ";TX1");
    for (const int row : {5, 6, 7, 8}) EXPECT_FALSE(memoryListCommand(list, row)) << row;
}

}  // namespace
}  // namespace korvex
