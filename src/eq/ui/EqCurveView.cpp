#include "eq/ui/EqCurveView.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <array>

namespace korvex {

namespace {

constexpr int gap = 4;

QFont smaller(QFont font) {
    if (font.pointSizeF() > 0) font.setPointSizeF(font.pointSizeF() * 0.85);
    return font;
}

QString hertzText(int hertz) {
    return hertz < 1000 ? QString::number(hertz) : QStringLiteral("%1k").arg(hertz / 1000);
}

QString levelText(int level) {
    return level > 0 ? QStringLiteral("+%1").arg(level) : QString::number(level);
}

}  // namespace

EqCurveView::EqCurveView(QWidget* parent) : QWidget(parent) {
    setFont(smaller(font()));
    setAccessibleName(QStringLiteral("Response of the equalizer"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize EqCurveView::minimumSizeHint() const {
    return {fontMetrics().height() * 12, fontMetrics().height() * 4};
}

QSize EqCurveView::sizeHint() const {
    return {fontMetrics().height() * 24, fontMetrics().height() * 11};
}

void EqCurveView::show(const Set& shown, const Set& other) {
    m_shown = shown;
    m_other = other;
    const auto words = [](const Set& set) {
        return set.name + QStringLiteral(": ") +
               (set.values ? QString::fromStdString(eq::inWords(*set.values)) : QStringLiteral("not read"));
    };
    setAccessibleDescription(words(shown) + QLatin1Char('\n') + words(other));
    setToolTip(accessibleDescription());
    update();
}

QRect EqCurveView::plot() const {
    const QFontMetrics metrics = fontMetrics();
    const int left = metrics.horizontalAdvance(QStringLiteral("+20 dB")) + gap;
    return rect().adjusted(left, metrics.height() / 2, -metrics.horizontalAdvance(QStringLiteral("3k Hz")) / 2,
                           -metrics.height() - gap);
}

EqCurveView::Levels EqCurveView::levelsOf(const std::optional<EqValues>& values) const {
    return values ? eq::curve(*values, static_cast<std::size_t>(std::max(plot().width(), 2))) : Levels();
}

double EqCurveView::yOf(double level) const {
    const QRectF area = plot();
    return area.bottom() - (level - m_axis.lowest) / (m_axis.highest - m_axis.lowest) * area.height();
}

void EqCurveView::drawGrid(QPainter& painter) const {
    const QRect area = plot();
    const QFontMetrics metrics = fontMetrics();
    QColor line = palette().color(QPalette::Text);
    line.setAlphaF(0.25F);
    const auto pens = std::array{QPen(line), QPen(palette().color(QPalette::WindowText))};
    for (int level = m_axis.lowest; level <= m_axis.highest; level += eq::LevelAxis::step) {
        const int y = qRound(yOf(level));
        painter.setPen(pens[level == 0 ? 1 : 0]);
        painter.drawLine(area.left(), y, area.right(), y);
        painter.setPen(pens[1]);
        const QString text = levelText(level) + (level == m_axis.highest ? QStringLiteral(" dB") : QString());
        painter.drawText(QRect(0, y - metrics.height() / 2, area.left() - gap, metrics.height()),
                         Qt::AlignRight | Qt::AlignVCenter, text);
    }
    for (const int hertz : eq::hertzTicks) {
        const int x = area.left() + qRound(eq::placeOf(hertz) * area.width());
        painter.setPen(pens[0]);
        painter.drawLine(x, area.top(), x, area.bottom());
        painter.setPen(pens[1]);
        const QString text = hertzText(hertz) + (hertz == eq::hertzTicks.back() ? QStringLiteral(" Hz") : QString());
        const int width = metrics.horizontalAdvance(text);
        painter.drawText(x - width / 2, rect().bottom() - metrics.descent(), text);
    }
}

void EqCurveView::drawLevels(QPainter& painter, const Levels& levels, const QPen& pen) const {
    if (levels.empty()) return;
    const QRect area = plot();
    QPainterPath path(QPointF(area.left(), yOf(levels.front())));
    for (std::size_t i = 1; i < levels.size(); ++i) {
        path.lineTo(area.left() + static_cast<double>(i), yOf(levels[i]));
    }
    painter.setPen(pen);
    painter.drawPath(path);
}

/// Below the lines on the left, where no band reaches down.
void EqCurveView::drawNames(QPainter& painter, const QPen& shown, const QPen& other) const {
    const QRect area = plot();
    const QFontMetrics metrics = fontMetrics();
    int bottom = area.bottom() - gap;
    const auto draw = [&](const Set& set, const QPen& pen) {
        const int middle = bottom - metrics.height() / 2;
        painter.setPen(pen);
        painter.drawLine(area.left() + gap, middle, area.left() + gap + 24, middle);
        painter.setPen(palette().color(QPalette::Text));
        const QString text = set.values ? set.name : set.name + QStringLiteral(" (not read)");
        painter.drawText(area.left() + gap + 30, bottom - metrics.descent(), text);
        bottom -= metrics.height();
    };
    draw(m_other, other);
    draw(m_shown, shown);
}

void EqCurveView::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    const Levels shown = levelsOf(m_shown.values);
    const Levels other = levelsOf(m_other.values);
    m_axis = eq::levelAxis(shown, other);
    QPainter painter(this);
    painter.fillRect(plot(), palette().color(QPalette::Base));
    drawGrid(painter);
    QColor dim = palette().color(QPalette::Text);
    dim.setAlphaF(0.55F);
    const QPen behind(dim, 1.5, Qt::DashLine);
    const QPen front(palette().color(QPalette::Highlight), 2.5);
    painter.setRenderHint(QPainter::Antialiasing);
    drawLevels(painter, other, behind);
    drawLevels(painter, shown, front);
    drawNames(painter, front, behind);
}

}  // namespace korvex
