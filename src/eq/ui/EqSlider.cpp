#include "eq/ui/EqSlider.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>
#include <algorithm>

#include "eq/EqItems.h"

namespace korvex {

EqSlider::EqSlider(const EqItem& item) : QSlider(Qt::Vertical), m_isGain(item.kind == EqItem::Kind::Gain) {
    setRange(item.lowest, item.highest);
    setSingleStep(item.step);
    setPageStep(item.step);
    setValue(item.initial);
    setAccessibleName(QString::fromLatin1(item.name.data(), static_cast<qsizetype>(item.name.size())));
    setMinimumHeight(70);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void EqSlider::drawFromZero(QPainter& painter, const QStyleOptionSlider& option) {
    const QRect groove = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const QRect handle = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    const int travel = groove.height() - handle.height();
    const int middleOfHandle = groove.top() + handle.height() / 2;
    const auto yOf = [&](int value) {
        return middleOfHandle + QStyle::sliderPositionFromValue(minimum(), maximum(), value, travel, true);
    };
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawLine(rect().left(), yOf(0), rect().right(), yOf(0));
    const QRect bar(QPoint(rect().center().x() - 1, yOf(std::max(0, value()))),
                    QPoint(rect().center().x() + 1, yOf(std::min(0, value()))));
    painter.fillRect(bar, palette().color(QPalette::Highlight));
}

void EqSlider::paintEvent(QPaintEvent* event) {
    if (!m_isGain) {
        QSlider::paintEvent(event);
        return;
    }
    QPainter painter(this);
    QStyleOptionSlider option;
    initStyleOption(&option);
    QStyleOptionSlider groove = option;
    groove.subControls = QStyle::SC_SliderGroove;
    groove.sliderPosition = minimum();  // no bar from below
    groove.palette.setColor(QPalette::Highlight, palette().color(QPalette::Button));
    style()->drawComplexControl(QStyle::CC_Slider, &groove, &painter, this);
    drawFromZero(painter, option);
    option.subControls = QStyle::SC_SliderHandle;
    style()->drawComplexControl(QStyle::CC_Slider, &option, &painter, this);
}

}  // namespace korvex
