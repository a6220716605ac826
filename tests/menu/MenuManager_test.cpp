#include "menu/MenuManager.h"

#include <gtest/gtest.h>
#include <map>

#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"
#include "menu/DescriptionTable.h"
#include "menu/MenuRows.h"

namespace korvex {
namespace {

constexpr int yellow = 65535;

/// The rows that go with another one in the table as it is shipped.
const std::map<int, int> continuations = {
    {20, 19},   {21, 19},   {22, 19},   {23, 19},   {24, 19},   {25, 19},   {41, 40},   {42, 40},
    {46, 45},   {47, 45},   {48, 45},   {55, 54},   {66, 65},   {67, 65},   {69, 68},   {70, 68},
    {71, 68},   {74, 73},   {75, 73},   {76, 73},   {79, 78},   {80, 78},   {82, 81},   {83, 81},
    {88, 87},   {101, 100}, {102, 100}, {112, 111}, {113, 111}, {115, 114}, {122, 121}, {123, 121},
    {143, 144}, {157, 156}, {159, 158}, {167, 166}, {171, 170}, {175, 174}, {179, 178}, {189, 188}};

/// The table as it is shipped, without descriptions; every cell of the first settings column holds "old".
fakes::FakeDatabase::Records menuRecords() {
    const auto shipped = parseDescription(fakes::fileContent(SOURCE_DIR "/data/menu-description.tsv"));
    fakes::FakeDatabase::Records records;
    for (const auto& row : shipped->records) {
        const bool titles = records.empty();
        auto& record = records.emplace_back(15);
        record[0] = row[0];
        record[1] = row[1];
        record[8] = titles ? "Settings 1" : "old";
    }
    return records;
}

/// The test is the radio: item n has the value n.
class MenuManagerTest : public testing::Test {
protected:
    void SetUp() override {
        bench.database.records = menuRecords();
        line.answer = [this](std::string_view wire) {
            if (!wire.starts_with("EX") || wire.size() != 6 || wire == deafTo) return std::string();
            return std::string(wire.substr(0, 5)) + std::string(wire.substr(2, 3)) + ";";
        };
        line.answerDelay = 30;
        bench.openPort();
        bench.program.windows.menuManager.show();
        manager.Form_Load();
        bench.clock.advance(50);
        line.forgetWrites();
    }
    std::string cell(int row, int col) const { return grid.TextMatrix(row, col); }
    void select(int column) { manager.FlexGrid1_RightClick(column); }

    fakes::ProgramBench<fakes::ScriptedPorts> bench;
    MenuManager& manager = bench.program.menuManager;
    MSFlexGrid& grid = manager.grid;
    fakes::ScriptedLine& line = bench.ports.plug(1);
    std::string deafTo;
};

TEST_F(MenuManagerTest, TheGridIsFilledAtTheFirstTickInOneRedraw) {
    EXPECT_EQ(bench.database.file, bench.folder.file("FT2000_Menu.mdb"));
    EXPECT_EQ(bench.database.password, "p7RzK2vWq9LmT4xNs8Jd");
    EXPECT_EQ(grid.Rows(), 192);
    EXPECT_EQ(grid.Cols(), 13);
    EXPECT_EQ(grid.ColWidth(12), 10);
    EXPECT_EQ(cell(0, 7), "Settings 1");
    EXPECT_EQ(cell(26, 0), "020");
    EXPECT_EQ(cell(144, 0), "111");
    EXPECT_EQ(cell(188, 0), "149");
    grid.setTextMatrix(5, 8, "x");
    int redraws = 0;
    const auto counted = grid.allChanged.connect([&redraws] { ++redraws; });
    const auto single = grid.cellChanged.connect([&redraws](int, int) { ++redraws; });
    bench.msgBox.foresee("not in its file", MsgAnswer::Yes);
    manager.mnu_loadFlexgrid_Click();
    EXPECT_EQ(redraws, 2);  // the texts, and the colours that follow from them
    EXPECT_EQ(cell(5, 8), "");
    EXPECT_FALSE(bench.program.progress.visible);
    EXPECT_EQ(bench.program.progress.maximum, 2600);
}

TEST_F(MenuManagerTest, SettingsThatAreNotInTheFileAreAskedAboutBeforeTheyGo) {
    for (const auto& lose : {std::function([this] { manager.mnu_loadFlexgrid_Click(); }),
                             std::function([this] { EXPECT_FALSE(bench.program.end()); })}) {
        grid.setTextMatrix(0, 11, "Contest");
        bench.msgBox.foresee("settings that are not in its file", MsgAnswer::No);
        lose();
        EXPECT_EQ(bench.msgBox.shown.back().buttons, MsgButtons::YesNoCareful);
        EXPECT_EQ(cell(0, 11), "Contest");
    }
    manager.Flexgrid_toGrid_Click();
    EXPECT_TRUE(bench.program.end());
}

TEST_F(MenuManagerTest, TheEndOfTheSessionAsksOnceOrNeverAndIsNotHeldUp) {
    auto& program = bench.program;
    program.memory.list.clearRow(1);
    grid.setTextMatrix(5, 8, "x");
    bench.msgBox.foresee("The memory list has changes", MsgAnswer::No);
    EXPECT_FALSE(program.mayEndSession(true));
    bench.msgBox.foresee("The memory list has changes", MsgAnswer::No);  // the owner's own end asks as ever
    EXPECT_FALSE(program.end());

    bench.msgBox.foresee("The memory list has changes", MsgAnswer::Yes);
    bench.msgBox.foresee("Wollen Sie Windows trotzdem beenden?", MsgAnswer::Yes);
    EXPECT_TRUE(program.mayEndSession(true));
    bench.clock.advance(60'000);  // another program has stopped it
    bench.msgBox.foresee("The memory list has changes", MsgAnswer::No);
    EXPECT_FALSE(program.end());

    program.menuSave.mnu_Store_Click();
    bench.clock.advance(1'000);
    EXPECT_TRUE(program.mayEndSession(false));
    EXPECT_TRUE(program.end());
    EXPECT_FALSE(program.link.PortOpen());
}

TEST_F(MenuManagerTest, ReadsTheRadioIntoTheSecondColumnAndLeavesTheFirst) {
    select(8);
    manager.mnu_readSettings_Click();
    EXPECT_EQ(bench.program.progress.caption.get(), "Read Menu Settings of FT-2000");
    line.feed("FA14195000;");  // late, and no item 141
    bench.clock.advance(5'000);
    select(7);  // looking at another column does not send the rest of the answers there
    bench.msgBox.foresee("Do you like to save the Menu Settings now", MsgAnswer::Yes);
    bench.clock.advance(10'000);
    EXPECT_EQ(bench.msgBox.shown.back().title, "Save Tabel");
    EXPECT_FALSE(bench.program.link.PortOpen());
    EXPECT_EQ(bench.program.link.activeOperation(), ActiveOperation::Idle);
    for (int row = 0; row < 190; ++row) {
        const auto& record = bench.database.records[static_cast<std::size_t>(row)];
        EXPECT_EQ(record[9], row == 0 ? "" : record[1]) << row;
        EXPECT_EQ(record[8], row == 0 ? "Settings 1" : "old") << row;
        EXPECT_EQ(cell(row, 8), record[9]);
    }
    EXPECT_FALSE(manager.noticeWarns);
}

TEST_F(MenuManagerTest, AMissingOrForeignAnswerIsNotPlacedAndTheOwnerIsTold) {
    deafTo = "EX042;";
    grid.setTextMatrix(30, 0, "777");  // the owner's table has no item 024
    select(8);
    manager.mnu_readSettings_Click();
    bench.msgBox.foresee("Do you like to save", MsgAnswer::No);
    bench.clock.advance(18'000);
    EXPECT_EQ(cell(30, 8), "");
    EXPECT_EQ(cell(53, 8), "");     // 042
    EXPECT_EQ(cell(54, 8), "043");  // what comes behind is found
    EXPECT_EQ(manager.notice.get(), " Only 147 of 149 items were read, not 024, 042");
    EXPECT_TRUE(manager.noticeWarns);
    EXPECT_EQ(bench.database.records[53][9], "");

    // A window that is hidden takes no answers.
    bench.openPort();
    bench.program.windows.menuManager.hide();
    manager.mnu_readSettings_Click();
    bench.msgBox.foresee("Do you like to save", MsgAnswer::No);
    grid.setTextMatrix(1, 8, "kept");
    bench.clock.advance(18'000);
    EXPECT_EQ(cell(1, 8), "kept");
}

TEST_F(MenuManagerTest, WritesAColumnALineEvery100MsAndClosesThePort) {
    grid.setTextMatrix(1, 9, "0300");
    grid.setTextMatrix(188, 9, "-05");
    grid.setTextMatrix(144, 0, "");  // no row for 111
    select(9);
    manager.mnuRestore_Click();
    EXPECT_TRUE(bench.program.progress.visible);
    EXPECT_EQ(bench.program.progress.value, 1);
    line.forgetWrites();
    const auto firstTick = bench.clock.now();
    bench.clock.advanceUntil([this] { return line.writes.size() == 2; }, 1'000);
    EXPECT_LE(bench.clock.now() - firstTick, 200);
    EXPECT_EQ(line.writes[0].text, "EX0010300;\r\n");
    EXPECT_EQ(line.writes[1].text, "EX002;\r\n");  // an empty cell
    EXPECT_EQ(line.writes[1].at - line.writes[0].at, 100);
    EXPECT_EQ(bench.error(), "Writing Menu 002");
    select(7);
    bench.clock.advanceUntil([this] { return line.writes.size() == 149; }, 20'000);
    EXPECT_EQ(line.writes[110].text, "\r\n");
    EXPECT_EQ(line.writes[148].text, "EX149-05;\r\n");
    line.unsent = 5;  // still leaving: the port stays open
    bench.clock.advance(1'000);
    EXPECT_TRUE(bench.program.link.PortOpen());
    line.unsent = 0;
    bench.clock.advance(100);
    EXPECT_FALSE(bench.program.link.PortOpen());
    EXPECT_EQ(bench.program.link.lineWritten.get(), "Terminated");
    EXPECT_FALSE(bench.program.progress.visible);
    EXPECT_EQ(bench.program.link.activeOperation(), ActiveOperation::Idle);
    EXPECT_EQ(line.writes.size(), 149U);
}

TEST_F(MenuManagerTest, TheRadiosCatSettingsAreAskedAboutAndComeLast) {
    select(7);
    const std::string asked = "(menu items 029, 030, 028)";
    for (int row = 1; row < grid.Rows(); ++row) {
        if (!cell(row, 0).empty()) grid.setTextMatrix(row, 7, "2");
    }
    bench.msgBox.foresee(asked, MsgAnswer::No);
    manager.mnuRestore_Click();
    bench.clock.advance(20'000);
    EXPECT_EQ(line.writes.size(), 146U);
    EXPECT_EQ(line.story().find("EX028"), std::string::npos);

    bench.openPort();
    line.forgetWrites();
    bench.msgBox.foresee(asked, MsgAnswer::Yes);
    manager.mnuRestore_Click();
    bench.clock.advance(20'000);
    ASSERT_EQ(line.writes.size(), 149U);
    EXPECT_EQ(line.writes[145].text, "EX1492;\r\n");
    EXPECT_EQ(line.writes[148].text, "EX0282;\r\n");
}

TEST_F(MenuManagerTest, WithoutASelectedColumnNothingStarts) {
    const std::string complaint = "Aborted. Select first a Column in Settings  1 to 4 !";
    bench.msgBox.foresee(complaint);
    manager.mnu_readSettings_Click();
    bench.msgBox.foresee("Aborted. Select first a Column: Settings1 or Settings 2!");
    manager.mnuRestore_Click();
    EXPECT_EQ(bench.msgBox.shown.back().icon, MsgIcon::Information);
    bench.msgBox.foresee(complaint);
    manager.mnu_editTitle_Click();
    select(6);  // no settings column: selects nothing
    select(11);
    EXPECT_EQ(manager.SelectedSettingsColumn(), 0);
    select(10);
    grid.setCurrent(3, 11);
    bench.msgBox.foresee(complaint);
    manager.mnu_readSettings_Click();
    grid.setCurrent(3, 10);
    bench.program.link.closePort();
    manager.mnu_readSettings_Click();
    manager.mnuRestore_Click();
    bench.clock.advance(1'000);
    EXPECT_EQ(line.story(), "");
}

TEST_F(MenuManagerTest, OneColumnIsYellowAndEditableBelowItsTitle) {
    select(8);
    select(10);
    grid.setCurrent(1, 10);
    EXPECT_TRUE(manager.isCurrentCellEditable());
    EXPECT_EQ(grid.CellBackColor(191, 10), yellow);
    EXPECT_EQ(grid.CellBackColor(0, 10), std::nullopt);
    EXPECT_EQ(grid.CellBackColor(1, 8), std::nullopt);
    grid.setCurrent(1, 8);
    EXPECT_FALSE(manager.isCurrentCellEditable());
    std::string asked;
    const auto dialog = manager.showTitleDialog.connect([&asked](const std::string& title) { asked = title; });
    select(7);
    manager.mnu_editTitle_Click();
    EXPECT_EQ(asked, "Settings 1");
    manager.Command1_Click("Contest");
    manager.Flexgrid_toGrid_Click();
    EXPECT_EQ(bench.database.records[0][8], "Contest");
}

TEST_F(MenuManagerTest, KeySSendsAnItemAndReadsItBackIntoItsOwnRow) {
    grid.setTextMatrix(19, 7, "019");
    grid.setCurrent(22, 7);  // a continuation row
    bench.msgBox.foresee("  no changes  ");
    EXPECT_TRUE(manager.FlexGrid1_KeyDown('S'));
    EXPECT_EQ(manager.exchange().commandSent.get(), "EX019;");
    grid.setCurrent(2, 8);  // where the user has gone meanwhile
    bench.clock.advance(279);
    EXPECT_TRUE(bench.msgBox.shown.empty());
    bench.clock.advance(1'000);
    EXPECT_EQ(line.story(), "0 EX019019;|250 EX019;");
    EXPECT_EQ(bench.msgBox.shown.back().title, "Equal");
    EXPECT_EQ(bench.msgBox.shown.back().buttons, MsgButtons::CancelTryAgainContinue);
    EXPECT_EQ(bench.program.link.activeOperation(), ActiveOperation::Idle);
    EXPECT_FALSE(manager.noticeWarns);

    // What the radio did not take is replaced by what it has, also the second time.
    for (const int row : {143, 144}) {  // the row before its item's
        grid.setTextMatrix(144, 7, "5");
        grid.setCurrent(row, 7);
        bench.msgBox.foresee("  New Value  111\r\n  Save settings in file before Exit the program ");
        manager.FlexGrid1_KeyDown('S');
        bench.clock.advance(1'000);
        EXPECT_EQ(cell(144, 7), "111");
        EXPECT_EQ(cell(143, 7), "old");
    }
    EXPECT_EQ(manager.notice.get(), " Save settings in file before living the program");
    EXPECT_TRUE(manager.noticeWarns);
    manager.Flexgrid_toGrid_Click();
    EXPECT_EQ(manager.notice.get(), " ");
    EXPECT_FALSE(manager.noticeWarns);
}

TEST_F(MenuManagerTest, ARowIsTheItemWhoseNumberStandsInIt) {
    const auto numbers = [this] { return manager.database().numbers(); };
    for (int row = 0; row < grid.Rows(); ++row) {
        const auto with = continuations.find(row);
        EXPECT_EQ(itemRowOf(numbers(), row), with == continuations.end() ? row : with->second) << row;
    }
    // Without its blank rows, in another order, and as a spreadsheet leaves the numbers.
    std::erase_if(bench.database.records, [](const auto& record) { return record[1].empty(); });
    std::swap(bench.database.records[22][1], bench.database.records[30][1]);
    for (auto& record : bench.database.records) record[1].erase(0, record[1].find_first_not_of('0'));
    manager.mnu_loadFlexgrid_Click();
    for (int row = 1; row < 150; ++row) {
        grid.setTextMatrix(row, 7, cell(row, 0));
        grid.setCurrent(row, 7);
        bench.msgBox.foresee("  no changes  ");
        line.forgetWrites();
        manager.FlexGrid1_KeyDown('S');
        bench.clock.advance(300);
        EXPECT_EQ(line.story(), "0 EX" + cell(row, 0) + cell(row, 0) + ";|250 EX" + cell(row, 0) + ";");
    }
    EXPECT_EQ(cell(30, 0), "022");
    grid.setCurrent(160, 7);  // what the longer table had here is gone
    manager.FlexGrid1_KeyDown('S');
    EXPECT_EQ(cell(160, 0), "");
    select(8);
    manager.mnu_readSettings_Click();
    bench.msgBox.foresee("Do you like to save", MsgAnswer::Yes);
    bench.clock.advance(18'000);
    for (int row = 1; row < 150; ++row) EXPECT_EQ(cell(row, 8), cell(row, 0)) << row;
    EXPECT_EQ(bench.database.records[30][9], "022");
}

TEST_F(MenuManagerTest, KeyRReadsAnItemPastRefusalsEchoesAndStrangers) {
    line.answer = nullptr;
    line.feed("EX0429;");  // typed in the terminal earlier
    grid.setCurrent(53, 7);
    EXPECT_TRUE(manager.FlexGrid1_KeyDown('R'));
    EXPECT_EQ(line.story(), "0 EX042;");
    EXPECT_EQ(manager.exchange().valueCompared.get(), "old");
    line.feed("?;EX042;EX0411;");
    EXPECT_EQ(cell(53, 7), "old");
    bench.msgBox.foresee("  New Value  050");
    line.feed("EX042050;");
    EXPECT_EQ(cell(53, 7), "050");
    line.feed("EX042060;");
    EXPECT_EQ(cell(53, 7), "050");
}

TEST_F(MenuManagerTest, KeysActOnItemsOfSettingsColumnsOnly) {
    grid.setCurrent(1, 3);
    manager.exchange().commandSent = "EX001;";
    EXPECT_FALSE(manager.FlexGrid1_KeyDown('S'));
    EXPECT_EQ(manager.exchange().commandSent.get(), "");
    for (const int row : {0, 190}) {  // titles, and the rows behind the last item
        grid.setCurrent(row, 7);
        manager.FlexGrid1_KeyDown('S');
    }
    grid.setCurrent(1, 7);
    EXPECT_FALSE(manager.FlexGrid1_KeyDown('T'));
    bench.program.link.closePort();
    bench.msgBox.foresee("RS-232 Port not open!");
    manager.FlexGrid1_KeyDown('R');
    EXPECT_EQ(bench.msgBox.shown.back().title, "Comm Port");
    EXPECT_EQ(line.story(), "");
}

TEST_F(MenuManagerTest, AValueThatWouldBecomeAnotherCommandIsNeverSent) {
    for (const std::string bad : {"1;TX1", "1;", "1\r\nTX1;", "Ω", "ä", "ON", "+", "1 2"}) {
        grid.setTextMatrix(53, 7, bad);
        grid.setCurrent(53, 7);
        bench.msgBox.foresee("042");
        manager.FlexGrid1_KeyDown('S');
        select(7);
        bench.msgBox.foresee("nothing was sent");
        manager.mnuRestore_Click();
        bench.clock.advance(1'000);
    }
    EXPECT_EQ(line.story(), "");
}

TEST_F(MenuManagerTest, ATransferIsLeftAloneAndEndsWithThePort) {
    select(8);
    manager.mnuRestore_Click();
    bench.clock.advance(1'000);
    bench.msgBox.foresee("Writing the menu settings, item 10 of 149. Stop it?", MsgAnswer::No);
    manager.mnu_readSettings_Click();
    bench.msgBox.foresee("Please wait until the present transfer has ended.");
    manager.mnu_loadFlexgrid_Click();
    EXPECT_EQ(bench.program.link.activeOperation(), ActiveOperation::MenuWrite);
    bench.program.link.closePort();
    line.forgetWrites();
    bench.openPort();
    line.forgetWrites();
    bench.clock.advance(5'000);
    EXPECT_EQ(line.story(), "");
}

}  // namespace
}  // namespace korvex
