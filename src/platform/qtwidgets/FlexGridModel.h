#pragma once

#include <QAbstractTableModel>

#include "platform/MSFlexGrid.h"

namespace korvex {

/// The cells of a grid for a Qt view. The first label row and label column are header data, everything else is the
/// table; so indexes of this model and cells of the grid differ by the labels.
class FlexGridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    static constexpr int signRole = Qt::UserRole;         ///< of the cell's mark
    static constexpr int groupRole = Qt::UserRole + 1;    ///< whether a line stands on the left of the cell
    static constexpr int choicesRole = Qt::UserRole + 2;  ///< what can be chosen in a cell; empty where it is typed

    FlexGridModel(MSFlexGrid& cells, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Puts a text into a cell that can be typed into; false where the grid's face refuses it.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    /// Why a text cannot be put into a cell; empty where it can.
    QString whyRefused(const QModelIndex& index, const QString& text) const;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    int labelRows() const { return m_shape.labelRows; }
    int labelCols() const { return m_shape.labelCols; }
    QModelIndex indexOfCell(int row, int col) const;
    int rowOf(const QModelIndex& index) const { return index.row() + m_shape.labelRows; }
    int colOf(const QModelIndex& index) const { return index.column() + m_shape.labelCols; }

Q_SIGNALS:
    /// Many cells, widths or the shape: after the view has been told in its own terms.
    void refreshed();

private:
    /// What the view knows; the grid may have another shape already while its redrawing is off.
    struct Shape {
        int rows = 0;
        int cols = 0;
        int labelRows = 0;
        int labelCols = 0;
        bool operator==(const Shape&) const = default;
    };

    Shape presentShape() const;
    void refresh();
    void tellAllCells();
    void tellCell(int row, int col);
    QVariant cellData(int row, int col, int role) const;
    QVariant faceData(int row, int col, int role) const;
    QString placeOfEmpty(int row, int col) const;
    QString description(int row, int col) const;

    MSFlexGrid& m_cells;
    Shape m_shape;
    Connections m_connections;
};

}  // namespace korvex
