#include "windows/ui/SvgArt.h"

#include <QFileInfo>
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

/// The drawing as it was made at build time, if it was made in this size.
QPixmap drawnBefore(const QString& resource, QSize pixels) {
    return QPixmap(QStringLiteral(":/drawn/%1@%2x%3.png")
                       .arg(QFileInfo(resource).completeBaseName())
                       .arg(pixels.width())
                       .arg(pixels.height()));
}

}  // namespace

QPixmap svgPixmap(const QString& resource, QSize size, qreal devicePixelRatio) {
    QPixmap ready = drawnBefore(resource, (QSizeF(size) * devicePixelRatio).toSize());
    if (!ready.isNull()) {
        ready.setDevicePixelRatio(devicePixelRatio);
        return ready;
    }
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
    QIcon icon;
    for (const int size : {16, 32, 64}) {
        icon.addPixmap(svgPixmap(QStringLiteral(":/images/korvex.svg"), QSize(size, size), 1));
    }
    return icon;
}

SvgPicture::SvgPicture(QString resource, QWidget* parent) : QWidget(parent), m_resource(std::move(resource)) {}

void SvgPicture::paintEvent(QPaintEvent*) {
    const qreal ratio = devicePixelRatioF();
    if (m_drawn.size() != (QSizeF(size()) * ratio).toSize()) m_drawn = svgPixmap(m_resource, size(), ratio);
    QPainter(this).drawPixmap(0, 0, m_drawn);
}

}  // namespace korvex
