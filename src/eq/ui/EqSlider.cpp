#include "eq/ui/EqSlider.h"

#include <QKeyEvent>
#include <QMouseEvent>
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
    if (m_isGain) setToolTip(QStringLiteral("Double click or the key 0: 0 dB"));
    setMinimumHeight(70);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

int EqSlider::yOf(int value) const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect groove = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const QRect handle = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    const int travel = groove.height() - handle.height();
    return groove.top() + handle.height() / 2 +
           QStyle::sliderPositionFromValue(minimum(), maximum(), value, travel, true);
}

void EqSlider::drawFromZero(QPainter& painter) {
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawLine(rect().left(), yOf(0), rect().right(), yOf(0));
    const QRect bar(QPoint(rect().center().x() - 1, yOf(std::max(0, value()))),
                    QPoint(rect().center().x() + 1, yOf(std::min(0, value()))));
    painter.fillRect(bar, palette().color(QPalette::Highlight));
}

void EqSlider::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!m_isGain || event->button() != Qt::LeftButton) return QSlider::mouseDoubleClickEvent(event);
    setValue(0);
    event->accept();
}

void EqSlider::keyPressEvent(QKeyEvent* event) {
    if (!m_isGain || event->key() != Qt::Key_0) return QSlider::keyPressEvent(event);
    setValue(0);
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
    drawFromZero(painter);
    option.subControls = QStyle::SC_SliderHandle;
    style()->drawComplexControl(QStyle::CC_Slider, &option, &painter, this);
}

}  // namespace korvex
