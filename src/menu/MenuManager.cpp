#include "menu/MenuManager.h"

#include <array>
#include <utility>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "gridedit/clsFlexGridEdit.h"
#include "menu/MenuFile.h"
#include "menu/MenuRestore.h"
#include "menu/MenuRows.h"
#include "platform/ProgramFolder.h"

namespace korvex {

namespace {

constexpr int firstSettingsColumn = 7;
constexpr int columnsAfterSettings = 3;  // the last settings column is the number of columns less this
constexpr int yellow = clsFlexGridEdit::editableColour;
constexpr std::array<int, 13> columnWidths = {700, 900, 1800, 3000, 2600, 3000, 1300, 1300, 1300, 1300, 1300, 1200, 10};
constexpr int keyR = 82;
constexpr int keyS = 83;

const std::string restoreTitle = "Restore Menu Settings to FT-2000";
const std::string selectFirst = "Aborted. Select first a Column in Settings  1 to 4 !";
const std::string selectFirstToWrite = "Aborted. Select first a Column: Settings1 or Settings 2!";

}  // namespace

MenuManager::MenuManager(MenuManagerNeeds needs)
    : m_needs(std::move(needs)),
      m_link(m_needs.link),
      m_database({m_needs.database, m_needs.clock, m_needs.msgBox, m_link.progress(), grid,
                  m_needs.programFolder + "/" + std::string(descriptionDatabaseName), m_needs.shippedDescriptions}),
      m_reader(m_link),
      m_writer(m_link),
      m_exchange(m_link, m_needs.msgBox, grid) {
    m_database.prepareGrid = [this] { prepareGrid(); };
    m_connections +=
        m_reader.told.connect([this](const std::string& item, const std::string& value) { placeAnswer(item, value); });
    m_connections += m_reader.ended.connect([this](const Outcome& outcome) { onReadEnded(outcome); });
    m_connections += m_writer.ended.connect([this](const Outcome& outcome) {
        showLabel(" " + inWords(outcome, menuItemsWritten), !outcome.isDone() || !outcome.refused.empty());
    });
    m_connections +=
        m_exchange.newValue.connect([this] { showLabel(" Save settings in file before living the program", true); });
    m_connections += m_exchange.ended.connect([this](const Outcome& outcome) {
        if (outcome == Outcome::Kind::NoAnswer) showLabel(" No answer for menu item " + m_exchange.itemNumber(), true);
    });
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
}

bool MenuManager::isSettingsColumn(int column) const {
    return column >= firstSettingsColumn && column <= grid.Cols() - columnsAfterSettings;
}

bool MenuManager::columnChecked(const std::string& complaint) {
    const bool inSight = grid.Col() <= grid.Cols() - columnsAfterSettings;
    if (m_selectedColumn >= firstSettingsColumn && inSight) return true;
    m_needs.msgBox.show({complaint, "", MsgIcon::Information});
    return false;
}

void MenuManager::showLabel(const std::string& text, bool isYellow) {
    notice = text;
    noticeWarns = isYellow;
}

// --- grid and database

bool MenuManager::toldBusy(const std::string& title) {
    const bool isBusy = m_reader.running() || m_writer.running() || m_exchange.running();  // it has the grid
    if (isBusy) m_needs.msgBox.exclamation("Please wait until the present transfer has ended.", title);
    return isBusy;
}

void MenuManager::mnu_loadFlexgrid_Click() {
    if (!toldBusy("Loading Datafile") && mayLoseEdits()) m_database.loadDescriptionGrid();
}

bool MenuManager::mayLoseEdits() {
    return !m_database.isModified() ||
           m_needs.msgBox.confirm("The Menu Manager has settings that are not in its file. Go on without them?");
}

void MenuManager::Flexgrid_toGrid_Click() {
    if (!toldBusy("Saving Datafile")) saveGrid();
}

void MenuManager::saveGrid() {
    if (m_database.saveDescriptionGrid()) showLabel(" ", false);
}

// --- the radio -> the selected column

void MenuManager::mnu_readSettings_Click() {
    if (!columnChecked(selectFirst) || !m_link.freeLine()) return;
    m_link.panels().Error = "";
    m_readColumn = m_selectedColumn;
    m_rowPointer = 0;
    m_placedAnswers = 0;
    m_reader.read({ActiveOperation::MenuReadToManager, "Read Menu Settings of FT-2000", 1});
}

int MenuManager::rowOfItem(const std::string& item, int from) const {
    for (int row = from; row < grid.Rows(); ++row) {
        if (grid.TextMatrix(row, 0) == item) return row;
    }
    return -1;
}

void MenuManager::placeAnswer(const std::string& item, const std::string& value) {
    if (!m_needs.visible) return;
    // An answer for an item that is not in the grid leaves the pointer: the items behind it are still to be found. An
    // owner's table may have its rows in another order.
    int row = rowOfItem(item, m_rowPointer);
    if (row < 0) row = rowOfItem(item, 1);
    if (row < 0) return;
    m_rowPointer = row;
    ++m_placedAnswers;
    grid.setTextMatrix(row, m_readColumn, utf8FromWire(value));
}

void MenuManager::onReadEnded(const Outcome& outcome) {
    if (!outcome.isDone()) return showLabel(" " + inWords(outcome, {"item", "items"}), true);
    m_link.closePort();
    readComplete();
}

void MenuManager::readComplete() {
    const int placed = m_placedAnswers;
    const auto answer = m_needs.msgBox.show(
        {"Do you like to save the Menu Settings now", "Save Tabel", MsgIcon::None, MsgButtons::YesNoCareful});
    if (answer == MsgAnswer::Yes) saveGrid();
    if (placed == menuItemCount) return;
    // The other cells of the column hold what they held before.
    showLabel(" Only " + std::to_string(placed) + " of " + std::to_string(menuItemCount) + " items were read", true);
}

// --- the selected column -> the radio

void MenuManager::mnuRestore_Click() {
    if (!columnChecked(selectFirstToWrite) || !m_link.freeLine()) return;
    const auto lines = linesOfColumn();
    if (!lines) return;
    m_link.panels().Error = "";
    MenuLines apart = apartFromCatLines(*lines);
    if (m_link.PortOpen() && mayWriteCatSettings(m_needs.msgBox, apart.cat, restoreTitle)) {
        apart.items.insert(apart.items.end(), apart.cat.begin(), apart.cat.end());
    }
    m_writer.writeAndClose(std::move(apart.items));
}

/// A value that cannot be sent stops it all before anything has been sent.
std::optional<std::vector<std::string>> MenuManager::linesOfColumn() {
    std::vector<std::string> lines;
    for (int item = 1; item <= menuItemCount; ++item) {
        const std::string number = zeroPadded(item, 3);
        const int row = rowOfItem(number, 0);
        const std::string& value = grid.TextMatrix(row, m_selectedColumn);
        const auto command = menuWriteCommand(number, value);
        if (!command) {
            m_needs.msgBox.exclamation("Menu item " + number + ": \"" + value + "\" is no value; nothing was sent.",
                                       restoreTitle);
            return std::nullopt;
        }
        // Without a row there is nothing to ask or set: the line stays empty.
        lines.push_back(row < 0 ? std::string() : *command);
    }
    return lines;
}

// --- gestures

void MenuManager::FlexGrid1_RightClick(int column) {
    if (!isSettingsColumn(column)) return;
    m_selectedColumn = column;
    grid.setRedraw(false);
    for (int col = firstSettingsColumn; isSettingsColumn(col); ++col) {
        for (int row = 0; row < grid.Rows(); ++row) {
            const bool marked = col == column && row > 0;
            grid.setCellBackColor(row, col, marked ? std::optional(yellow) : std::nullopt);
        }
    }
    grid.setRedraw(true);
}

bool MenuManager::FlexGrid1_KeyDown(int key) {
    if (!isSettingsColumn(grid.Col())) {
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

bool MenuManager::isCurrentCellEditable() const {
    return isSettingsColumn(grid.Col()) && grid.CellBackColor(grid.Row(), grid.Col()) == yellow;
}

void MenuManager::mnu_editTitle_Click() {
    if (!columnChecked(selectFirst)) return;
    grid.setCurrent(0, m_selectedColumn);
    showTitleDialog.emit(grid.TextMatrix(0, m_selectedColumn));
}

void MenuManager::Command1_Click(const std::string& title) {
    grid.setTextMatrix(0, m_selectedColumn, title);
}

void MenuManager::mnu_exit_Click() {
    storePlace.emit();
    hide.emit();
    buttonBackToNormal.emit();
}

}  // namespace korvex
