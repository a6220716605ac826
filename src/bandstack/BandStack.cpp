#include "bandstack/BandStack.h"

#include "base/CodePage.h"

namespace korvex {

namespace {

constexpr int queryColumnWidth = 700;
constexpr int registerColumnWidth = 1100;

}  // namespace

BandStack::BandStack() {
    grid.setFixed(1, 1);
    grid.setColWidth(0, queryColumnWidth);
    for (int column = 1; column < BandStackCells::columns; ++column) {
        grid.setColWidth(column, registerColumnWidth);
    }
    show(BandStackCells());
}

BandStackCells BandStack::cells() const {
    BandStackCells cells(grid.Rows());
    for (int row = 0; row < cells.rows(); ++row) {
        for (int column = 0; column < BandStackCells::columns; ++column) {
            // Every cell came in as wire text, so that there is a way back.
            cells.set(row, column, wireFromUtf8(grid.TextMatrix(row, column)).value_or(""));
        }
    }
    return cells;
}

void BandStack::show(const BandStackCells& cells) {
    grid.setRedraw(false);
    grid.setRows(cells.rows());
    for (int row = 0; row < cells.rows(); ++row) {
        for (int column = 0; column < BandStackCells::columns; ++column) show(row, column, cells.at(row, column));
    }
    grid.setRedraw(true);
}

void BandStack::show(int row, int column, std::string_view wire) {
    grid.setTextMatrix(row, column, utf8FromWire(wire));
}

}  // namespace korvex
