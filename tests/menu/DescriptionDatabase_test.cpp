#include "menu/DescriptionDatabase.h"

#include <gtest/gtest.h>

#include "fakes/FakeDatabase.h"
#include "fakes/ProgramBench.h"
#include "menu/DescriptionMerge.h"
#include "menu/DescriptionTable.h"

namespace korvex {
namespace {

using Reason = DescriptionDatabase::UnloadReason;

struct DescriptionDatabaseTest : testing::Test {
    /// `count` records of `fields` fields, each naming its place: "3.8".
    static fakes::FakeDatabase::Records numbered(int count, int fields) {
        fakes::FakeDatabase::Records records;
        for (int k = 1; k <= count; ++k) {
            auto& record = records.emplace_back();
            for (int f = 0; f < fields; ++f) record.push_back(std::to_string(k) + "." + std::to_string(f));
        }
        return records;
    }
    void open() {
        logic.Form_Load();
        EXPECT_EQ(database.opened, 0);
        clock.advance(50);
    }
    fakes::VirtualClock clock;
    fakes::FakeMsgBox msgBox;
    fakes::FakeDatabase database;
    ProgressWindow progress;
    MSFlexGrid grid{192, 14};
    DescriptionDatabase logic{{database, clock, msgBox, progress, grid, "/folder/FT2000_Menu.mdb"}};
};

TEST_F(DescriptionDatabaseTest, SavesColumns7To11Of15FieldsAndNothingElse) {
    database.records = numbered(195, 15);
    open();
    EXPECT_EQ(grid.TextMatrix(0, 0), "1.1");
    EXPECT_EQ(grid.TextMatrix(189, 13), "190.14");
    EXPECT_EQ(grid.TextMatrix(190, 0), "");
    grid.setCols(13);
    for (int row = 0; row < grid.Rows(); ++row) {
        for (int col = 0; col < grid.Cols(); ++col) grid.setTextMatrix(row, col, "new");
    }
    EXPECT_TRUE(logic.saveDescriptionGrid());
    auto expected = numbered(195, 15);
    for (int k = 0; k < 190; ++k) {
        for (std::size_t f = 8; f <= 12; ++f) expected[static_cast<std::size_t>(k)][f] = "new";
    }
    EXPECT_EQ(database.records, expected);
    EXPECT_FALSE(progress.visible);
    EXPECT_TRUE(grid.Redraw());
}

TEST_F(DescriptionDatabaseTest, AnOwnersTableOfAnotherShapeLosesNothing) {
    for (const auto& [records, fields] : {std::pair(3, 20), std::pair(5, 9), std::pair(2, 1), std::pair(0, 0)}) {
        database.records = numbered(records, fields);
        const auto before = database.records;
        grid.setTextMatrix(100, 7, "kept");
        DescriptionDatabase other{{database, clock, msgBox, progress, grid, "x"}};
        other.loadDescriptionGrid();
        EXPECT_EQ(grid.TextMatrix(100, 7), "kept");
        EXPECT_TRUE(other.saveDescriptionGrid());
        EXPECT_EQ(database.records, before);
    }
}

TEST_F(DescriptionDatabaseTest, AFileThatDoesNotOpenIsReportedAndTheGridStaysEmpty) {
    database.records = numbered(190, 15);
    database.fails = RuntimeError{errors::FileNotFound, "File not found: x"};
    database.errors = {{14, "08001", "unable to open"}};
    int prepared = 0;
    logic.prepareGrid = [&prepared] { ++prepared; };
    msgBox.foresee("Fehler= 53\r\nFile not found: x\r\n\nADOErr: 14   JetErr: 08001\r\nunable to open");
    msgBox.whileShown = [this] { clock.advance(200); };  // the timer goes on while the box is open
    open();
    msgBox.whileShown = nullptr;
    EXPECT_EQ(msgBox.shown.size(), 1U);
    EXPECT_EQ(msgBox.shown[0].title, "OpenDatabase");
    EXPECT_EQ(msgBox.shown[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(grid.TextMatrix(0, 0), "");
    EXPECT_EQ(prepared, 1);
    EXPECT_TRUE(logic.Form_QueryUnload(Reason::Program));
    msgBox.foresee("nothing was saved");
    EXPECT_FALSE(logic.saveDescriptionGrid());
    // Once the trouble is over, loading is enough.
    database.fails.reset();
    logic.loadDescriptionGrid();
    EXPECT_EQ(grid.TextMatrix(0, 0), "1.1");
}

TEST_F(DescriptionDatabaseTest, ASaveThatFailsInTheMiddleLeavesTheOldTableAndCanBeRepeated) {
    database.records = numbered(190, 15);
    open();
    for (int row = 0; row < 190; ++row) grid.setTextMatrix(row, 8, "new");
    database.failsAtRecord = 100;
    msgBox.foresee("Disk full");
    EXPECT_FALSE(logic.saveDescriptionGrid());
    EXPECT_EQ(database.records, numbered(190, 15));
    EXPECT_FALSE(progress.visible);
    database.failsAtRecord = 0;
    EXPECT_TRUE(logic.saveDescriptionGrid());
    EXPECT_EQ(database.records[0][9], "new");
    EXPECT_EQ(database.records[189][9], "new");
}

TEST_F(DescriptionDatabaseTest, TheOpenDatabaseGoesOnlyWithTheSessionOrTheTaskManager) {
    database.records = numbered(1, 15);
    open();
    EXPECT_FALSE(logic.Form_QueryUnload(Reason::Program));
    msgBox.foresee("Wollen Sie Windows trotzdem beenden?", MsgAnswer::No);
    EXPECT_FALSE(logic.Form_QueryUnload(Reason::SessionEnd));
    msgBox.foresee("möglicherweise noch nicht gespeichert !\n", MsgAnswer::Yes);
    EXPECT_TRUE(logic.Form_QueryUnload(Reason::SessionEnd));
    EXPECT_TRUE(logic.isOpen());
    EXPECT_TRUE(logic.Form_QueryUnload(Reason::TaskManager));
    EXPECT_FALSE(logic.isOpen());
}

struct SharedDatabase : DescriptionDatabaseTest {
    SharedDatabase() {
        database.records = (*parseDescription(fakes::fileContent(SOURCE_DIR "/data/menu-description.tsv"))).records;
        open();
    }
    /// What is in the file for an item; another program writes there as well.
    std::string& file(int id, int field) {
        for (auto& record : database.records) {
            if (record[0] == std::to_string(id)) return record[static_cast<std::size_t>(field)];
        }
        throw std::out_of_range("no record " + std::to_string(id));
    }
};

TEST_F(SharedDatabase, LoadingAndSavingSeeWhatAnotherProgramWrote) {
    file(2, 3) = "AGC fast delay";
    file(3, 8) = "theirs";
    logic.loadDescriptionGrid();
    EXPECT_EQ(grid.TextMatrix(1, 2), "AGC fast delay");
    EXPECT_EQ(grid.TextMatrix(2, 7), "theirs");

    file(3, 8) = "0300";
    file(3, 9) = "both";
    file(4, 3) = "AGC slow delay";
    grid.setTextMatrix(1, 7, "mine");
    grid.setTextMatrix(2, 8, "both");
    EXPECT_TRUE(logic.saveDescriptionGrid());
    EXPECT_EQ(file(2, 8), "mine");
    EXPECT_EQ(file(3, 8), "0300");  // was not changed here
    EXPECT_EQ(file(4, 3), "AGC slow delay");
    EXPECT_EQ(grid.TextMatrix(2, 7), "0300");
    EXPECT_EQ(grid.TextMatrix(3, 2), "AGC slow delay");

    // The same cell, by both.
    file(2, 8) = "theirs";
    grid.setTextMatrix(1, 7, "mine again");
    msgBox.foresee("Another program has saved other settings for 001 meanwhile.", MsgAnswer::No);
    EXPECT_FALSE(logic.saveDescriptionGrid());
    EXPECT_EQ(file(2, 8) + grid.TextMatrix(1, 7), "theirsmine again");
    msgBox.foresee("Write those of this window over them?", MsgAnswer::Yes);
    EXPECT_TRUE(logic.saveDescriptionGrid());
    EXPECT_EQ(file(2, 8), "mine again");
    EXPECT_TRUE(logic.saveDescriptionGrid());  // settled
}

TEST_F(SharedDatabase, SettingsFollowTheirItemIntoATableWithOtherRows) {
    grid.setTextMatrix(26, 7, "1");    // 020, below six rows of 019
    grid.setTextMatrix(20, 7, "row");  // the first of these
    std::erase_if(database.records, [](const auto& record) { return record[0] != "1" && record[1].empty(); });
    msgBox.foresee("The file has no row any more for 019+1. Save the others and lose these?", MsgAnswer::No);
    EXPECT_FALSE(logic.saveDescriptionGrid());
    EXPECT_EQ(file(27, 8), "");
    grid.setTextMatrix(20, 7, "");
    EXPECT_TRUE(logic.saveDescriptionGrid());
    EXPECT_EQ(file(27, 8), "1");
    EXPECT_EQ(file(21 + 7, 8), "");
    EXPECT_EQ(grid.TextMatrix(20, 0), "020");
    EXPECT_EQ(grid.TextMatrix(20, 7), "1");
    EXPECT_EQ(grid.TextMatrix(149, 0), "149");
    EXPECT_EQ(grid.TextMatrix(188, 0), "");  // nothing is left of the longer table
    EXPECT_EQ(logic.numbers().size(), 150U);
}

TEST_F(SharedDatabase, AFileThatIsGoneKeepsTheGridForTheNextSave) {
    grid.setTextMatrix(1, 7, "mine");
    database.fails = RuntimeError{errors::FileNotFound, "File not found"};
    msgBox.foresee("File not found");
    EXPECT_FALSE(logic.saveDescriptionGrid());
    database.fails.reset();
    EXPECT_TRUE(logic.saveDescriptionGrid());
    EXPECT_EQ(file(2, 8), "mine");
}

TEST(DescriptionMerge, ImportKeepsTheSettingsOfTheItemsAndSaysWhatItTook) {
    const auto record = [](int id, const std::string& number, const std::string& name, const std::string& setting) {
        return std::vector<std::string>{std::to_string(id), number, "", name, "", "", "", "", setting, "", "", "", ""};
    };
    const DatabaseTable present{"",
                                {},
                                {record(1, "Menu", "Name", "Settings 1"), record(2, "001", "AGC", "0300"),
                                 record(3, "", "", "more"), record(4, "002", "", "+05"), record(5, "", "", "")}};
    const DatabaseTable sheet{"",
                              {},
                              {record(1, "Menu", "Name", "S1"), record(2, "001", "AGC fast", "300"),
                               record(3, "002", "x", "6"), record(4, "", "y", "7"), record(5, "", "z", "8")}};
    const auto kept = importOver(present, sheet, false);
    const auto column = [](const DatabaseTable& table, std::size_t field) {
        std::string text;
        for (const auto& row : table.records) text += row[field] + "|";
        return text;
    };
    EXPECT_EQ(column(kept.table, 8), "Settings 1|0300|+05|||");
    EXPECT_EQ(column(kept.table, 3), "Name|AGC fast|x|y|z|");
    EXPECT_EQ(kept.changedCells, 4);
    EXPECT_EQ(kept.newRows, 1);
    EXPECT_EQ(kept.goneRows, 1);
    EXPECT_EQ(kept.goneSettings, std::vector<std::string>{"001+1"});
    EXPECT_EQ(column(importOver(present, sheet, true).table, 8), "S1|0300|6|7|8|");
    EXPECT_EQ(column(importOver({}, sheet, false).table, 8), "S1|300|6|7|8|");
}

}  // namespace
}  // namespace korvex
