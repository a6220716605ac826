#include "windows/ui/ColorButton.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>

#include "windows/ui/Colors.h"

namespace korvex {

namespace {

void drawMark(QPainter& painter, const QRectF& face, const QColor& colour) {
    const double side = face.height() / 4;
    const QPointF tip(face.left() + 2.5 * side, face.center().y());
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(QPolygonF({tip, tip + QPointF(-side, -side / 1.5), tip + QPointF(-side, side / 1.5)}));
}

}  // namespace

void ColorButton::setBackColor(int bbggrr) {
    korvex::setBackColor(*this, bbggrr);
}

void ColorButton::setMarked(bool marked) {
    m_marked = marked;
    update();
}

void ColorButton::paintEvent(QPaintEvent*) {
    QStyleOptionButton option;
    initStyleOption(&option);
    const QColor back = option.palette.color(QPalette::Button);
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const bool hovered = enabled && option.state.testFlag(QStyle::State_MouseOver);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF face = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(back.darker(!enabled ? 130 : hovered ? 260 : 180), 1));
    painter.setBrush(isDown() ? back.darker(118) : back);
    painter.drawRoundedRect(face, 4, 4);
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter.setPen(QPen(readableOn(back), 1, Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(face.adjusted(3, 3, -3, -3), 2, 2);
    }
    if (m_marked) drawMark(painter, face, readableOn(back));
    style()->drawControl(QStyle::CE_PushButtonLabel, &option, &painter, this);
}

void ColorButton::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !event->isAutoRepeat()) {
        click();
    } else {
        QPushButton::keyPressEvent(event);
    }
}

}  // namespace korvex
