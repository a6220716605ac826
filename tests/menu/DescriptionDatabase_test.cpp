#include "menu/DescriptionDatabase.h"

#include <gtest/gtest.h>

#include "fakes/FakeDatabase.h"
#include "fakes/FakeDialogs.h"
#include "fakes/VirtualClock.h"
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

TEST(DescriptionTable, ComesBackAsItWasWrittenAndRefusesWhatIsNone) {
    DatabaseTable table;
    table.records = {{"2", "a\tb", "line\r\nbreak", "back\\slash", "ü", "", "", "", "", "", "", "", "", "", ""}};
    const auto again = parseDescription(descriptionText(table));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->records, table.records);
    const auto edited = parseDescription("\xEF\xBB\xBF# remark\r\n\r\n7\t001\tAGC\r\n");
    ASSERT_TRUE(edited);
    EXPECT_EQ(edited->records[0].size(), 15U);
    EXPECT_EQ(edited->records[0][2], "AGC");
    EXPECT_EQ(edited->fields.size(), 15U);

    std::string many;
    for (int i = 1; i <= 1001; ++i) many += std::to_string(i) + "\n";
    for (const std::string& bad :
         {std::string(), std::string("# only remarks\n"), std::string("001\tx\n1\ty\n"), std::string("x\ty\n"),
          std::string("0\tx\n"), std::string("1\t\\q\n"), std::string("1\tx\\\n"), std::string("1\t\xFF\n"),
          std::string("1\tx\0y\n", 6), "1" + std::string(15, '\t') + "\n", many}) {
        EXPECT_FALSE(parseDescription(bad)) << bad.substr(0, 40);
    }
}

}  // namespace
}  // namespace korvex
