#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>
#include <QWidget>

namespace korvex {

/// A drawing of the program's resources (":/images/save-menu.svg"), centred in `size`, sharp at every screen's scale.
/// Where it was drawn in that size at build time, nothing is drawn now.
QPixmap svgPixmap(const QString& resource, QSize size, qreal devicePixelRatio);

/// An icon of one drawing. The sizes are drawn at once and once more for screens of twice the density: no plugin is
/// looked for at start.
QIcon svgIcon(const QString& resource, std::initializer_list<int> sizes = {24});

/// The program's own icon, for QApplication::setWindowIcon.
QIcon programIcon();

/// A drawing as a control.
class SvgPicture : public QWidget {
    Q_OBJECT

public:
    explicit SvgPicture(QString resource, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_resource;
    QPixmap m_drawn;
};

}  // namespace korvex
