#include "gridedit/MoveCode.h"

namespace korvex {

namespace {

struct Bounds {
    CellPosition first;
    CellPosition last;
};

CellPosition right(CellPosition from, const Bounds& bounds) {
    if (from.col < bounds.last.col) return {from.row, from.col + 1};
    if (from.row < bounds.last.row) return {from.row + 1, bounds.first.col};
    return bounds.first;
}

CellPosition down(CellPosition from, const Bounds& bounds) {
    if (from.row < bounds.last.row) return {from.row + 1, from.col};
    if (from.col < bounds.last.col) return {bounds.first.row, from.col + 1};
    return bounds.first;
}

CellPosition up(CellPosition from, const Bounds& bounds) {
    if (from.row > bounds.first.row) return {from.row - 1, from.col};
    if (from.col > bounds.first.col) return {bounds.last.row, from.col - 1};
    return bounds.last;
}

CellPosition next(CellPosition from, const Bounds& bounds, MoveCode code) {
    switch (code) {
        case MoveCode::Right: return right(from, bounds);
        case MoveCode::Down: return down(from, bounds);
        case MoveCode::Up: return up(from, bounds);
        case MoveCode::None: break;
    }
    return from;
}

}  // namespace

CellPosition cellAfter(const MSFlexGrid& grid, MoveCode code) {
    const CellPosition from{grid.Row(), grid.Col()};
    const Bounds bounds{{grid.FixedRows(), grid.FixedCols()}, {grid.Rows() - 1, grid.Cols() - 1}};
    if (bounds.last.row < bounds.first.row || bounds.last.col < bounds.first.col) return from;
    CellPosition to = next(from, bounds, code);
    for (int cells = grid.Rows() * grid.Cols(); grid.isRowHidden(to.row) && cells > 0; --cells) {
        to = next(to, bounds, code);
    }
    return to;
}

}  // namespace korvex
