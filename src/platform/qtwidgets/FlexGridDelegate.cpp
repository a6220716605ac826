#include "platform/qtwidgets/FlexGridDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>

#include "platform/qtwidgets/FlexGridModel.h"

namespace korvex {

namespace {

/// More than any cell can show: measuring a whole line out of a damaged file would stop the window for seconds.
constexpr qsizetype longestMeasured = 2000;

void drawFrame(QPainter& painter, const QStyleOptionViewItem& option) {
    const bool focused = option.widget && option.widget->hasFocus();
    const int width = focused ? 2 : 1;
    painter.setPen(QPen(option.palette.color(focused ? QPalette::Highlight : QPalette::Dark), width, Qt::SolidLine,
                        Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    const QRectF inside = QRectF(option.rect).adjusted(width / 2.0, width / 2.0, -width / 2.0, -width / 2.0);
    painter.drawRect(inside);
}

}  // namespace

void FlexGridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    painter->save();
    const QVariant background = index.data(Qt::BackgroundRole);
    if (background.isValid()) painter->fillRect(option.rect, background.value<QBrush>());

    const QVariant ink = index.data(Qt::ForegroundRole);
    painter->setPen(ink.isValid() ? ink.value<QBrush>().color() : option.palette.color(QPalette::Text));
    painter->setFont(option.font);
    QRect textRect = option.rect.adjusted(margin, 0, -margin, 0);
    if (const QString sign = index.data(FlexGridModel::signRole).toString(); !sign.isEmpty()) {
        painter->drawText(textRect, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, sign);
        textRect.setRight(textRect.right() - option.fontMetrics.horizontalAdvance(sign) - margin);
    }
    const QString text = option.fontMetrics.elidedText(index.data().toString().left(longestMeasured), Qt::ElideRight,
                                                       textRect.width(), Qt::TextSingleLine);
    painter->drawText(textRect, index.data(Qt::TextAlignmentRole).toInt() | Qt::TextSingleLine, text);

    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    if (view && view->currentIndex() == index) drawFrame(*painter, option);
    painter->restore();
}

bool FlexGridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data().toString().left(longestMeasured);
    const QString meaning = index.data(Qt::ToolTipRole).toString();
    const bool isCut = view->fontMetrics().horizontalAdvance(text + index.data(FlexGridModel::signRole).toString()) >
                       option.rect.width() - 3 * margin;
    const QString told = isCut && !meaning.isEmpty() ? text + QLatin1Char('\n') + meaning : isCut ? text : meaning;
    QToolTip::showText(event->globalPos(), told.isEmpty() ? told : Qt::convertFromPlainText(told, Qt::WhiteSpaceNormal),
                       view);
    return true;
}

}  // namespace korvex
