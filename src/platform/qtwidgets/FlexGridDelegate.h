#pragma once

#include <QStyledItemDelegate>

namespace korvex {

/// Draws a cell close to its borders, because the columns are narrow: back colour, text (cut with "…"), and a frame
/// round the current cell, whose colour stays to be seen. A cut text shows whole in a tool tip.
class FlexGridDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    static constexpr int margin = 2;  // left and right of the text

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};

}  // namespace korvex
