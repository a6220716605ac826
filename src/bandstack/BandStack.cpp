#include "bandstack/BandStack.h"

#include "base/CodePage.h"

namespace korvex {

namespace {

constexpr int queryColumnWidth = 700;
constexpr int registerColumnWidth = 1100;

}  // namespace

BandStack::BandStack() {
    FlexGrid1.setFixed(1, 1);
    FlexGrid1.setColWidth(0, queryColumnWidth);
    for (int column = 1; column < BandStackCells::columns; ++column) {
        FlexGrid1.setColWidth(column, registerColumnWidth);
    }
    show(BandStackCells());
}

BandStackCells BandStack::cells() const {
    BandStackCells cells(FlexGrid1.Rows());
    for (int row = 0; row < cells.rows(); ++row) {
        for (int column = 0; column < BandStackCells::columns; ++column) {
            // Every cell came in as wire text, so that there is a way back.
            cells.set(row, column, wireFromUtf8(FlexGrid1.TextMatrix(row, column)).value_or(""));
        }
    }
    return cells;
}

void BandStack::show(const BandStackCells& cells) {
    FlexGrid1.setRedraw(false);
    FlexGrid1.setRows(cells.rows());
    for (int row = 0; row < cells.rows(); ++row) {
        for (int column = 0; column < BandStackCells::columns; ++column) show(row, column, cells.at(row, column));
    }
    FlexGrid1.setRedraw(true);
}

void BandStack::show(int row, int column, std::string_view wire) {
    FlexGrid1.setTextMatrix(row, column, utf8FromWire(wire));
}

}  // namespace korvex
