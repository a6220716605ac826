#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Signal.h"
#include "platform/GridFace.h"

namespace korvex {

/// The cells of a grid as plain values: text (UTF-8), back colours (0xBBGGRR), column widths (twips), the current cell
/// and a redraw switch. A view shows it; the logic never asks a view. Rows and columns count from 0; what lies outside
/// is empty when read and ignored when written.
class MSFlexGrid {
public:
    enum class Alignment { Default, Left, Center, Right };

    MSFlexGrid(int rows, int cols);

    int Rows() const { return m_rows; }
    int Cols() const { return m_cols; }
    /// Cells that stay keep their content.
    void setRows(int rows);
    void setCols(int cols);
    /// The label rows and columns that stay in sight while scrolling.
    int FixedRows() const { return m_fixedRows; }
    int FixedCols() const { return m_fixedCols; }
    void setFixed(int rows, int cols);

    const std::string& TextMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, std::string text);
    /// Empties every cell and takes back every colour and mark; the shape stays.
    void Clear();

    /// 0xBBGGRR; nothing is the window's normal background.
    std::optional<int> CellBackColor(int row, int col) const;
    void setCellBackColor(int row, int col, std::optional<int> colour);

    /// A sign behind the cell's text for what its colour tells, and what it means in words (UTF-8).
    struct CellMark {
        std::string sign;
        std::string meaning;
        bool operator==(const CellMark&) const = default;
    };
    const CellMark& Mark(int row, int col) const;
    void setMark(int row, int col, CellMark mark);

    /// How the cells are shown and typed into; null: as they are, and not at all. It must outlive the grid's views.
    GridFace* face() const { return m_face; }
    void setFace(GridFace* face);
    /// What a cell shows.
    std::string shownText(int row, int col) const { return m_face ? m_face->text(row, col) : TextMatrix(row, col); }

    bool isRowHidden(int row) const;
    /// By row; rows that are not in it and label rows are in sight. The current cell moves to the next row that stays
    /// in sight, or else to the one before; where none stays, to the labels.
    void setHiddenRows(std::vector<bool> hidden);

    int ColWidth(int col) const;
    void setColWidth(int col, int twips);
    Alignment ColAlignment(int col) const;
    void setColAlignment(int col, Alignment alignment);

    int Row() const { return m_row; }
    int Col() const { return m_col; }
    /// Kept inside the grid. At first it is the first cell beside the labels; a label can be made current too.
    void setCurrent(int row, int col);

    bool Redraw() const { return m_redraw; }
    /// While off nothing is told; switching on tells `allChanged` once if anything changed.
    void setRedraw(bool on);

    Signal<int, int> cellChanged;  ///< text, colour or mark of (row, col)
    Signal<> allChanged;           ///< shape, widths, hidden rows or many cells
    Signal<> leavingCell;          ///< before the current cell changes
    Signal<> currentChanged;

private:
    struct Cell {
        std::string text;
        std::optional<int> backColour;
        CellMark mark;
    };
    struct Column {
        int width = 960;  // twips
        Alignment alignment = Alignment::Default;
    };

    bool inside(int row, int col) const;
    Cell& cell(int row, int col);
    const Cell& cell(int row, int col) const;
    void tellCell(int row, int col);
    void tellAll();
    void reshape(int rows, int cols);
    void keepCurrentOffLabels();
    int nearestRowInSight(int row) const;

    int m_rows = 0;
    int m_cols = 0;
    int m_fixedRows = 1;
    int m_fixedCols = 1;
    int m_row = 0;
    int m_col = 0;
    GridFace* m_face = nullptr;
    bool m_redraw = true;
    bool m_untold = false;
    std::vector<Cell> m_cells;
    std::vector<Column> m_columns;
    std::vector<bool> m_hiddenRows;
};

}  // namespace korvex
