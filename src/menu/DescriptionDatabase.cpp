#include "menu/DescriptionDatabase.h"

#include <algorithm>
#include <utility>

#include "menu/DescriptionTable.h"
#include "menu/MenuRows.h"
#include "menu/ShippedDescriptions.h"

namespace korvex {

namespace {

constexpr int firstSavedField = 8;
constexpr int unsavedFieldsAtEnd = 3;  // the last saved field is the number of fields less this
constexpr std::string_view executableName = "korvex";

}  // namespace

DescriptionDatabase::DescriptionDatabase(Needs needs)
    : m_needs(std::move(needs)), m_ado(m_needs.msgBox), m_timer1(m_needs.clock.makeTimer()) {
    m_timer1->setInterval(50);
    m_tick = m_timer1->tick.connect([this] { Timer1_Timer(); });
}

void DescriptionDatabase::Timer1_Timer() {
    if (m_needs.progress.visible) return;  // a transfer shows its progress there; the database can wait
    // Stopped first: a report is a box, and ticks come while it is open.
    m_timer1->setEnabled(false);
    if (!m_needs.shippedFile.empty()) {
        takeShippedDescriptions(m_needs.database, m_needs.file, m_needs.shippedFile);
    }
    loadDescriptionGrid();
    if (prepareGrid) prepareGrid();
}

bool DescriptionDatabase::openDescriptionDatabase() {
    if (m_connection && m_connection->isOpen()) return true;
    return m_ado.openConnection(m_connection, m_needs.database, m_needs.file, std::string(description::password), true);
}

bool DescriptionDatabase::openDescriptionTable() {
    if (isOpen()) return true;
    if (!m_ado.openRecordset(m_recordset, *m_connection, std::string(description::query), true)) return false;
    return m_ado.moveFirstIfAny(*m_recordset, *m_connection, true);
}

bool DescriptionDatabase::openAnew() {
    m_recordset.reset();
    m_connection.reset();
    return openDescriptionDatabase() && openDescriptionTable();
}

void DescriptionDatabase::loadDescriptionGrid() {
    if (!openAnew()) return;
    beginCopy("Loading Datafile", 2600);
    copyToGrid();
    endCopy();
}

int DescriptionDatabase::shownRecords() const {
    return std::min(m_recordset->RecordCount(), description::recordCount);
}

void DescriptionDatabase::copyToGrid() {
    const auto rowsBefore = static_cast<int>(m_numbers.size());
    m_numbers = numbersInFile();
    for (int row = shownRecords(); row < rowsBefore; ++row) {  // of a longer table that was here before
        for (int col = 0; col < m_needs.grid.Cols(); ++col) m_needs.grid.setTextMatrix(row, col, "");
    }
    for (int k = 1; k <= shownRecords() && !m_recordset->setAbsolutePosition(k); ++k) {
        for (int field = 1; field < m_recordset->FieldCount(); ++field) {
            m_needs.grid.setTextMatrix(k - 1, field - 1, m_recordset->Field(field));
            m_needs.progress.value = m_needs.progress.value + 1;
        }
    }
    for (std::size_t row = 0; row < m_numbers.size(); ++row) {
        m_needs.grid.setTextMatrix(static_cast<int>(row), 0, m_numbers[row]);
    }
    m_loaded = rowsInGrid();
    if (m_recordset->RecordCount() > 0) static_cast<void>(m_recordset->setAbsolutePosition(1));
}

bool DescriptionDatabase::saveDescriptionGrid() {
    if (m_numbers.empty() && !isOpen()) {
        m_needs.msgBox.exclamation("The description database is not open; nothing was saved.", "Saving Datafile");
        return false;
    }
    if (!openAnew()) return false;
    const SettingsMerge merge = mergeSettings(m_loaded, rowsInGrid(), rowsInFile());
    if (!mayWrite(merge)) return false;
    beginCopy("Saving Datafile", 1000);
    const Failure failure = write(merge.rows);
    if (failure) {
        m_connection->RollbackTrans();
    } else {
        copyToGrid();
    }
    endCopy();
    if (failure) m_ado.reportDatabaseError(*m_connection, *failure, "Saving Datafile");
    return !failure;
}

bool DescriptionDatabase::mayWrite(const SettingsMerge& merge) {
    std::string question;
    if (!merge.clashes.empty()) {
        question = "Another program has saved other settings for " + rowNames(merge.clashes) +
                   " meanwhile. Write those of this window over them?";
    }
    if (!merge.gone.empty()) {
        question += (question.empty() ? "" : "\r\n") + std::string("The file has no row any more for ") +
                    rowNames(merge.gone) + ". Save the others and lose these?";
    }
    if (question.empty()) return true;
    return m_needs.msgBox.confirm(question, "Saving Datafile");
}

int DescriptionDatabase::savedColumns() const {
    // A column that the grid has not got must not empty its field.
    const int lastField = std::min(m_recordset->FieldCount() - unsavedFieldsAtEnd, m_needs.grid.Cols());
    return std::max(lastField - firstSavedField + 1, 0);
}

std::vector<std::string> DescriptionDatabase::numbersInFile() {
    std::vector<std::string> numbers;
    if (m_recordset->FieldCount() <= static_cast<int>(description::numberField)) return numbers;
    for (int k = 1; k <= shownRecords() && !m_recordset->setAbsolutePosition(k); ++k) {
        const std::string text = m_recordset->Field(static_cast<int>(description::numberField));
        numbers.push_back(menuNumber(text).value_or(text));
    }
    return numbers;
}

SettingsRows DescriptionDatabase::rowsInFile() {
    SettingsRows rows;
    const auto keys = rowKeys(numbersInFile());
    for (std::size_t row = 0; row < keys.size(); ++row) {
        static_cast<void>(m_recordset->setAbsolutePosition(static_cast<int>(row) + 1));
        auto& cells = rows[keys[row]];
        for (int i = 0; i < savedColumns(); ++i) cells.push_back(m_recordset->Field(firstSavedField + i));
    }
    return rows;
}

SettingsRows DescriptionDatabase::rowsInGrid() const {
    SettingsRows rows;
    const auto keys = rowKeys(m_numbers);
    for (std::size_t row = 0; row < keys.size(); ++row) {
        auto& cells = rows[keys[row]];
        for (int i = 0; i < savedColumns(); ++i) {
            cells.push_back(m_needs.grid.TextMatrix(static_cast<int>(row), firstSavedField - 1 + i));
        }
    }
    return rows;
}

std::vector<DescriptionDatabase::UnsavedCell> DescriptionDatabase::unsavedCells() const {
    std::vector<UnsavedCell> cells;
    const auto keys = rowKeys(m_numbers);
    for (std::size_t row = 0; row < keys.size(); ++row) {
        int column = firstSavedField - 1;
        for (const auto& before : m_loaded.at(keys[row])) {
            const std::string& text = m_needs.grid.TextMatrix(static_cast<int>(row), column);
            if (text != before) cells.push_back({keys[row], column, text});
            ++column;
        }
    }
    return cells;
}

std::vector<std::string> DescriptionDatabase::unsavedRows() const {
    std::vector<std::string> rows;
    for (const auto& cell : unsavedCells()) {
        if (rows.empty() || rows.back() != cell.key) rows.push_back(cell.key);
    }
    return rows;
}

std::vector<std::string> DescriptionDatabase::loadKeepingEdits() {
    const auto mine = unsavedCells();
    loadDescriptionGrid();
    const auto keys = rowKeys(m_numbers);
    std::vector<std::string> gone;
    for (const auto& cell : mine) {
        const auto row = std::find(keys.begin(), keys.end(), cell.key);
        if (row == keys.end()) {
            gone.push_back(cell.key);
        } else {
            m_needs.grid.setTextMatrix(static_cast<int>(row - keys.begin()), cell.column, cell.text);
        }
    }
    return gone;
}

Failure DescriptionDatabase::write(const SettingsRows& rows) {
    if (auto failure = m_connection->BeginTrans()) return failure;
    const auto keys = rowKeys(numbersInFile());
    for (std::size_t row = 0; row < keys.size(); ++row) {
        if (auto failure = m_recordset->setAbsolutePosition(static_cast<int>(row) + 1)) return failure;
        int field = firstSavedField;
        for (const auto& text : rows.at(keys[row])) {
            m_recordset->setField(field++, text);
            m_needs.progress.value = m_needs.progress.value + 1;
        }
    }
    if (auto failure = m_recordset->Update()) return failure;
    return m_connection->CommitTrans();
}

void DescriptionDatabase::beginCopy(const std::string& caption, int maximum) {
    m_needs.progress.caption = caption;
    m_needs.progress.maximum = maximum;
    m_needs.progress.value = 1;
    m_needs.progress.show();
    m_needs.grid.setRedraw(false);
}

void DescriptionDatabase::endCopy() {
    m_needs.progress.hide();
    m_needs.grid.setRedraw(true);
}

bool DescriptionDatabase::Form_QueryUnload(UnloadReason reason) {
    const bool open = m_connection && m_connection->isOpen();
    if (open && reason == UnloadReason::SessionEnd) {
        const auto answer =
            m_needs.msgBox.show({"Ihre zuletzt geänderten oder neu eingegebenen Daten\r\n"
                                 "sind möglicherweise noch nicht gespeichert !\n"
                                 "Wollen Sie Windows trotzdem beenden?",
                                 std::string(executableName), MsgIcon::Question, MsgButtons::YesNoCareful});
        return answer == MsgAnswer::Yes;
    }
    if (open && reason != UnloadReason::TaskManager) return false;
    m_recordset.reset();
    m_connection.reset();
    return true;
}

}  // namespace korvex
