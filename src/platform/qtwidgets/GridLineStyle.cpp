#include "platform/qtwidgets/GridLineStyle.h"

#include <QStyleOption>

namespace korvex {

namespace {

int mixed(int base, int text) {
    return (3 * base + text) / 4;
}

}  // namespace

int GridLineStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* more) const {
    if (hint != SH_Table_GridLineColor || option == nullptr) {
        return QProxyStyle::styleHint(hint, option, widget, more);
    }
    const QColor base = option->palette.color(QPalette::Base);
    const QColor text = option->palette.color(QPalette::Text);
    const QColor line(mixed(base.red(), text.red()), mixed(base.green(), text.green()),
                      mixed(base.blue(), text.blue()));
    return static_cast<int>(line.rgb());
}

}  // namespace korvex
