#pragma once

#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/Property.h"
#include "memory/ListHistory.h"
#include "memory/MemoryRecord.h"
#include "memory/MemoryRow.h"
#include "memory/MemoryTables.h"
#include "platform/MSFlexGrid.h"

namespace korvex {

/// The list of all channels, the workspace of the memory tools: the radio's memories are read into it, written from it,
/// and the editor takes channels out of it and puts them back. Row r is channel r; columns 1..12 are the fields of a
/// record in their order. A row is filled when its frequency cell is not empty.
class MemoryList {
public:
    MemoryList();

    MSFlexGrid grid;  ///< row 0 and column 0 are labels

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
    bool isChanged(int row) const;
    /// The rows are in a file now.
    void noteSaved();

    /// What the radio holds in a row's channel, as far as is known: it has told it, or has taken it.
    void noteInRadio(int row, const MemoryRecord& record);
    /// The same of several rows; nothing is what is not known any more.
    void noteInRadio(const std::map<int, std::optional<MemoryRecord>>& records);
    void forgetRadio();
    /// Whether the radio is known to hold a row's fields. The digit that tells where the radio has them from may
    /// differ.
    bool radioHas(int row) const;

    MemoryRow row(int row) const;
    void setRow(int row, const MemoryRow& content);
    void setRemark(int row, std::string utf8);
    void clearRow(int row);   ///< marks the row's cells yellow
    void insertRow(int row);  ///< the last row's content is lost; yellow cells move with their rows
    void deleteRow(int row);
    /// Every filled row's channel cell tells its row.
    void renumberFilledRows();

    /// What happens to the rows while one of these lives can be undone in one, whatever the cause, and is shown in one.
    /// One inside another belongs to it.
    class Step {
    public:
        Step(MemoryList& list, std::string what);
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;
        ~Step();

    private:
        MemoryList& m_list;
        std::string m_what;
    };

    const ListHistory& history() const { return m_history; }
    /// Takes the last step back, or makes it again; what it was, nothing where there is none.
    std::optional<std::string> undo();
    std::optional<std::string> redo();
    /// Rows are other ones, or where they are kept is.
    Signal<> rowsChanged;

private:
    bool isChannelRow(int row) const { return row >= 1 && row <= rows; }
    void fillRow(int row, const MemoryRecord& record);
    bool isTheChannelOf(int row, const MemoryRecord& record) const;
    void placeReading(int row, const MemoryRecord& record);
    void noteSafe(int row, bool withRemark);
    void noteAllSafe();
    void noteChange();
    std::vector<MemoryRow> allRows() const;
    void endStep(const std::string& what);
    void apply(const std::vector<ListHistory::Change>& changes, bool before);

    std::vector<MemoryRow::Cells> m_safe;              // what a file holds or the radio has said, by row
    std::vector<MemoryRow::Cells> m_beforeReading;     // by row
    std::vector<std::optional<MemoryRecord>> m_radio;  // by row
    ListHistory m_history;
    int m_steps = 0;                  // that live
    std::vector<MemoryRow> m_before;  // the outermost of them
};

/// The number of the row that a channel text names; 0 when it names none.
int memoryListRow(std::string_view channel);

}  // namespace korvex
