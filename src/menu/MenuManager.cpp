#include "menu/MenuManager.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "base/CodePage.h"
#include "menu/MenuFile.h"
#include "menu/MenuRestore.h"
#include "menu/MenuRows.h"
#include "menu/SettingsColumns.h"
#include "platform/ProgramFolder.h"

namespace korvex {

namespace {

constexpr int columnsAfterSettings = 3;
constexpr std::array<int, 13> columnWidths = {700, 900, 1800, 3000, 2600, 3000, 1300, 1300, 1300, 1300, 1300, 1200, 10};
constexpr int keyR = 82;
constexpr int keyS = 83;

const std::string restoreTitle = "Restore Menu Settings to FT-2000";
const std::string selectFirst = "Aborted. Select first a Column in Settings  1 to 4 !";
const std::string selectFirstToWrite = "Aborted. Select first a Column: Settings1 or Settings 2!";

std::string someRows(const std::vector<std::string>& rows) {
    constexpr std::size_t most = 10;
    if (rows.size() <= most) return rowNames(rows);
    return rowNames({rows.begin(), rows.begin() + most}) + " and " + std::to_string(rows.size() - most) + " more";
}

}  // namespace

MenuManager::MenuManager(MenuManagerNeeds needs)
    : m_needs(std::move(needs)),
      m_link(m_needs.link),
      m_database({m_needs.database, m_needs.clock, m_needs.desk.msgBox, m_link.progress(), grid,
                  m_needs.desk.programFolder + "/" + std::string(descriptionDatabaseName),
                  m_needs.shippedDescriptions}),
      m_sheet(grid, m_database.numbers()),
      m_history(grid, m_database.numbers()),
      m_columns(grid, m_history, m_needs.files),
      m_descriptions(m_needs.database, m_database, m_needs.desk, m_needs.timeOfDay, m_needs.runChildProgram),
      m_reader(m_link),
      m_writer(m_link),
      m_exchange(m_link, m_needs.desk.msgBox, grid) {
    m_database.prepareGrid = [this] { prepareGrid(); };
    m_connections += grid.cellChanged.connect([this](int row, int col) { onCellChanged(row, col); });
    m_connections +=
        m_reader.told.connect([this](const std::string& item, const std::string& value) { placeAnswer(item, value); });
    m_connections += m_reader.ended.connect([this](const Outcome& outcome) { onReadEnded(outcome); });
    m_connections += m_writer.ended.connect([this](const Outcome& outcome) {
        forgetRadio();
        showLabel(" " + inWords(outcome, menuItemsWritten), !outcome.isDone() || !outcome.refused.empty());
    });
    m_connections +=
        m_exchange.newValue.connect([this] { showLabel(" Save settings in file before living the program", true); });
    m_connections += m_exchange.ended.connect([this](const Outcome& outcome) { onExchanged(outcome); });
}

int MenuManager::tableWidth() {
    return std::accumulate(columnWidths.begin(), columnWidths.end(), 0);
}

void MenuManager::Form_Load() {
    m_database.Form_Load();
}

void MenuManager::prepareGrid() {
    grid.setRedraw(false);
    grid.setCols(static_cast<int>(columnWidths.size()));
    for (std::size_t column = 0; column < columnWidths.size(); ++column) {
        grid.setColWidth(static_cast<int>(column), columnWidths[column]);
    }
    grid.setRedraw(true);
    m_history.pass();
    changed();
    m_filled = true;
    if (const auto run = std::exchange(m_whenFilled, nullptr)) run();
}

void MenuManager::whenFilled(std::function<void()> run) {
    if (m_filled) return run();
    m_whenFilled = std::move(run);
}

bool MenuManager::columnChecked(const std::string& complaint) {
    const bool inSight = grid.Col() <= grid.Cols() - columnsAfterSettings;
    if (isSettingsColumn(grid, SelectedSettingsColumn()) && inSight) return true;
    m_needs.desk.msgBox.show({complaint, "", MsgIcon::Information});
    return false;
}

void MenuManager::showLabel(const std::string& text, bool isYellow) {
    notice = text;
    noticeWarns = isYellow;
}

void MenuManager::tellDone(const std::string& what) {
    changed();
    if (!what.empty()) showLabel(" " + what, false);
}

// --- what has changed

/// Many cells: what the person sees of them follows, and so do the rows in sight.
void MenuManager::changed() {
    m_sheet.refresh();
    modified = m_database.isModified();
}

void MenuManager::onCellChanged(int row, int col) {
    if (!isSettingsColumn(grid, col)) return;
    const std::string item = grid.TextMatrix(itemRowOf(m_database.numbers(), row), 0);
    m_history.noteCell(row, col, row == 0 ? "New Title" : "Change of " + item);
    if (!m_history.holds && !noticeWarns) showLabel(" ", false);  // it told of what was before
    if (!m_history.holds) m_sheet.compare();
    modified = m_database.isModified();
}

void MenuManager::mnu_undo_Click() {
    if (!toldBusy("Undo")) stepped("Undone: ", m_history.undo());
}

void MenuManager::mnu_redo_Click() {
    if (!toldBusy("Redo")) stepped("Done again: ", m_history.redo());
}

void MenuManager::stepped(const std::string& what, const std::optional<SettingsHistory::Done>& done) {
    if (!done) return;
    tellDone(what + done->caption);
    if (!grid.isRowHidden(done->row)) grid.setCurrent(done->row, done->col);
}

// --- grid and database

bool MenuManager::toldBusy(const std::string& title) {
    const bool isBusy = m_reader.running() || m_writer.running() || m_exchange.running();  // it has the grid
    if (isBusy) m_needs.desk.msgBox.exclamation("Please wait until the present transfer has ended.", title);
    return isBusy;
}

void MenuManager::mnu_loadFlexgrid_Click() {
    if (toldBusy("Loading Datafile") || !mayLoseEdits()) return;
    m_database.loadDescriptionGrid();
    m_history.note("Load Settings from File");
    changed();
}

bool MenuManager::mayLoseEdits() {
    const auto rows = m_database.unsavedRows();
    return rows.empty() || m_needs.desk.msgBox.confirm("The Menu Manager has settings that are not in its file: " +
                                                       someRows(rows) + ".\r\nGo on without them?");
}

void MenuManager::Flexgrid_toGrid_Click() {
    if (!toldBusy("Saving Datafile")) saveGrid();
}

void MenuManager::saveGrid() {
    if (m_database.saveDescriptionGrid()) showLabel(" ", false);
    m_history.pass();  // what others had saved meanwhile is not ours to undo
    changed();
}

void MenuManager::mnu_exportDescriptions_Click() {
    const std::string told = m_descriptions.exportTable();
    tellDone(told.empty() || !modified ? told : told + "; what is not saved is not in it");
}

void MenuManager::mnu_importDescriptions_Click() {
    if (toldBusy("Import Descriptions")) return;
    m_history.holds = true;
    m_descriptions.importTable();
    m_history.holds = false;
    m_history.pass();
    changed();
}

// --- whole columns

void MenuManager::copyColumnTo(int column) {
    if (columnChecked(selectFirst) && !toldBusy("Copy Column")) {
        tellDone(m_columns.copy(SelectedSettingsColumn(), column));
    }
}

void MenuManager::mnu_loadColumn_Click() {
    if (columnChecked(selectFirst) && !toldBusy("Load Column")) tellDone(m_columns.load(SelectedSettingsColumn()));
}

void MenuManager::selectEmptyColumn() {
    const auto isEmpty = [this](int column) {
        for (int row = 1; row < grid.Rows(); ++row) {
            if (!grid.TextMatrix(row, column).empty()) return false;
        }
        return true;
    };
    if (SelectedSettingsColumn() > 0) return;
    const auto columns = settingsColumns(grid);
    const auto empty = std::find_if(columns.begin(), columns.end(), isEmpty);
    if (empty != columns.end()) m_sheet.select(*empty);
}

void MenuManager::mnu_saveColumn_Click() {
    if (columnChecked(selectFirst) && !toldBusy("Save Column")) tellDone(m_columns.save(SelectedSettingsColumn()));
}

// --- the radio -> the selected column

void MenuManager::mnu_readSettings_Click() {
    if (!columnChecked(selectFirst) || !m_link.freeLine()) return;
    readRadio(SelectedSettingsColumn(), "Read Menu Settings of FT-2000");
}

void MenuManager::mnu_compareRadio_Click() {
    if (m_link.freeLine()) readRadio(0, "Compare with FT-2000");
}

void MenuManager::readRadio(int column, const std::string& caption) {
    m_link.panels().Error = "";
    m_readColumn = column;
    m_rowPointer = 0;
    m_placed.clear();
    m_history.holds = true;  // all answers are one step
    m_reader.read({ActiveOperation::MenuReadToManager, caption, 1});
}

void MenuManager::placeAnswer(const std::string& item, const std::string& value) {
    m_sheet.tellRadio(item, utf8FromWire(value));
    if (!m_needs.visible || m_readColumn == 0) return;
    // An answer for an item that is not in the grid leaves the pointer: the items behind it are still to be found. An
    // owner's table may have its rows in another order.
    int row = rowOfItem(grid, item, m_rowPointer);
    if (row < 0) row = rowOfItem(grid, item);
    if (row < 0) return;
    m_rowPointer = row;
    m_placed.insert(item);
    grid.setTextMatrix(row, m_readColumn, utf8FromWire(value));
}

void MenuManager::onReadEnded(const Outcome& outcome) {
    m_history.holds = false;
    m_history.note(m_readColumn == 0 ? "Changes" : "Reading into " + columnName(grid, m_readColumn));
    changed();
    if (!outcome.isDone()) return showLabel(" " + inWords(outcome, {"item", "items"}), true);
    if (m_readColumn == 0) return tellCompared();
    m_link.closePort();
    readComplete();
}

void MenuManager::tellCompared() {
    const int column = SelectedSettingsColumn();
    if (column == 0) return showLabel(" The radio has been read; select a column to compare with it", false);
    const int unlike = m_sheet.unlikeRadio();
    showLabel(" " + std::to_string(unlike) + (unlike == 1 ? " setting of " : " settings of ") +
                  columnName(grid, column) +
                  (unlike == 1 ? " is not that of the radio" : " are not those of the radio"),
              false);
}

void MenuManager::readComplete() {
    std::vector<std::string> missing;
    for (int item = 1; item <= menuItemCount; ++item) {
        if (const auto number = zeroPadded(item, 3); !m_placed.contains(number)) missing.push_back(number);
    }
    const auto answer = m_needs.desk.msgBox.show(
        {"Do you like to save the Menu Settings now", "Save Tabel", MsgIcon::None, MsgButtons::YesNoCareful});
    if (answer == MsgAnswer::Yes) saveGrid();
    if (missing.empty()) return;
    // The other cells of the column hold what they held before.
    showLabel(" Only " + std::to_string(menuItemCount - missing.size()) + " of " + std::to_string(menuItemCount) +
                  " items were read, not " + someOf(missing),
              true);
}

void MenuManager::showOnlyUnlikeRadio(bool only) {
    if (only && !columnChecked(selectFirst)) {
        m_sheet.onlyUnlikeRadio.changed.emit(false);  // whoever has switched it on shows that it is not
        return;
    }
    m_sheet.onlyUnlikeRadio = only;
    if (!only || m_sheet.knowsRadio()) return;
    if (m_link.PortOpen()) return mnu_compareRadio_Click();
    showLabel(" The radio has not been read: open the port, then \"Compare with FT-2000\"", true);
}

void MenuManager::forgetRadio() {
    m_sheet.forgetRadio();
    m_sheet.refresh();
}

// --- the selected column -> the radio

void MenuManager::mnuRestore_Click() {
    if (!columnChecked(selectFirstToWrite) || !m_link.freeLine()) return;
    const auto lines = commandsOf(grid, SelectedSettingsColumn());
    // A value that cannot be sent stops it all before anything has been sent.
    if (!lines) return m_needs.desk.msgBox.exclamation(lines.error().text + "; nothing was sent.", restoreTitle);
    if (m_link.PortOpen() && !mayWriteHidden()) return;
    if (m_link.PortOpen() && !mayWriteNumbers(m_needs.desk.msgBox, *lines, m_link.known(), restoreTitle)) return;
    m_link.panels().Error = "";
    MenuLines apart = apartFromCatLines(*lines, menuNumbersOf(m_link.known()));
    if (m_link.PortOpen() && mayWriteCatSettings(m_needs.desk.msgBox, apart.cat, restoreTitle)) {
        apart.items.insert(apart.items.end(), apart.cat.begin(), apart.cat.end());
    }
    m_writer.writeAndClose(std::move(apart.items));
}

/// Whoever sees three rows may think that three are written.
bool MenuManager::mayWriteHidden() {
    const int hidden = m_sheet.itemsHidden();
    if (hidden == 0) return true;
    return m_needs.desk.msgBox.confirm(
        std::to_string(hidden) + " items are out of sight. The whole column \"" +
            columnName(grid, SelectedSettingsColumn()) +
            "\" is written, also what is not shown.\n(\"S\" sends the item of the current row alone.)\n\nWrite it?",
        restoreTitle);
}

// --- gestures

bool MenuManager::FlexGrid1_KeyDown(int key) {
    if (!isSettingsColumn(grid, grid.Col())) {
        m_exchange.commandSent = "";
        return false;
    }
    if (key != keyS && key != keyR) return false;
    const int row = itemRowOf(m_database.numbers(), grid.Row());
    if (key == keyS) {
        m_exchange.send(row, grid.Col());
    } else {
        m_exchange.read(row, grid.Col());
    }
    return true;
}

void MenuManager::onExchanged(const Outcome& outcome) {
    if (outcome == Outcome::Kind::NoAnswer) showLabel(" No answer for menu item " + m_exchange.itemNumber(), true);
    if (!outcome.isDone()) return;
    m_sheet.tellRadio(m_exchange.itemNumber(), m_exchange.valueAnswered);
    if (!noticeWarns) showLabel(" ", false);
    m_sheet.compare();
}

bool MenuManager::isCurrentCellEditable() const {
    return isSettingsColumn(grid, grid.Col()) &&
           grid.CellBackColor(grid.Row(), grid.Col()) == MenuSheet::selectedColour;
}

void MenuManager::clearCell() {
    if (isCurrentCellEditable()) grid.setTextMatrix(grid.Row(), grid.Col(), "");
}

void MenuManager::mnu_editTitle_Click() {
    if (!columnChecked(selectFirst)) return;
    grid.setCurrent(0, SelectedSettingsColumn());
    showTitleDialog.emit(grid.TextMatrix(0, SelectedSettingsColumn()));
}

void MenuManager::Command1_Click(const std::string& title) {
    grid.setTextMatrix(0, SelectedSettingsColumn(), title);
}

void MenuManager::mnu_exit_Click() {
    storePlace.emit();
    hide.emit();
    buttonBackToNormal.emit();
}

}  // namespace korvex
