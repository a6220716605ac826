#include "menu/MenuSheet.h"

#include <gtest/gtest.h>

#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"
#include "menu/DescriptionTable.h"
#include "menu/MenuFile.h"
#include "menu/MenuManager.h"
#include "menu/MenuRows.h"
#include "menu/SettingsColumns.h"

namespace korvex {
namespace {

/// The shipped table; the test is the radio, where each item has its own number as the value.
class MenuSheetTest : public testing::Test {
protected:
    void SetUp() override {
        const auto shipped = parseDescription(fakes::fileContent(SOURCE_DIR "/data/menu-description.tsv"));
        bench.database.records = shipped->records;
        line.answer = [](std::string_view wire) {
            if (!wire.starts_with("EX") || wire.size() != 6) return std::string();
            return std::string(wire.substr(0, 5)) + std::string(wire.substr(2, 3)) + ";";
        };
        line.answerDelay = 30;
        bench.openPort();
        bench.program.windows.menuManager.show();
        manager.Form_Load();
        bench.clock.advance(50);
    }
    int row(const std::string& item) const { return rowOfItem(grid, item); }
    std::string cell(const std::string& item, int column) const { return grid.TextMatrix(row(item), column); }
    void set(const std::string& item, int column, const std::string& value) {
        grid.setTextMatrix(row(item), column, value);
    }
    void fill(int column, const std::string& value) {
        for (int item = 1; item <= menuItemCount; ++item) set(menuReadCommand(item).substr(2, 3), column, value);
    }
    std::string meaning(const std::string& item, int column) const { return grid.Mark(row(item), column).meaning; }
    int rowsInSight() const {
        int count = 0;
        for (int at = 1; at < grid.Rows(); ++at) count += grid.isRowHidden(at) ? 0 : 1;
        return count;
    }

    fakes::ProgramBench<fakes::ScriptedPorts> bench;
    MenuManager& manager = bench.program.menuManager;
    MSFlexGrid& grid = manager.grid;
    fakes::ScriptedLine& line = bench.ports.plug(1);
};

TEST_F(MenuSheetTest, ColumnsAreComparedWithTheSelectedOneAndEmptyCellsSayNothing) {
    fill(7, "1");
    fill(8, "1");
    set("042", 8, "01");  // what is sent differs
    set("043", 8, "");
    set("045", 9, "5");
    EXPECT_EQ(manager.sheet().counts.get(), "Against Settings 1: Settings 2 differs in 1, Settings 3 differs in 1");
    EXPECT_EQ(meaning("042", 8), "Differs from Settings 1: 1");
    EXPECT_EQ(grid.CellBackColor(row("042"), 8), MenuSheet::differentColour);
    EXPECT_EQ(meaning("043", 8), "");

    manager.FlexGrid1_RightClick(9);
    EXPECT_EQ(meaning("045", 7), "Differs from Settings 3: 5");
    EXPECT_EQ(meaning("042", 8), "Differs from Settings 1: 1");  // of which the selected one says nothing
    EXPECT_EQ(grid.CellBackColor(row("045"), 9), MenuSheet::selectedColour);
    set("045", 9, "1");
    EXPECT_EQ(meaning("045", 7), "");
    EXPECT_EQ(manager.sheet().counts.get(), "Against Settings 3: Settings 1 differs in none, Settings 2 differs in 1");
}

TEST_F(MenuSheetTest, FiltersHideRowsWithTheirItemAndNothingElse) {
    fill(7, "1");
    fill(8, "1");
    set("019", 8, "2");
    set("042", 8, "2");
    grid.setTextMatrix(22, 8, "a remark");  // in a row that goes with 019
    manager.sheet().onlyDiffering = true;
    EXPECT_FALSE(grid.isRowHidden(19) || grid.isRowHidden(25));
    EXPECT_TRUE(grid.isRowHidden(26));
    EXPECT_EQ(rowsInSight(), 7 + 1);
    EXPECT_NE(manager.sheet().counts.get().find("2 of 149 items in sight"), std::string::npos);
    set("042", 8, "1");  // a row does not go from under the hands
    EXPECT_EQ(rowsInSight(), 8);

    manager.sheet().onlyNamed = true;
    EXPECT_EQ(rowsInSight(), 0);
    EXPECT_EQ(grid.Row(), 0);
    manager.FlexGrid1_KeyDown('S');  // there is no item to be sent
    EXPECT_FALSE(bench.program.link.operation());
    manager.sheet().onlyDiffering = false;
    EXPECT_FALSE(grid.isRowHidden(row("042")));

    manager.Flexgrid_toGrid_Click();
    EXPECT_EQ(bench.database.records[1][9], "1");  // 001, which is out of sight
    manager.FlexGrid1_RightClick(8);
    line.forgetWrites();
    bench.msgBox.foresee("The whole column \"Settings 2\" is written", MsgAnswer::No);
    manager.mnuRestore_Click();
    bench.clock.advance(1'000);
    EXPECT_EQ(line.written(), "");
    bench.msgBox.foresee("The whole column", MsgAnswer::Yes);
    bench.msgBox.foresee("CAT settings", MsgAnswer::No);
    manager.mnuRestore_Click();
    bench.clock.advance(20'000);
    EXPECT_NE(line.written().find("EX0011;"), std::string::npos);
}

TEST_F(MenuSheetTest, TheRadioIsReadOnceToBeComparedAndChangesNoColumn) {
    bench.msgBox.foresee("Select first a Column");
    manager.showOnlyUnlikeRadio(true);
    EXPECT_FALSE(manager.sheet().onlyUnlikeRadio);
    fill(7, "042");
    manager.FlexGrid1_RightClick(7);
    manager.showOnlyUnlikeRadio(true);
    bench.clock.advance(18'000);
    EXPECT_TRUE(bench.program.link.PortOpen());
    EXPECT_EQ(cell("001", 7), "042");
    EXPECT_EQ(cell("001", 8), "");
    EXPECT_TRUE(grid.isRowHidden(row("042")));
    EXPECT_FALSE(grid.isRowHidden(row("043")));
    EXPECT_EQ(meaning("043", 7), "The radio, as last read, has 043");
    EXPECT_EQ(manager.notice.get(), " 148 settings of Settings 1 are not those of the radio");

    grid.setCurrent(row("043"), 7);
    bench.msgBox.foresee("New Value  043");
    manager.FlexGrid1_KeyDown('R');
    bench.clock.advance(1'000);
    EXPECT_EQ(meaning("043", 7), "");
    manager.forgetRadio();
    EXPECT_EQ(meaning("044", 7), "");
    bench.program.link.closePort();
    manager.showOnlyUnlikeRadio(false);
    manager.showOnlyUnlikeRadio(true);
    EXPECT_NE(manager.notice.get().find("open the port"), std::string::npos);
}

TEST_F(MenuSheetTest, EditsCopiesLoadsAndReadingsAreUndoneStepByStep) {
    auto& history = manager.history();
    EXPECT_EQ(history.undoable.get(), "");
    fill(7, "1");
    manager.Flexgrid_toGrid_Click();
    EXPECT_FALSE(manager.modified);
    manager.FlexGrid1_RightClick(7);
    manager.copyColumnTo(8);
    EXPECT_TRUE(manager.modified);
    set("042", 8, "2");
    manager.FlexGrid1_RightClick(9);
    manager.mnu_readSettings_Click();
    bench.msgBox.foresee("Please wait");
    manager.mnu_undo_Click();
    bench.msgBox.foresee("Do you like to save", MsgAnswer::No);
    bench.clock.advance(18'000);
    EXPECT_EQ(history.undoable.get(), "Reading into Settings 3");
    bench.msgBox.foresee("001, 002, 003, 004, 005, 006, 007, 008, 009, 010 and 139 more", MsgAnswer::Yes);
    manager.mnu_loadFlexgrid_Click();
    EXPECT_EQ(cell("042", 9) + cell("042", 8), "");

    manager.mnu_undo_Click();
    EXPECT_EQ(cell("149", 9) + cell("042", 8), "1492");
    manager.mnu_undo_Click();
    EXPECT_EQ(cell("149", 9), "");
    EXPECT_EQ(history.undoable.get(), "Change of 042");
    manager.mnu_undo_Click();
    EXPECT_EQ(cell("042", 8), "1");
    EXPECT_EQ(grid.Row(), row("042"));
    manager.mnu_undo_Click();
    EXPECT_EQ(cell("042", 8), "");
    EXPECT_FALSE(manager.modified);
    EXPECT_EQ(history.redoable.get(), "Copy of Settings 1 to Settings 2");
    manager.mnu_redo_Click();
    manager.mnu_redo_Click();
    EXPECT_EQ(cell("042", 8) + cell("041", 8), "21");
    set("041", 8, "3");  // another way forth
    EXPECT_EQ(history.redoable.get(), "");
    manager.mnu_redo_Click();
    EXPECT_EQ(cell("149", 9), "");
}

TEST_F(MenuSheetTest, AColumnGoesIntoAMenuFileAndComesOutOfOne) {
    fill(7, "1");
    set("029", 7, "");
    set("031", 7, "+5x");
    manager.FlexGrid1_RightClick(7);
    bench.msgBox.foresee("Menu item 031: \"+5x\" is no value; nothing was saved");
    manager.mnu_saveColumn_Click();
    set("031", 7, "+05");
    const std::string file = bench.folder.file("column.mnu");
    bench.fileDialog.choose(file);
    manager.mnu_saveColumn_Click();
    EXPECT_NE(bench.fileDialog.shown.back().start.find("-incomplete.mnu"), std::string::npos);
    const auto lines = menuFileLines(fakes::fileContent(file));
    ASSERT_EQ(lines->size(), 149U);
    EXPECT_EQ((*lines)[0] + (*lines)[28] + (*lines)[30], "EX0011;EX031+05;");

    manager.FlexGrid1_RightClick(8);
    fill(8, "7");
    bench.fileDialog.choose(file);
    manager.mnu_loadColumn_Click();
    EXPECT_EQ(cell("031", 8) + cell("029", 8) + cell("149", 8), "+051");
    EXPECT_EQ(manager.notice.get(), " Loaded column.mnu: 148 of 149 items into Settings 2; empty now: 029");
    manager.mnu_undo_Click();
    EXPECT_EQ(cell("031", 8) + cell("029", 8), "77");
    fakes::writeFile(file, "EX0011;\r\nTX1;\r\n");
    bench.fileDialog.choose(file);
    bench.msgBox.foresee("would key the transmitter");
    manager.mnu_loadColumn_Click();
    EXPECT_EQ(cell("001", 8), "7");
}

TEST_F(MenuSheetTest, ImportedDescriptionsLeaveWhatIsNotSaved) {
    const std::string database = bench.folder.file("FT2000_Menu.mdb");
    fakes::writeFile(database, "");
    const std::string file = bench.folder.file("table.tsv");
    set("001", 7, "0300");
    bench.fileDialog.choose(file);
    manager.mnu_exportDescriptions_Click();
    EXPECT_EQ(manager.notice.get(), " Descriptions exported to table.tsv; what is not saved is not in it");
    std::string text = fakes::fileContent(file);
    text.replace(text.find("Anti-VOX gain"), 13, "Anti-VOX");
    fakes::writeFile(file, text);
    bench.fileDialog.choose(file);
    bench.msgBox.foresee("190 rows taken, 1 cell changed");
    manager.mnu_importDescriptions_Click();
    EXPECT_EQ(cell("042", 2), "Anti-VOX");
    EXPECT_EQ(cell("001", 7), "0300");
    EXPECT_TRUE(manager.modified);
    EXPECT_NE(bench.database.copiedTo.find("before-import"), std::string::npos);
    fakes::writeFile(file, "1\tMenu\n");
    bench.fileDialog.choose(file);
    bench.msgBox.foresee("The descriptions are as they were");
    manager.mnu_importDescriptions_Click();
}

/// A stand-in for mdb-export; tests/e2e has the real one.
TEST_F(MenuSheetTest, ADesktopDatabaseBringsItsSettingsWhereThereAreNoneAndElseAsks) {
    fakes::writeFile(bench.folder.file("FT2000_Menu.mdb"), "");
    const std::string old = bench.folder.file("old.mdb");
    fakes::writeFile(old, std::string("\0\1\0\0Standard Jet DB\0", 20));
    bench.fileDialog.choose(old);
    Result<ChildProgramEnd> printed = RuntimeError{errors::FileNotFound, ""};
    bench.ranChildProgram = [&](const ChildProgramOrder& order) {
        EXPECT_EQ(order.program, "mdb-export");
        EXPECT_EQ(order.arguments.at(4), old);
        return printed;
    };
    bench.msgBox.foresee("Please install the package mdbtools.\n\nThe descriptions are as they were.");
    manager.mnu_importDescriptions_Click();

    std::string text = descriptionText({"", {}, bench.database.records});
    const auto at = text.find("\n3\t002\t");
    ASSERT_NE(at, std::string::npos);
    text.replace(at, text.find('\n', at + 1) - at, "\n3\t002\tG\tName\t\t\t\t\t0250\t\t\t\t\t\t");
    printed = ChildProgramEnd{0, text, ""};
    const auto importAfter = [&](const char* question, MsgAnswer answer, const char* told) {
        bench.fileDialog.choose(old);
        if (question != nullptr) bench.msgBox.foresee(question, answer);
        bench.msgBox.foresee(told);
        manager.mnu_importDescriptions_Click();
    };
    importAfter(nullptr, MsgAnswer::Ok, "the settings columns were taken, too");
    EXPECT_EQ(cell("002", 2), "Name");
    EXPECT_EQ(cell("002", 7), "0250");
    text.replace(text.find("0250"), 4, "0120");
    printed = ChildProgramEnd{0, text, ""};
    const char* question = "old.mdb has settings columns, too.";
    importAfter(question, MsgAnswer::No, "nothing in it is new");
    EXPECT_EQ(cell("002", 7), "0250");
    importAfter(question, MsgAnswer::Yes, "1 cell changed");
    EXPECT_EQ(cell("002", 7), "0120");
    printed = ChildProgramEnd{0, text, "offset 8192 is beyond EOF\n"};
    importAfter(nullptr, MsgAnswer::Ok, "cannot be read: offset 8192 is beyond EOF");
    printed = ChildProgramEnd{1, text, ""};
    importAfter(nullptr, MsgAnswer::Ok, "the database cannot be read.");
}

}  // namespace
}  // namespace korvex
