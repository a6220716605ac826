#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Property.h"
#include "platform/MSFlexGrid.h"

namespace korvex {

/// The way back, and forth again, through what was done to the settings columns and their titles. A step is one edit,
/// or all that one entry of the menu did. Cells go by the menu item and row that they belong to (rowKeys), so a step
/// fits also when the rows stand elsewhere meanwhile.
class SettingsHistory {
public:
    /// `numbers`: the first column of the table's rows. Both must outlive the history.
    SettingsHistory(MSFlexGrid& grid, const std::vector<std::string>& numbers) : m_grid(grid), m_numbers(numbers) {}

    /// The grid has been changed. What is other than at the last call is one step, called `caption`; rows that were not
    /// there before bring nothing that could be undone.
    void note(const std::string& caption);
    /// The same for a single cell. While `hold`s, it waits for the `note` that comes.
    void noteCell(int row, int col, const std::string& caption);
    /// What the grid holds now is the beginning of the next step, and no step of its own.
    void pass() { m_known = cellsInGrid(); }
    bool holds = false;

    struct Done {
        std::string caption;
        int row = 0;  ///< of a cell that changed
        int col = 0;
    };
    /// Puts the cells of a step back; nothing where there is none.
    std::optional<Done> undo();
    std::optional<Done> redo();

    Property<std::string> undoable;  ///< the caption of the step that `undo` takes back; empty: none
    Property<std::string> redoable;

private:
    using Cell = std::pair<std::string, int>;  // key of the row, column
    using Cells = std::map<Cell, std::string>;
    struct Change {
        Cell cell;
        std::string before;
        std::string after;
    };
    struct Step {
        std::string caption;
        std::vector<Change> changes;
    };

    Cells cellsInGrid() const;
    void push(Step step);
    Done apply(const Step& step, std::string Change::*text);
    void tell();

    MSFlexGrid& m_grid;
    const std::vector<std::string>& m_numbers;
    Cells m_known;
    std::vector<Step> m_done;
    std::vector<Step> m_undone;
};

}  // namespace korvex
