#pragma once

#include <QTableView>
#include <vector>

#include "platform/MSFlexGrid.h"

class QInputMethodEvent;

namespace korvex {

class FlexGridModel;
class FlexGridCorner;
class FlexGridHeader;

/// Shows an MSFlexGrid. A label row and a label column (one of each at most) stay in sight while the cells scroll;
/// column widths come from the grid and can be changed here by the user; the current cell is the grid's own.
///
/// All rows and columns in signals and calls are the grid's: labels count, so row 1 is the first row below the titles.
/// The grid must outlive its view.
class FlexGridView : public QTableView {
    Q_OBJECT

public:
    explicit FlexGridView(MSFlexGrid& cells, QWidget* parent = nullptr);

    MSFlexGrid& cells() const { return m_cells; }

    /// A grid that can be typed into takes characters and input methods; any other leaves characters to its window.
    void setTakesTyping(bool takes);
    /// Cells that the grid's face takes are edited in place: with Enter, F2 and by typing.
    void setEditsCells(bool edits);
    /// The row labels are names: their column is as wide as the longest.
    void setNamesRows(bool names);
    /// Several rows can be chosen, with Shift and Ctrl as elsewhere; the current one is among them.
    void setChoosesRows(bool chooses);
    /// The chosen rows that are in sight, ascending; at least the current one.
    std::vector<int> chosenRows() const;
    void chooseRows(const std::vector<int>& rows);
    void editCurrent();

    /// From inside a handler of `keyDown`: the key was used, nothing else follows from it.
    void swallowKey() { m_keySwallowed = true; }

    /// Where a cell lies in this widget: the part of it that is in sight, so empty when it is scrolled away.
    QRect cellGeometry(int row, int col) const;
    QRect cellGeometryIn(const QWidget& host, int row, int col) const;
    bool isRowVisible(int row) const;
    bool isColVisible(int col) const;
    void scrollToCurrent();

    /// The size at which every cell is in sight without scroll bars.
    QSize sizeOfWholeGrid() const;

Q_SIGNALS:
    /// Any mouse button. The left one has made the cell current before this is told; the others leave that to the host.
    /// Presses on labels are told too.
    void cellPressed(int row, int col, Qt::MouseButton button);
    void cellDoubleClicked(int row, int col);
    /// Every key, before the view acts on it: a Qt::Key, which for letters and digits is the upper case character.
    void keyDown(int key, Qt::KeyboardModifiers modifiers);
    /// What was typed, after `keyDown`: a character, a control character ("\r" for Enter), or what an input method
    /// committed.
    void keyTyped(const QString& text);
    /// A composition that is not finished, or the end of one that was told here before.
    void composed(QInputMethodEvent* event);
    void focusTaken();
    /// What was typed into a cell is not taken.
    void editRefused(const QString& why);
    /// Cells lie elsewhere in this widget than before: scrolled, resized, other widths or heights.
    void cellsMoved();

protected:
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpHeaders();
    void takeFont();
    void applyAll();
    bool typeIntoCell(QKeyEvent& event);
    void applyWidths();
    int widthOfNames() const;
    void applyHiddenRows();
    void fitTitleHeight();
    void followCurrent();
    void pressLabel(const QHeaderView& header, const QMouseEvent& event);
    void allowInputMethods();
    QRect labelGeometry(int row, int col) const;

    MSFlexGrid& m_cells;
    FlexGridModel* m_model;
    FlexGridHeader* m_titles;     // label row
    FlexGridHeader* m_rowLabels;  // label column
    FlexGridCorner* m_corner;     // where the two meet
    std::vector<int>
        m_appliedTwips;  // by column of the model; a width the user changed stays until the grid has another one
    bool m_takesTyping = false;
    bool m_editsCells = false;
    bool m_choosesRows = false;
    bool m_namesRows = false;
    bool m_extending = false;  // the chosen rows: Shift is held
    int m_anchor = 0;          // row of the model from which they are extended
    bool m_keySwallowed = false;
    bool m_composing = false;
    bool m_following = false;  // the current cell is being taken over from the grid
    Connections m_connections;
};

}  // namespace korvex
