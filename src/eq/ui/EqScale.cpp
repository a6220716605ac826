#include "eq/ui/EqScale.h"

#include <QFontMetrics>
#include <QPainter>

#include "eq/EqItems.h"
#include "eq/ui/EqSlider.h"

namespace korvex {

namespace {

constexpr int shortTick = 1;
constexpr int longTick = 3;
constexpr int textLeft = longTick + 4;  // else a line looks like a minus

}  // namespace

EqScale::EqScale(const EqItem& item, const EqSlider& slider) : m_item(item), m_slider(slider) {
    QFont small = font();
    if (small.pointSizeF() > 0) small.setPointSizeF(small.pointSizeF() * 0.8);
    setFont(small);
    int widest = 0;
    for (const auto& mark : eq::scaleMarks(item)) {
        widest = std::max(widest, fontMetrics().horizontalAdvance(QString::fromStdString(mark.text)));
    }
    setFixedWidth(textLeft + widest);
}

void EqScale::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    const int pixelsPerStep =
        (m_slider.yOf(m_item.lowest) - m_slider.yOf(m_item.highest)) * m_item.step / (m_item.highest - m_item.lowest);
    if (pixelsPerStep > 2) {
        for (int value = m_item.lowest; value <= m_item.highest; value += m_item.step) {
            painter.drawLine(0, m_slider.yOf(value), shortTick, m_slider.yOf(value));
        }
    }
    const QFontMetrics metrics = fontMetrics();
    int lastBottom = 0;
    for (const auto& mark : eq::scaleMarks(m_item)) {
        const int y = m_slider.yOf(mark.value);
        painter.drawLine(0, y, longTick, y);
        const int top = std::clamp(y - metrics.height() / 2, 0, height() - metrics.height());
        if (top < lastBottom) continue;  // too little room for all words
        painter.drawText(textLeft, top + metrics.ascent(), QString::fromStdString(mark.text));
        lastBottom = top + metrics.height();
    }
}

}  // namespace korvex
