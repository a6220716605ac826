#pragma once

#include <map>
#include <string>

#include "memory/MemoryRecord.h"
#include "memory/MemoryTables.h"
#include "platform/MSFlexGrid.h"

namespace korvex {

/// The list of all channels, the workspace of the memory tools: the radio's memories are read into it, written from it,
/// and the editor takes channels out of it and puts them back. Row r is channel r; columns 1..12 are the fields of a
/// record in their order. A row is filled when its frequency cell is not empty.
class MemoryList {
public:
    MemoryList();

    MSFlexGrid FlexGrid1;  ///< row 0 and column 0 are labels
    MSFlexGrid FlexGrid2;  ///< the buffer of copy and paste: its row 1

    static constexpr int rows = lastMemoryChannel;
    static constexpr int column(MemoryField field) { return static_cast<int>(field) + 1; }

    void setListHeaders();

    /// What a cell shows (UTF-8).
    const std::string& cell(int row, MemoryField field) const { return FlexGrid1.TextMatrix(row, column(field)); }
    void setCell(int row, MemoryField field, std::string text);
    bool filled(int row) const { return !cell(row, MemoryField::Frequency).empty(); }

    /// The fields of a row as wire text, without the remark.
    MemoryRecord channelFields(int row) const;
    /// All fields of a record (wire text) into a row.
    void place(int row, const MemoryRecord& record);
    /// As `place`, but the channel and the remark of the row stay.
    void placeAnswer(int row, const MemoryRecord& record);

    /// Every channel that the table names gets its row filled, later slots over earlier ones; the other rows stay.
    void fillListFromMemoryTable(const MemoryTable& table);
    /// Empties the list, then fills it with records by row.
    void replaceAll(const std::map<int, MemoryRecord>& records);

    void clearRow(int row);   ///< marks the row's cells yellow
    void insertRow(int row);  ///< the last row's content is lost
    void deleteRow(int row);
    void copyRow(int row);
    void copyRowMarked(int row);  ///< marks the row's cells yellow
    /// The copied row gets the number of the row it is pasted into. Before the first copy nothing happens.
    void pasteRow(int row);

    /// A choice of the pop-up list, for the current row.
    void List1_Click(int entry);
    /// C copies the current row, V pastes into it; whether Ctrl is held does not matter.
    void FlexGrid1_KeyDown(char key);

private:
    bool isChannelRow(int row) const { return row >= 1 && row <= rows; }
    void markRow(int row);
    void emptyRow(int row);
    void moveRow(int from, int to);
    void renumberFilledRows();

    bool m_copied = false;
};

/// The number of the row that a channel text names; 0 when it names none.
int memoryListRow(std::string_view channel);

}  // namespace korvex
