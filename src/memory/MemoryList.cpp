#include "memory/MemoryList.h"

#include <array>
#include <utility>

#include "base/CodePage.h"
#include "base/NumberText.h"

namespace korvex {

namespace {

constexpr int yellow = 65535;
constexpr int bufferRow = 1;
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

/// Many cells change, the view is told once.
class OneRedraw {
public:
    explicit OneRedraw(MSFlexGrid& grid) : m_grid(grid), m_before(grid.Redraw()) { m_grid.setRedraw(false); }
    OneRedraw(const OneRedraw&) = delete;
    OneRedraw& operator=(const OneRedraw&) = delete;
    ~OneRedraw() { m_grid.setRedraw(m_before); }

private:
    MSFlexGrid& m_grid;
    bool m_before;
};

}  // namespace

MemoryList::MemoryList()
    : grid(rows + 1, static_cast<int>(columns.size())), copied(10, static_cast<int>(columns.size())) {
    for (int col = 0; col <= lastColumn; ++col) {
        const auto index = static_cast<std::size_t>(col);
        grid.setColWidth(col, columns[index].width);
        copied.setColWidth(col, columns[index].width);
        grid.setTextMatrix(1, col, sampleRow[index]);
    }
    setListHeaders();
    grid.setCurrent(1, firstColumn);
    noteSaved();
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

MemoryList::Row MemoryList::cellsOf(int row) const {
    Row cells;
    for (int col = firstColumn; col <= lastColumn; ++col) {
        cells.at(static_cast<std::size_t>(col - firstColumn)) = grid.TextMatrix(row, col);
    }
    return cells;
}

void MemoryList::noteSaved() {
    m_safe.assign(rows + 1, {});
    for (int row = 1; row <= rows; ++row) noteSafe(row, true);
    noteChange();
}

void MemoryList::noteSafe(int row, bool withRemark) {
    if (!isChannelRow(row)) return;
    constexpr auto remark = static_cast<std::size_t>(MemoryField::Remark);
    Row& safe = m_safe.at(static_cast<std::size_t>(row));
    const std::string remarkBefore = safe[remark];
    safe = cellsOf(row);
    if (!withRemark) safe[remark] = remarkBefore;
}

void MemoryList::noteChange() {
    bool differs = false;
    for (int row = 1; row <= rows && !differs; ++row)
        differs = cellsOf(row) != m_safe.at(static_cast<std::size_t>(row));
    modified = differs;
}

void MemoryList::fillRow(int row, const MemoryRecord& record) {
    for (std::size_t i = 0; i < memoryFieldCount; ++i) {
        const auto field = static_cast<MemoryField>(i);
        setCell(row, field, utf8FromWire(record[field]));
    }
}

void MemoryList::place(int row, const MemoryRecord& record) {
    const OneRedraw quiet(grid);
    fillRow(row, record);
    noteChange();
}

void MemoryList::setRemark(int row, std::string utf8) {
    setCell(row, MemoryField::Remark, std::move(utf8));
    noteChange();
}

void MemoryList::placeAnswer(int row, const MemoryRecord& record) {
    for (const auto& place : memoryLayout) {
        if (place.field != MemoryField::Channel) setCell(row, place.field, utf8FromWire(record[place.field]));
    }
    noteSafe(row, false);
    noteChange();
}

bool MemoryList::isTheChannelOf(int row, const MemoryRecord& record) const {
    MemoryRecord now = channelFields(row);
    now[MemoryField::Remark] = record[MemoryField::Remark];
    return now == record;
}

void MemoryList::placeReading(int row, const MemoryRecord& record) {
    if (isTheChannelOf(row, record)) return noteSafe(row, false);
    fillRow(row, record);
    noteSafe(row, true);
}

void MemoryList::fillListFromMemoryTable(const MemoryTable& table, const std::set<int>& kept) {
    const OneRedraw quiet(grid);
    for (int slot = 1; slot <= lastMemoryChannel; ++slot) {
        const auto record = parseMemoryString(table[slot]);
        const int row = record ? memoryListRow((*record)[MemoryField::Channel]) : 0;
        if (row > 0 && !kept.contains(row)) placeReading(row, *record);
    }
    noteChange();
}

void MemoryList::noteReading() {
    m_beforeReading.assign(1, {});
    for (int row = 1; row <= rows; ++row) m_beforeReading.push_back(cellsOf(row));
}

std::set<int> MemoryList::rowsChangedMeanwhile(const MemoryTable& table) const {
    std::set<int> changed;
    for (int slot = 1; slot <= lastMemoryChannel; ++slot) {
        const auto record = parseMemoryString(table[slot]);
        const int row = record ? memoryListRow((*record)[MemoryField::Channel]) : 0;
        if (row > 0 && cellsOf(row) != m_beforeReading.at(static_cast<std::size_t>(row)) &&
            !isTheChannelOf(row, *record))
            changed.insert(row);
    }
    return changed;
}

void MemoryList::replaceAll(const std::map<int, MemoryRecord>& records) {
    const OneRedraw quiet(grid);
    grid.Clear();
    setListHeaders();
    for (const auto& [row, record] : records) fillRow(row, record);
    noteSaved();
}

void MemoryList::markRow(int row) {
    for (int col = firstColumn; col <= lastColumn; ++col) grid.setCellBackColor(row, col, yellow);
}

void MemoryList::emptyRow(int row) {
    for (int col = firstColumn; col <= lastColumn; ++col) grid.setTextMatrix(row, col, {});
}

void MemoryList::moveRow(int from, int to) {
    for (int col = firstColumn; col <= lastColumn; ++col) {
        grid.setTextMatrix(to, col, grid.TextMatrix(from, col));
    }
}

void MemoryList::renumberFilledRows() {
    for (int row = 1; row <= rows; ++row) {
        if (filled(row)) setCell(row, MemoryField::Channel, channelText(row));
    }
}

void MemoryList::clearRow(int row) {
    if (!isChannelRow(row)) return;
    const OneRedraw quiet(grid);
    markRow(row);
    emptyRow(row);
    noteChange();
}

void MemoryList::insertRow(int row) {
    if (!isChannelRow(row)) return;
    const OneRedraw quiet(grid);
    for (int to = rows; to > row; --to) moveRow(to - 1, to);
    emptyRow(row);
    renumberFilledRows();
    noteChange();
}

void MemoryList::deleteRow(int row) {
    if (!isChannelRow(row)) return;
    const OneRedraw quiet(grid);
    for (int to = row; to < rows; ++to) moveRow(to + 1, to);
    emptyRow(rows);
    renumberFilledRows();
    noteChange();
}

void MemoryList::copyRow(int row) {
    if (!isChannelRow(row)) return;
    for (int col = firstColumn; col <= lastColumn; ++col) {
        copied.setTextMatrix(bufferRow, col, grid.TextMatrix(row, col));
    }
    m_copied = true;
}

void MemoryList::copyRowMarked(int row) {
    if (!isChannelRow(row)) return;
    const OneRedraw quiet(grid);
    markRow(row);
    copyRow(row);
}

void MemoryList::pasteRow(int row) {
    if (!isChannelRow(row) || !m_copied) return;
    const OneRedraw quiet(grid);
    copied.setTextMatrix(bufferRow, firstColumn, channelText(row));
    for (int col = firstColumn; col <= lastColumn; ++col) {
        grid.setTextMatrix(row, col, copied.TextMatrix(bufferRow, col));
    }
    noteChange();
}

void MemoryList::List1_Click(int entry) {
    const int row = grid.Row();
    switch (entry) {
        case 0: return clearRow(row);
        case 1: return insertRow(row);
        case 2: return deleteRow(row);
        case 3: return copyRowMarked(row);
        case 4: return pasteRow(row);
        default: return;
    }
}

void MemoryList::FlexGrid1_KeyDown(char key) {
    const char letter = asciiUpper(key);
    if (letter == 'C') copyRow(grid.Row());
    if (letter == 'V') pasteRow(grid.Row());
}

int memoryListRow(std::string_view channel) {
    const auto number = parseWhole(channel);
    return number && *number >= 1 && *number <= MemoryList::rows ? *number : 0;
}

}  // namespace korvex
