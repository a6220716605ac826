#pragma once

#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/Property.h"
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

    MSFlexGrid grid;    ///< row 0 and column 0 are labels
    MSFlexGrid copied;  ///< the buffer of copy and paste: its row 1

    static constexpr int rows = lastMemoryChannel;
    static constexpr int column(MemoryField field) { return static_cast<int>(field) + 1; }

    void setListHeaders();

    /// What a cell shows (UTF-8).
    const std::string& cell(int row, MemoryField field) const { return grid.TextMatrix(row, column(field)); }
    void setCell(int row, MemoryField field, std::string text);
    bool filled(int row) const { return !cell(row, MemoryField::Frequency).empty(); }

    /// The fields of a row as wire text, without the remark.
    MemoryRecord channelFields(int row) const;
    /// All fields of a record (wire text) into a row, by the user's will.
    void place(int row, const MemoryRecord& record);
    /// What the radio says of a row's channel; the channel cell and the remark stay.
    void placeAnswer(int row, const MemoryRecord& record);

    /// Every channel that the table names gets its row filled, later slots over earlier ones; the other rows stay. The
    /// radio knows no remarks: a row keeps its own when its channel has not changed. The rows in `kept` stay, too.
    void fillListFromMemoryTable(const MemoryTable& table, const std::set<int>& kept = {});
    /// A reading begins. The rows that the user has changed since, and that the table would change again.
    void noteReading();
    std::set<int> rowsChangedMeanwhile(const MemoryTable& table) const;
    /// Empties the list, then fills it with records by row, as a file has them.
    void replaceAll(const std::map<int, MemoryRecord>& records);

    /// The user has changed something that neither the radio has said nor a file holds.
    Property<bool> modified{false};
    /// The rows are in a file now.
    void noteSaved();

    void setRemark(int row, std::string utf8);
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
    using Row = std::array<std::string, memoryFieldCount>;

    bool isChannelRow(int row) const { return row >= 1 && row <= rows; }
    Row cellsOf(int row) const;
    void fillRow(int row, const MemoryRecord& record);
    bool isTheChannelOf(int row, const MemoryRecord& record) const;
    void placeReading(int row, const MemoryRecord& record);
    void noteSafe(int row, bool withRemark);
    void noteChange();
    void markRow(int row);
    void emptyRow(int row);
    void moveRow(int from, int to);
    void renumberFilledRows();

    bool m_copied = false;
    std::vector<Row> m_safe;           // what a file holds or the radio has said, by row
    std::vector<Row> m_beforeReading;  // by row
};

/// The number of the row that a channel text names; 0 when it names none.
int memoryListRow(std::string_view channel);

}  // namespace korvex
