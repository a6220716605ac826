#include "platform/qtwidgets/FlexGridHeader.h"

#include <QPainter>
#include <QStyleOptionHeader>
#include <algorithm>

#include "platform/qtwidgets/FlexGridDelegate.h"
#include "platform/qtwidgets/FlexGridModel.h"

namespace korvex {

namespace {

constexpr int margin = FlexGridDelegate::margin;
constexpr int mostLines = 2;

void paintLabel(QPainter& painter, const QWidget& widget, const QStyleOptionHeader& frame, Qt::Alignment alignment,
                const QString& text) {
    widget.style()->drawControl(QStyle::CE_HeaderSection, &frame, &painter, &widget);
    painter.setPen(frame.palette.color(QPalette::ButtonText));
    painter.drawText(frame.rect.adjusted(margin, 0, -margin, 0), int(alignment) | Qt::TextWordWrap, text);
}

}  // namespace

FlexGridHeader::FlexGridHeader(Qt::Orientation orientation, QWidget* parent) : QHeaderView(orientation, parent) {
    setMinimumSectionSize(1);
    setHighlightSections(false);
    setSectionsClickable(false);
    setDefaultAlignment(orientation == Qt::Horizontal ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
    setSectionResizeMode(orientation == Qt::Horizontal ? Interactive : Fixed);
}

int FlexGridHeader::heightForTitles() const {
    int highest = fontMetrics().height();
    for (int section = 0; section < count(); ++section) {
        const QString text = model()->headerData(section, Qt::Horizontal).toString();
        const QRect room(0, 0, std::max(sectionSize(section) - 2 * margin, 1), 1000);
        highest =
            std::max(highest, fontMetrics().boundingRect(room, Qt::AlignCenter | Qt::TextWordWrap, text).height());
    }
    return std::min(highest, mostLines * fontMetrics().lineSpacing()) + 6;
}

void FlexGridHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    if (!rect.isValid()) return;
    painter->save();
    QStyleOptionHeader frame;
    initStyleOption(&frame);
    frame.rect = rect;
    frame.section = section;
    const QVariant background = model()->headerData(section, orientation(), Qt::BackgroundRole);
    if (background.isValid()) frame.palette.setBrush(QPalette::Button, background.value<QBrush>());
    const QVariant ink = model()->headerData(section, orientation(), Qt::ForegroundRole);
    if (ink.isValid()) frame.palette.setBrush(QPalette::ButtonText, ink.value<QBrush>());
    paintLabel(*painter, *this, frame, defaultAlignment(), model()->headerData(section, orientation()).toString());
    const QString sign = model()->headerData(section, orientation(), FlexGridModel::signRole).toString();
    painter->drawText(rect.adjusted(0, 0, -margin, 0), Qt::AlignRight | Qt::AlignVCenter, sign);
    painter->restore();
}

void FlexGridCorner::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QStyleOptionHeader frame;
    frame.initFrom(this);
    frame.orientation = Qt::Horizontal;
    paintLabel(painter, *this, frame, Qt::AlignCenter, text());
}

}  // namespace korvex
