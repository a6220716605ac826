#include "platform/MSFlexGrid.h"

#include <algorithm>
#include <utility>

namespace korvex {

MSFlexGrid::MSFlexGrid(int rows, int cols) {
    reshape(rows, cols);
}

void MSFlexGrid::setRows(int rows) {
    reshape(rows, m_cols);
}

void MSFlexGrid::setCols(int cols) {
    reshape(m_rows, cols);
}

void MSFlexGrid::reshape(int rows, int cols) {
    rows = std::max(rows, 0);
    cols = std::max(cols, 0);
    std::vector<Cell> cells(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols));
    for (int r = 0; r < std::min(rows, m_rows); ++r) {
        for (int c = 0; c < std::min(cols, m_cols); ++c) {
            cells[static_cast<std::size_t>(r) * static_cast<std::size_t>(cols) + static_cast<std::size_t>(c)] =
                std::move(cell(r, c));
        }
    }
    m_cells = std::move(cells);
    m_rows = rows;
    m_cols = cols;
    m_columns.resize(static_cast<std::size_t>(cols));
    keepCurrentOffLabels();
    tellAll();
}

void MSFlexGrid::keepCurrentOffLabels() {
    setCurrent(std::max(m_row, m_fixedRows), std::max(m_col, m_fixedCols));
}

void MSFlexGrid::setFixed(int rows, int cols) {
    m_fixedRows = rows;
    m_fixedCols = cols;
    keepCurrentOffLabels();
    tellAll();
}

bool MSFlexGrid::inside(int row, int col) const {
    return row >= 0 && row < m_rows && col >= 0 && col < m_cols;
}

MSFlexGrid::Cell& MSFlexGrid::cell(int row, int col) {
    return m_cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(m_cols) + static_cast<std::size_t>(col)];
}

const MSFlexGrid::Cell& MSFlexGrid::cell(int row, int col) const {
    return m_cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(m_cols) + static_cast<std::size_t>(col)];
}

const std::string& MSFlexGrid::TextMatrix(int row, int col) const {
    static const std::string nothing;
    return inside(row, col) ? cell(row, col).text : nothing;
}

void MSFlexGrid::setTextMatrix(int row, int col, std::string text) {
    if (!inside(row, col) || cell(row, col).text == text) return;
    cell(row, col).text = std::move(text);
    tellCell(row, col);
}

void MSFlexGrid::Clear() {
    std::fill(m_cells.begin(), m_cells.end(), Cell{});
    tellAll();
}

std::optional<int> MSFlexGrid::CellBackColor(int row, int col) const {
    return inside(row, col) ? cell(row, col).backColour : std::nullopt;
}

void MSFlexGrid::setCellBackColor(int row, int col, std::optional<int> colour) {
    if (!inside(row, col) || cell(row, col).backColour == colour) return;
    cell(row, col).backColour = colour;
    tellCell(row, col);
}

const MSFlexGrid::CellMark& MSFlexGrid::Mark(int row, int col) const {
    static const CellMark nothing;
    return inside(row, col) ? cell(row, col).mark : nothing;
}

void MSFlexGrid::setMark(int row, int col, CellMark mark) {
    if (!inside(row, col) || cell(row, col).mark == mark) return;
    cell(row, col).mark = std::move(mark);
    tellCell(row, col);
}

void MSFlexGrid::setFace(GridFace* face) {
    m_face = face;
    tellAll();
}

bool MSFlexGrid::isRowHidden(int row) const {
    return row >= m_fixedRows && row < static_cast<int>(m_hiddenRows.size()) &&
           m_hiddenRows[static_cast<std::size_t>(row)];
}

void MSFlexGrid::setHiddenRows(std::vector<bool> hidden) {
    if (hidden == m_hiddenRows) return;
    m_hiddenRows = std::move(hidden);
    tellAll();
    if (isRowHidden(m_row)) setCurrent(nearestRowInSight(m_row), m_col);
}

int MSFlexGrid::nearestRowInSight(int row) const {
    for (int below = row; below < m_rows; ++below) {
        if (!isRowHidden(below)) return below;
    }
    while (isRowHidden(row)) --row;
    return row;
}

int MSFlexGrid::ColWidth(int col) const {
    return col >= 0 && col < m_cols ? m_columns[static_cast<std::size_t>(col)].width : 0;
}

void MSFlexGrid::setColWidth(int col, int twips) {
    if (col < 0 || col >= m_cols) return;
    m_columns[static_cast<std::size_t>(col)].width = twips;
    tellAll();
}

MSFlexGrid::Alignment MSFlexGrid::ColAlignment(int col) const {
    return col >= 0 && col < m_cols ? m_columns[static_cast<std::size_t>(col)].alignment : Alignment::Default;
}

void MSFlexGrid::setColAlignment(int col, Alignment alignment) {
    if (col < 0 || col >= m_cols) return;
    m_columns[static_cast<std::size_t>(col)].alignment = alignment;
    tellAll();
}

void MSFlexGrid::setCurrent(int row, int col) {
    row = std::clamp(row, 0, std::max(m_rows - 1, 0));
    col = std::clamp(col, 0, std::max(m_cols - 1, 0));
    if (row == m_row && col == m_col) return;
    leavingCell.emit();
    m_row = row;
    m_col = col;
    currentChanged.emit();
}

void MSFlexGrid::setRedraw(bool on) {
    m_redraw = on;
    if (on && std::exchange(m_untold, false)) allChanged.emit();
}

void MSFlexGrid::tellCell(int row, int col) {
    if (m_redraw) {
        cellChanged.emit(row, col);
    } else {
        m_untold = true;
    }
}

void MSFlexGrid::tellAll() {
    if (m_redraw) {
        allChanged.emit();
    } else {
        m_untold = true;
    }
}

}  // namespace korvex
