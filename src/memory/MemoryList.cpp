#include "memory/MemoryList.h"

#include <array>
#include <utility>

#include "base/CodePage.h"
#include "base/NumberText.h"

namespace korvex {

namespace {

constexpr int yellow = 65535;
constexpr int firstColumn = MemoryList::column(MemoryField::Channel);
constexpr int lastColumn = MemoryList::column(MemoryField::Remark);

struct Column {
    const char* header;
    int width;  // twips
};
constexpr std::array<Column, lastColumn + 1> columns = {{{"Mem", 500},
                                                         {"Cha", 500},
                                                         {"Freq", 1100},
                                                         {"Clar", 500},
                                                         {"Clar", 600},
                                                         {"RX", 500},
                                                         {"TX", 500},
                                                         {"Mode", 500},
                                                         {"0", 500},
                                                         {"CTCS", 500},
                                                         {"Tone", 500},
                                                         {" Shift", 500},
                                                         {"Remarks", 3000}}};

constexpr std::array<const char*, lastColumn + 1> sampleRow = {"",  "",  "0", "+",  "0000", "0",   "0",
                                                               "1", "0", "0", "01", "0",    "Test"};

/// The fields that the radio takes as they are.
MemoryRecord comparable(MemoryRecord record) {
    record[MemoryField::FixedDigit] = record[MemoryField::Remark] = "";
    return record;
}

}  // namespace

MemoryList::MemoryList() : grid(rows + 1, static_cast<int>(columns.size())), m_radio(rows + 1) {
    for (int col = 0; col <= lastColumn; ++col) {
        const auto index = static_cast<std::size_t>(col);
        grid.setColWidth(col, columns[index].width);
        grid.setTextMatrix(1, col, sampleRow[index]);
    }
    setListHeaders();
    grid.setCurrent(1, firstColumn);
    noteAllSafe();
}

void MemoryList::setListHeaders() {
    for (int col = 0; col <= lastColumn; ++col) {
        grid.setTextMatrix(0, col, columns[static_cast<std::size_t>(col)].header);
    }
    for (int row = 1; row <= rows; ++row) grid.setTextMatrix(row, 0, std::to_string(row));
}

void MemoryList::setCell(int row, MemoryField field, std::string text) {
    if (isChannelRow(row)) grid.setTextMatrix(row, column(field), std::move(text));
}

MemoryRecord MemoryList::channelFields(int row) const {
    MemoryRecord record;
    for (const auto& place : memoryLayout) record[place.field] = wireFromUtf8(cell(row, place.field)).value_or("");
    return record;
}

MemoryRow MemoryList::row(int row) const {
    MemoryRow content;
    for (int col = firstColumn; col <= lastColumn; ++col) {
        content.cells.at(static_cast<std::size_t>(col - firstColumn)) = grid.TextMatrix(row, col);
    }
    content.marked = grid.CellBackColor(row, firstColumn).has_value();
    return content;
}

void MemoryList::setRow(int row, const MemoryRow& content) {
    if (!isChannelRow(row)) return;
    for (int col = firstColumn; col <= lastColumn; ++col) {
        grid.setTextMatrix(row, col, content.cells.at(static_cast<std::size_t>(col - firstColumn)));
        grid.setCellBackColor(row, col, content.marked ? std::optional(yellow) : std::nullopt);
    }
}

void MemoryList::noteSaved() {
    noteAllSafe();
    noteChange();
    rowsChanged.emit();
}

void MemoryList::noteAllSafe() {
    m_safe.assign(rows + 1, {});
    for (int row = 1; row <= rows; ++row) noteSafe(row, true);
}

void MemoryList::noteSafe(int row, bool withRemark) {
    if (!isChannelRow(row)) return;
    constexpr auto remark = static_cast<std::size_t>(MemoryField::Remark);
    MemoryRow::Cells& safe = m_safe.at(static_cast<std::size_t>(row));
    const std::string remarkBefore = safe[remark];
    safe = this->row(row).cells;
    if (!withRemark) safe[remark] = remarkBefore;
}

bool MemoryList::isChanged(int row) const {
    return isChannelRow(row) && this->row(row).cells != m_safe.at(static_cast<std::size_t>(row));
}

void MemoryList::noteChange() {
    bool differs = false;
    for (int row = 1; row <= rows && !differs; ++row) differs = isChanged(row);
    modified = differs;
}

void MemoryList::noteInRadio(int row, const MemoryRecord& record) {
    if (isChannelRow(row)) m_radio.at(static_cast<std::size_t>(row)) = comparable(record);
}

void MemoryList::noteInRadio(const std::map<int, std::optional<MemoryRecord>>& records) {
    for (const auto& [row, record] : records) {
        if (record) noteInRadio(row, *record);
        if (!record && isChannelRow(row)) m_radio.at(static_cast<std::size_t>(row)).reset();
    }
    rowsChanged.emit();
}

void MemoryList::forgetRadio() {
    m_radio.assign(rows + 1, std::nullopt);
    rowsChanged.emit();
}

bool MemoryList::radioHas(int row) const {
    return isChannelRow(row) && m_radio.at(static_cast<std::size_t>(row)) == comparable(channelFields(row));
}

void MemoryList::fillRow(int row, const MemoryRecord& record) {
    for (std::size_t i = 0; i < memoryFieldCount; ++i) {
        const auto field = static_cast<MemoryField>(i);
        setCell(row, field, utf8FromWire(record[field]));
    }
}

void MemoryList::place(int row, const MemoryRecord& record) {
    const Step step(*this, "copying of channel " + channelText(row) + " into the list");
    fillRow(row, record);
}

void MemoryList::setRemark(int row, std::string utf8) {
    const Step step(*this, "change of the remark");
    setCell(row, MemoryField::Remark, std::move(utf8));
}

void MemoryList::placeAnswer(int row, const MemoryRecord& record) {
    const Step step(*this, "reading of channel " + channelText(row));
    setCell(row, MemoryField::Channel, channelText(row));
    for (const auto& place : memoryLayout) {
        if (place.field != MemoryField::Channel) setCell(row, place.field, utf8FromWire(record[place.field]));
    }
    noteInRadio(row, channelFields(row));
    noteSafe(row, false);
}

bool MemoryList::isTheChannelOf(int row, const MemoryRecord& record) const {
    MemoryRecord now = channelFields(row);
    now[MemoryField::Remark] = record[MemoryField::Remark];
    return now == record;
}

void MemoryList::placeReading(int row, const MemoryRecord& record) {
    noteInRadio(row, record);
    if (isTheChannelOf(row, record)) return noteSafe(row, false);
    fillRow(row, record);
    noteSafe(row, true);
}

void MemoryList::fillListFromMemoryTable(const MemoryTable& table, const std::set<int>& kept) {
    const Step step(*this, "reading of the memories");
    for (int slot = 1; slot <= lastMemoryChannel; ++slot) {
        const auto record = parseMemoryString(table[slot]);
        const int row = record ? memoryListRow((*record)[MemoryField::Channel]) : 0;
        if (row == 0) continue;
        if (kept.contains(row)) {
            noteInRadio(row, *record);
        } else {
            placeReading(row, *record);
        }
    }
}

void MemoryList::noteReading() {
    m_beforeReading.assign(1, {});
    for (int row = 1; row <= rows; ++row) m_beforeReading.push_back(this->row(row).cells);
}

std::set<int> MemoryList::rowsChangedMeanwhile(const MemoryTable& table) const {
    std::set<int> changed;
    for (int slot = 1; slot <= lastMemoryChannel; ++slot) {
        const auto record = parseMemoryString(table[slot]);
        const int row = record ? memoryListRow((*record)[MemoryField::Channel]) : 0;
        if (row > 0 && this->row(row).cells != m_beforeReading.at(static_cast<std::size_t>(row)) &&
            !isTheChannelOf(row, *record))
            changed.insert(row);
    }
    return changed;
}

void MemoryList::replaceAll(const std::map<int, MemoryRecord>& records) {
    const Step step(*this, "loading of a file");
    grid.Clear();
    setListHeaders();
    for (const auto& [row, record] : records) fillRow(row, record);
    noteAllSafe();
}

void MemoryList::renumberFilledRows() {
    for (int row = 1; row <= rows; ++row) {
        if (filled(row)) setCell(row, MemoryField::Channel, channelText(row));
    }
}

void MemoryList::clearRow(int row) {
    const Step step(*this, "deletion of the content");
    MemoryRow empty;
    empty.marked = true;
    setRow(row, empty);
}

void MemoryList::insertRow(int row) {
    if (!isChannelRow(row)) return;
    const Step step(*this, "insertion of a row");
    for (int to = rows; to > row; --to) setRow(to, this->row(to - 1));
    setRow(row, {});
    renumberFilledRows();
}

void MemoryList::deleteRow(int row) {
    if (!isChannelRow(row)) return;
    const Step step(*this, "removal of a row");
    for (int to = row; to < rows; ++to) setRow(to, this->row(to + 1));
    setRow(rows, {});
    renumberFilledRows();
}

MemoryList::Step::Step(MemoryList& list, std::string what) : m_list(list), m_what(std::move(what)) {
    if (m_list.m_steps++ > 0) return;
    m_list.m_before = m_list.allRows();
    m_list.grid.setRedraw(false);
}

MemoryList::Step::~Step() {
    if (--m_list.m_steps == 0) m_list.endStep(m_what);
}

std::vector<MemoryRow> MemoryList::allRows() const {
    std::vector<MemoryRow> all(1);
    for (int row = 1; row <= rows; ++row) all.push_back(this->row(row));
    return all;
}

void MemoryList::endStep(const std::string& what) {
    ListHistory::Step step{what, {}};
    for (int row = 1; row <= rows; ++row) {
        MemoryRow& before = m_before.at(static_cast<std::size_t>(row));
        MemoryRow now = this->row(row);
        if (now != before) step.changes.push_back({row, std::move(before), std::move(now)});
    }
    if (!step.changes.empty()) m_history.note(std::move(step));
    noteChange();
    grid.setRedraw(true);
    rowsChanged.emit();
}

void MemoryList::apply(const std::vector<ListHistory::Change>& changes, bool before) {
    grid.setRedraw(false);
    for (const auto& change : changes) setRow(change.row, before ? change.before : change.after);
    noteChange();
    grid.setRedraw(true);
    rowsChanged.emit();
}

std::optional<std::string> MemoryList::undo() {
    const auto step = m_history.undo();
    if (!step) return std::nullopt;
    apply(step->changes, true);
    return step->what;
}

std::optional<std::string> MemoryList::redo() {
    const auto step = m_history.redo();
    if (!step) return std::nullopt;
    apply(step->changes, false);
    return step->what;
}

int memoryListRow(std::string_view channel) {
    const auto number = parseWhole(channel);
    return number && *number >= 1 && *number <= MemoryList::rows ? *number : 0;
}

}  // namespace korvex
