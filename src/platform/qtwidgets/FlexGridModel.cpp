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
    if (role == Qt::DisplayRole) return QString::fromStdString(m_cells.shownText(row, col).substr(0, longestShown));
    if (role == signRole) return QString::fromStdString(m_cells.Mark(row, col).sign);
    if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole) {
        const QString place = role == Qt::AccessibleDescriptionRole ? placeOfEmpty(row, col) : QString();
        const QString text = place + description(row, col);
        return text.isEmpty() ? QVariant() : text;
    }
    if (role != Qt::BackgroundRole && role != Qt::ForegroundRole) return faceData(row, col, role);
    const auto own = m_cells.CellBackColor(row, col);
    const auto over = m_cells.face() ? m_cells.face()->backColour(row, col) : std::nullopt;
    const auto colour = over ? over : own;
    if (!colour) return {};
    return QBrush(role == Qt::BackgroundRole ? colourOf(*colour) : inkOn(colourOf(*colour)));
}

/// An empty cell has no text that a screen reader could tell; its name stays empty for programs that read the table.
QString FlexGridModel::placeOfEmpty(int row, int col) const {
    const bool isLabel = row < m_shape.labelRows || col < m_shape.labelCols;
    if (isLabel || !m_cells.shownText(row, col).empty()) return {};
    const QString column = QString::fromStdString(m_cells.shownText(0, col)).trimmed();
    return column + QStringLiteral(", ") + QString::fromStdString(m_cells.shownText(row, 0)) +
           QStringLiteral(": empty\n");
}

QString FlexGridModel::description(int row, int col) const {
    std::string text = m_cells.Mark(row, col).meaning;
    const std::string further = m_cells.face() ? m_cells.face()->description(row, col) : "";
    if (!text.empty() && !further.empty()) text += '\n';
    return QString::fromStdString((text + further).substr(0, longestShown));
}

QVariant FlexGridModel::faceData(int row, int col, int role) const {
    if (!m_cells.face()) return {};
    if (role == groupRole) return m_cells.face()->beginsGroup(col);
    if (role == Qt::EditRole) return QString::fromStdString(m_cells.shownText(row, col));
    if (role != choicesRole) return {};
    QStringList choices;
    for (const auto& choice : m_cells.face()->choices(row, col)) choices << QString::fromStdString(choice);
    return choices;
}

Qt::ItemFlags FlexGridModel::flags(const QModelIndex& index) const {
    const bool editable = index.isValid() && m_cells.face() && m_cells.face()->isEditable(rowOf(index), colOf(index));
    return QAbstractTableModel::flags(index) | (editable ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

QString FlexGridModel::whyRefused(const QModelIndex& index, const QString& text) const {
    if (!index.isValid() || !m_cells.face()) return {};
    const auto why = m_cells.face()->whyRefused(rowOf(index), colOf(index), text.toStdString());
    return why ? QString::fromStdString(*why) : QString();
}

bool FlexGridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable)) return false;
    if (!whyRefused(index, value.toString()).isEmpty()) return false;
    m_cells.face()->put(rowOf(index), colOf(index), value.toString().toStdString());
    return true;
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
