#include "windows/ui/ElidedLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <algorithm>

namespace korvex {

ElidedLabel::ElidedLabel(QWidget* parent, Qt::TextElideMode mode) : QLabel(parent), m_mode(mode) {
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const {
    const QSize whole = QLabel::minimumSizeHint();
    if (wordWrap()) return whole;
    return {std::min(whole.width(), fontMetrics().averageCharWidth() * 6), whole.height()};
}

QString ElidedLabel::shown() const {
    const int room = contentsRect().width() - 2 * margin();
    return fontMetrics().elidedText(text(), m_mode, room);
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
    const QString fits = shown();
    if (wordWrap() || fits == text()) return QLabel::paintEvent(event);
    QPainter painter(this);
    drawFrame(&painter);
    style()->drawItemText(&painter, contentsRect().adjusted(margin(), margin(), -margin(), -margin()),
                          static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())), palette(),
                          isEnabled(), fits, foregroundRole());
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || wordWrap() || shown() == text()) return QLabel::event(event);
    const QString own = toolTip();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       own.isEmpty() ? text() : text() + QLatin1Char('\n') + own, this);
    return true;
}

}  // namespace korvex
