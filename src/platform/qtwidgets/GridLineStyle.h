#pragma once

#include <QProxyStyle>

namespace korvex {

/// Grid lines that can be seen on any palette: the toolkit's own are a shade of the window's colour, which in a dark
/// one is that of the cells.
class GridLineStyle : public QProxyStyle {
    Q_OBJECT

public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override;
};

}  // namespace korvex
