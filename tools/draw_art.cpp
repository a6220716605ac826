// Draws SVG files as PNG at build time, so that the start window needs no drawing at start:
//
//   draw_art OUT_FOLDER FILE.svg:WIDTHxHEIGHT ...   ->   OUT_FOLDER/FILE@WIDTHxHEIGHT.png

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

namespace {

bool draw(const QString& folder, const QString& order) {
    const QString file = order.section(QLatin1Char(':'), 0, 0);
    const QString size = order.section(QLatin1Char(':'), 1, 1);
    QSvgRenderer drawing(file);
    drawing.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage image(size.section(QLatin1Char('x'), 0, 0).toInt(), size.section(QLatin1Char('x'), 1, 1).toInt(),
                 QImage::Format_ARGB32_Premultiplied);
    if (!drawing.isValid() || image.isNull()) return false;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    return image.save(folder + QLatin1Char('/') + QFileInfo(file).completeBaseName() + QLatin1Char('@') + size +
                      QStringLiteral(".png"));
}

}  // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 3) return 2;
    for (const QString& order : arguments.mid(2)) {
        if (draw(arguments.at(1), order)) continue;
        std::fprintf(stderr, "draw_art: cannot draw %s\n", qPrintable(order));
        return 1;
    }
    return 0;
}
