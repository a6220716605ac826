#include "app/ui/SvgArt.h"

#include <QPainter>
#include <QSvgRenderer>

namespace korvex {

namespace {

QPixmap drawn(QSvgRenderer& drawing, QSize size, qreal devicePixelRatio) {
    QPixmap pixmap((QSizeF(size) * devicePixelRatio).toSize());
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawing.render(&painter, QRectF(QPointF(), QSizeF(size)));
    return pixmap;
}

}  // namespace

QPixmap svgPixmap(const QString& resource, QSize size, qreal devicePixelRatio) {
    QSvgRenderer drawing(resource);
    drawing.setAspectRatioMode(Qt::KeepAspectRatio);
    return drawn(drawing, size, devicePixelRatio);
}

QIcon svgIcon(const QString& resource, std::initializer_list<int> sizes) {
    QSvgRenderer drawing(resource);
    drawing.setAspectRatioMode(Qt::KeepAspectRatio);
    QIcon icon;
    for (const int size : sizes) {
        for (const qreal ratio : {1.0, 2.0}) icon.addPixmap(drawn(drawing, QSize(size, size), ratio));
    }
    return icon;
}

QIcon programIcon() {
    return svgIcon(QStringLiteral(":/images/korvex.svg"), {16, 32, 64});
}

SvgPicture::SvgPicture(QString resource, QWidget* parent) : QWidget(parent), m_resource(std::move(resource)) {}

void SvgPicture::paintEvent(QPaintEvent*) {
    const qreal ratio = devicePixelRatioF();
    if (m_drawn.size() != (QSizeF(size()) * ratio).toSize()) m_drawn = svgPixmap(m_resource, size(), ratio);
    QPainter(this).drawPixmap(0, 0, m_drawn);
}

}  // namespace korvex
