#pragma once

#include "platform/MSFlexGrid.h"

namespace korvex {

/// Where an edit goes on after its text is written back. Values above `Up` do nothing.
enum class MoveCode {
    None = 0,   ///< the edit ends and the grid has the focus
    Right = 1,  ///< row by row through the grid
    Down = 2,   ///< column by column through the grid
    Up = 3      ///< column by column backwards
};

struct CellPosition {
    int row = 0;
    int col = 0;
    bool operator==(const CellPosition&) const = default;
};

/// The cell that `code` leads to from the grid's current cell; past either end it goes on at the other. Only cells
/// outside the label rows and columns, in rows that are in sight, are reached. A grid that has none leads nowhere.
CellPosition cellAfter(const MSFlexGrid& grid, MoveCode code);

}  // namespace korvex
