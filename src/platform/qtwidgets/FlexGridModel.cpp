#include "platform/qtwidgets/FlexGridModel.h"

#include <QBrush>
#include <QColor>
#include <algorithm>
#include <cstddef>

namespace korvex {

namespace {

/// Bytes of a cell that are laid out. No column is as wide, and a damaged file can put a megabyte into a cell.
constexpr std::size_t longestShown = 2000;

QColor colourOf(int bbggrr) {
    return {bbggrr & 0xFF, (bbggrr >> 8) & 0xFF, (bbggrr >> 16) & 0xFF};
}

/// Black or white, whichever can be read on the colour, whatever the desktop's theme.
QColor inkOn(const QColor& colour) {
    const int brightness = (299 * colour.red() + 587 * colour.green() + 114 * colour.blue()) / 1000;
    return brightness > 127 ? Qt::black : Qt::white;
}

Qt::Alignment alignmentOf(MSFlexGrid::Alignment alignment) {
    switch (alignment) {
        case MSFlexGrid::Alignment::Center: return Qt::AlignCenter;
        case MSFlexGrid::Alignment::Right: return Qt::AlignRight | Qt::AlignVCenter;
        case MSFlexGrid::Alignment::Default:
        case MSFlexGrid::Alignment::Left: break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

}  // namespace

FlexGridModel::FlexGridModel(MSFlexGrid& cells, QObject* parent)
    : QAbstractTableModel(parent), m_cells(cells), m_shape(presentShape()) {
    m_connections += cells.cellChanged.connect([this](int row, int col) { tellCell(row, col); });
    m_connections += cells.allChanged.connect([this] { refresh(); });
}

FlexGridModel::Shape FlexGridModel::presentShape() const {
    return {m_cells.Rows(), m_cells.Cols(), std::clamp(m_cells.FixedRows(), 0, 1),
            std::clamp(m_cells.FixedCols(), 0, 1)};
}

int FlexGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : std::max(m_shape.rows - m_shape.labelRows, 0);
}

int FlexGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : std::max(m_shape.cols - m_shape.labelCols, 0);
}

QModelIndex FlexGridModel::indexOfCell(int row, int col) const {
    return index(row - m_shape.labelRows, col - m_shape.labelCols);
}

QVariant FlexGridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (role == Qt::TextAlignmentRole) return int(alignmentOf(m_cells.ColAlignment(colOf(index))));
    return cellData(rowOf(index), colOf(index), role);
}

QVariant FlexGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    return orientation == Qt::Horizontal ? cellData(0, section + m_shape.labelCols, role)
                                         : cellData(section + m_shape.labelRows, 0, role);
}

QVariant FlexGridModel::cellData(int row, int col, int role) const {
    if (role == Qt::DisplayRole) return QString::fromStdString(m_cells.TextMatrix(row, col).substr(0, longestShown));
    if (role == signRole) return QString::fromStdString(m_cells.Mark(row, col).sign);
    if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole) {
        const std::string& meaning = m_cells.Mark(row, col).meaning;
        return meaning.empty() ? QVariant() : QString::fromStdString(meaning);
    }
    if (role != Qt::BackgroundRole && role != Qt::ForegroundRole) return {};
    const auto colour = m_cells.CellBackColor(row, col);
    if (!colour) return {};
    return QBrush(role == Qt::BackgroundRole ? colourOf(*colour) : inkOn(colourOf(*colour)));
}

void FlexGridModel::tellCell(int row, int col) {
    if (row < m_shape.labelRows) {
        Q_EMIT headerDataChanged(Qt::Horizontal, col - m_shape.labelCols, col - m_shape.labelCols);
    } else if (col < m_shape.labelCols) {
        Q_EMIT headerDataChanged(Qt::Vertical, row - m_shape.labelRows, row - m_shape.labelRows);
    } else if (const QModelIndex cell = indexOfCell(row, col); cell.isValid()) {
        Q_EMIT dataChanged(cell, cell);
    }
}

void FlexGridModel::refresh() {
    if (presentShape() == m_shape) {
        tellAllCells();
    } else {
        beginResetModel();
        m_shape = presentShape();
        endResetModel();
    }
    Q_EMIT refreshed();
}

void FlexGridModel::tellAllCells() {
    const int lastRow = rowCount() - 1;
    const int lastColumn = columnCount() - 1;
    if (lastColumn >= 0) Q_EMIT headerDataChanged(Qt::Horizontal, 0, lastColumn);
    if (lastRow >= 0) Q_EMIT headerDataChanged(Qt::Vertical, 0, lastRow);
    if (lastRow >= 0 && lastColumn >= 0) Q_EMIT dataChanged(index(0, 0), index(lastRow, lastColumn));
}

}  // namespace korvex
