#include "convert/ListTables.h"

#include <gtest/gtest.h>

#include "memory/MemoryBench.h"

namespace korvex {
namespace {

class ListTablesTest : public MemoryBench {
protected:
    void import(const std::string& content) {
        write("in.csv", content);
        fileDialog.choose(path("in.csv"));
        tables.importTable();
    }
    std::string shown(int row) {
        return memory.list.cell(row, MemoryField::Frequency) + " " + memory.list.cell(row, MemoryField::Remark);
    }
    MemoryRecord record(int row, const std::string& remark) {
        return *parseMemoryString("MW" + channelText(row) + "14250000+000000200080;" + remark);
    }
    void place(int row, const std::string& remark) { memory.list.place(row, record(row, remark)); }

    ListTables& tables = program.listTables;
};

constexpr const char* chirpTitles = "Location,Name,Frequency,Duplex,Offset,Tone,rToneFreq,cToneFreq,Mode\n";

TEST_F(ListTablesTest, AnImportIsOneStepOfTheListAndTellsWhatItLeftOut) {
    place(3, "mine");
    place(4, "stays");
    msgBox.foresee(
        "2 channels imported, 1 of them in place of others, from in.csv. Not everything in it could be taken as it "
        "was:\r\n\r\nchannel 5: left out, the radio does not tune 145.500000 MHz\r\n");
    import(std::string(chirpTitles) + "3,new,7.1,,,,,,LSB\n5,VHF,145.500000,,,,,,FM\n9,more,21.2,,,,,,USB\n");
    EXPECT_EQ(msgBox.shown.back().details, "") << "all of it stands in the box";
    EXPECT_EQ(shown(3), "07100000 new");
    EXPECT_EQ(shown(4), "14250000 stays");
    EXPECT_EQ(shown(9), "21200000 more");
    EXPECT_TRUE(memory.list.modified);
    EXPECT_EQ(*memory.list.undo(), "import of 2 channels");
    EXPECT_EQ(shown(3), "14250000 mine");
    EXPECT_FALSE(memory.list.filled(9));

    std::string many = chirpTitles;
    for (int i = 0; i < 30; ++i) many += std::to_string(i + 1) + ",x,14.1,,,,,,NCW\n";
    msgBox.foresee("channel 10: the mode NCW is taken as CW\r\nand 20 more");
    import(many);
    EXPECT_EQ(msgBox.shown.back().text.find("channel 11:"), std::string::npos);
    EXPECT_NE(msgBox.shown.back().details.find("channel 30: the mode NCW"), std::string::npos);
}

TEST_F(ListTablesTest, ARefusedTableChangesNothing) {
    place(3, "mine");
    for (const auto& [table, why] :
         {std::pair{std::string("Channel,Frequency\n1,14100000\n"), "there is no column \""},
          {std::string(chirpTitles) + "1,VHF,145.5,,,,,,FM\n", "does not tune 145.5 MHz\r\nThere is no channel"},
          {std::string("\0\1\2\xFF", 4), "The list stays as it is."}}) {
        msgBox.foresee(why);
        import(table);
    }
    fileDialog.cancel();
    tables.importTable();
    EXPECT_EQ(memory.list.history().undoable(), "copying of channel 003 into the list");
    EXPECT_EQ(settings.values["Settings/SavePathTables"], "");
}

TEST_F(ListTablesTest, AnExportComesBackAndSaysWhatChirpCannotHold) {
    MemoryRecord part = record(1, "only begun");
    part[MemoryField::Frequency] = "0";
    memory.list.place(1, part);
    msgBox.foresee("The list has no channels. No file was written.");
    tables.exportSheet();
    memory.list.clearRow(1);
    place(3, "\xC4gypten; \"DX\"");
    place(4, std::string(51, 'x'));
    place(5, std::string(50, 'y'));
    const auto before = memory.list.row(3).cells;

    memory.list.place(1, part);
    fileDialog.choose(path("sheet.csv"));
    msgBox.foresee("cannot hold everything:\r\n\r\nrow 1: left out, it is no whole channel\r\n");
    tables.exportSheet();
    EXPECT_EQ(memory.listEdits.told.get(), "List exported to sheet.csv");
    memory.list.clearRow(1);
    fileDialog.choose(path("chirp.csv"));
    msgBox.foresee(
        "The list is in chirp.csv. A table of this kind cannot hold everything:\r\n\r\n"
        "channel 004: the remark has 51 characters");
    tables.exportForChirp();
    EXPECT_EQ(msgBox.shown.back().text.find("channel 005"), std::string::npos);

    for (const char* file : {"sheet.csv", "chirp.csv"}) {
        for (const int row : {3, 4, 5}) memory.list.clearRow(row);
        fileDialog.choose(path(file));
        tables.importTable();
        EXPECT_EQ(memory.listEdits.told.get(), std::string("3 channels imported from ") + file);
        EXPECT_EQ(memory.list.row(3).cells, before) << file;
        EXPECT_EQ(shown(4), "14250000 " + std::string(51, 'x')) << file;
    }
    EXPECT_EQ(tables.files.path.get(), path("chirp.csv"));
}

}  // namespace
}  // namespace korvex
