#include "windows/ui/Colors.h"

#include <QPalette>
#include <QWidget>

namespace korvex {

QColor colorFrom(int bbggrr) {
    return QColor(bbggrr & 0xFF, (bbggrr >> 8) & 0xFF, (bbggrr >> 16) & 0xFF);
}

QColor readableOn(const QColor& background) {
    return qGray(background.rgb()) > 110 ? QColor(Qt::black) : QColor(Qt::white);
}

QColor palerOn(const QColor& background) {
    const QColor text = readableOn(background);
    const auto mix = [](int of, int with) { return (of * 62 + with * 38) / 100; };
    return QColor(mix(text.red(), background.red()), mix(text.green(), background.green()),
                  mix(text.blue(), background.blue()));
}

void setBackColor(QWidget& control, int bbggrr) {
    const QColor back = colorFrom(bbggrr);
    QPalette palette = control.palette();
    for (const auto role : {QPalette::Button, QPalette::Base, QPalette::Window}) palette.setColor(role, back);
    for (const auto role : {QPalette::ButtonText, QPalette::Text, QPalette::WindowText}) {
        palette.setColor(role, readableOn(back));
        palette.setColor(QPalette::Disabled, role, palerOn(back));
    }
    control.setPalette(palette);
}

}  // namespace korvex
