#include "windows/ui/OutlineStyle.h"

#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace korvex {

namespace {

constexpr int fusionsShade = 140;  // per cent: an outline is the window's colour, that much darker

/// `share` per cent of the ink, the rest of the ground.
QColor mixed(const QColor& ground, const QColor& ink, int share) {
    const auto mix = [share](int below, int above) { return ((100 - share) * below + share * above) / 100; };
    return {mix(ground.red(), ink.red()), mix(ground.green(), ink.green()), mix(ground.blue(), ink.blue())};
}

/// How far two colours can be told apart, from 1 to 21, by the measure of the Web Content Accessibility Guidelines.
double contrast(const QColor& one, const QColor& other) {
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
    };
    const auto [darker, lighter] = std::minmax(luminance(one), luminance(other));
    return (lighter + 0.05) / (darker + 0.05);
}

/// The window's colour out of which Fusion makes an outline that can be seen; nothing where it does anyway.
std::optional<QColor> outliningWindow(const QPalette& palette) {
    constexpr double seen = 1.5;
    constexpr double highest = 20;  // nothing but black and white is as far apart
    const QColor window = palette.color(QPalette::Window);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    if (contrast(window, window.darker(fusionsShade)) >= seen && contrast(window, text) < highest) return std::nullopt;
    return mixed(window, text, 45).lighter(fusionsShade);
}

/// Draws with an option of type Option of which only the window's colour is another; false: it is none, or needs none.
template <typename Option, typename Draw>
bool drawOutlined(const QStyleOption* option, const Draw& draw) {
    const auto* known = qstyleoption_cast<const Option*>(option);
    const auto window = known ? outliningWindow(known->palette) : std::nullopt;
    if (!window) return false;
    Option outlined(*known);
    outlined.palette.setColor(QPalette::Window, *window);
    draw(outlined);
    return true;
}

}  // namespace

bool OutlineStyle::isFusion() const {
    return baseStyle()->name().compare(QLatin1String("fusion"), Qt::CaseInsensitive) == 0;
}

void OutlineStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    constexpr double read = 2;
    constexpr int pale = 55;
    using Role = QPalette::ColorRole;
    for (const auto& [text, ground] : {std::pair<Role, Role>{QPalette::WindowText, QPalette::Window},
                                       {QPalette::ButtonText, QPalette::Button},
                                       {QPalette::Text, QPalette::Base}}) {
        const QColor below = palette.color(QPalette::Disabled, ground);
        if (contrast(palette.color(QPalette::Disabled, text), below) >= read) continue;
        palette.setColor(QPalette::Disabled, text, mixed(below, palette.color(QPalette::Active, text), pale));
    }
}

void OutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    const auto draw = [&](const QStyleOption& outlined) {
        QProxyStyle::drawPrimitive(element, &outlined, painter, widget);
    };
    bool drawn = false;
    switch (isFusion() ? element : PE_Widget) {
        case PE_IndicatorCheckBox:
        case PE_IndicatorRadioButton:
        case PE_PanelButtonCommand: drawn = drawOutlined<QStyleOptionButton>(option, draw); break;
        case PE_Frame:
        case PE_FrameLineEdit:
        case PE_FrameGroupBox:
        case PE_FrameMenu: drawn = drawOutlined<QStyleOptionFrame>(option, draw); break;
        case PE_PanelMenu: drawn = drawOutlined<QStyleOptionMenuItem>(option, draw); break;
        default: break;
    }
    if (!drawn) QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void OutlineStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    const auto draw = [&](const QStyleOption& outlined) {
        QProxyStyle::drawControl(element, &outlined, painter, widget);
    };
    const bool isBar = element == CE_ProgressBarGroove || element == CE_ProgressBarContents;
    if (isBar && isFusion() && drawOutlined<QStyleOptionProgressBar>(option, draw)) return;
    if (element == CE_MenuItem && isFusion() && drawOutlined<QStyleOptionMenuItem>(option, draw)) return;
    QProxyStyle::drawControl(element, option, painter, widget);
}

void OutlineStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
    const auto draw = [&](const QStyleOptionComplex& outlined) {
        QProxyStyle::drawComplexControl(control, &outlined, painter, widget);
    };
    bool drawn = false;
    switch (isFusion() ? control : CC_CustomBase) {
        case CC_Slider:
        case CC_ScrollBar: drawn = drawOutlined<QStyleOptionSlider>(option, draw); break;
        case CC_ComboBox: drawn = drawOutlined<QStyleOptionComboBox>(option, draw); break;
        case CC_SpinBox: drawn = drawOutlined<QStyleOptionSpinBox>(option, draw); break;
        default: break;
    }
    if (!drawn) QProxyStyle::drawComplexControl(control, option, painter, widget);
}

int OutlineStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* more) const {
    constexpr int quarter = 25;
    if (hint != SH_Table_GridLineColor || option == nullptr) {
        return QProxyStyle::styleHint(hint, option, widget, more);
    }
    const QColor line = mixed(option->palette.color(QPalette::Base), option->palette.color(QPalette::Text), quarter);
    return static_cast<int>(line.rgb());
}

}  // namespace korvex
