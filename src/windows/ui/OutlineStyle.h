#pragma once

#include <QProxyStyle>

namespace korvex {

/// The desktop's style with outlines that can be seen on every palette. Fusion's are a darker shade of the window's
/// colour: in a black window boxes, fields and sliders would have none. Other styles draw as ever. With all of them,
/// disabled text that a palette leaves in the colour of its ground is made one that can be read, and the lines of grids
/// are mixed from ground and text: the toolkit's are a shade of the window's colour, which in a dark one is the cells'.
class OutlineStyle : public QProxyStyle {
    Q_OBJECT

public:
    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override;

private:
    bool isFusion() const;
    int titleHeight(const QWidget* group) const;
};

}  // namespace korvex
