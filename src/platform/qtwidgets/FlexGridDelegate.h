#pragma once

#include <QStyledItemDelegate>

namespace korvex {

/// Draws a cell close to its borders, because the columns are narrow: back colour, text (cut with "…"), and a frame
/// round the current cell, whose colour stays to be seen. A cut text shows whole in a tool tip. Cells that the grid's
/// face takes are edited in a line or by choosing; a text that it refuses is not let go, and the reason is told.
class FlexGridDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    static constexpr int margin = 2;  // left and right of the text

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void refused(const QString& why) const;

private:
    QWidget* makeChoice(QWidget* parent, const QStringList& choices) const;
};

}  // namespace korvex
