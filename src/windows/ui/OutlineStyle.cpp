#include "windows/ui/OutlineStyle.h"

#include <QFrame>
#include <QGroupBox>
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
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// A line on the window's colour that can be seen; for what Fusion draws in shades of black whatever the palette is.
QColor lineOn(const QPalette& palette) {
    constexpr int share = 45;
    return mixed(palette.color(QPalette::Window), palette.color(QPalette::Active, QPalette::WindowText), share);
}

/// The window's colour out of which Fusion makes an outline that can be seen; nothing where it does anyway.
std::optional<QColor> outliningWindow(const QPalette& palette) {
    constexpr double seen = 1.5;
    constexpr double highest = 20;  // nothing but black and white is as far apart
    const QColor window = palette.color(QPalette::Window);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    if (contrast(window, window.darker(fusionsShade)) >= seen && contrast(window, text) < highest) return std::nullopt;
    return lineOn(palette).lighter(fusionsShade);
}

/// Below the title, where Fusion has its frame.
void drawGroupFrame(QPainter& painter, const QStyleOption& option, int titleHeight) {
    painter.save();
    painter.setPen(lineOn(option.palette));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(0, titleHeight, -1, -1));
    painter.restore();
}

/// Whether it was a line across or down that Fusion would not have shown.
bool drewRule(QPainter& painter, const QStyleOption& option) {
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
    const bool isAcross = frame && frame->frameShape == QFrame::HLine;
    const bool isDown = frame && frame->frameShape == QFrame::VLine;
    if ((!isAcross && !isDown) || !outliningWindow(option.palette)) return false;
    const QPoint middle = option.rect.center();
    painter.fillRect(isAcross ? QRect(option.rect.left(), middle.y(), option.rect.width(), 1)
                              : QRect(middle.x(), option.rect.top(), 1, option.rect.height()),
                     lineOn(option.palette));
    return true;
}

/// Below a heading and behind it.
void drawHeadingLines(QPainter& painter, const QStyleOption& option) {
    const QRect& place = option.rect;
    painter.fillRect(QRect(place.left(), place.bottom(), place.width(), 1), lineOn(option.palette));
    painter.fillRect(QRect(place.right(), place.top(), 1, place.height()), lineOn(option.palette));
}

/// A hint in an empty field, where the palette leaves it in the colour of its ground.
void keepHintReadable(QPalette& palette) {
    constexpr double read = 2;
    constexpr int pale = 60;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor ground = palette.color(group, QPalette::Base);
        const QColor hint = palette.color(group, QPalette::PlaceholderText);
        if (contrast(mixed(ground, hint, static_cast<int>(100 * hint.alphaF())), ground) >= read) continue;
        palette.setColor(group, QPalette::PlaceholderText,
                         mixed(ground, palette.color(QPalette::Active, QPalette::Text), pale));
    }
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
    keepHintReadable(palette);
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

int OutlineStyle::titleHeight(const QWidget* widget) const {
    constexpr int fusionsMargin = 3;
    const auto* group = qobject_cast<const QGroupBox*>(widget);
    if (!group || group->title().isEmpty()) return 0;
    return std::max(pixelMetric(PM_IndicatorHeight, nullptr, widget), widget->fontMetrics().height()) + fusionsMargin;
}

void OutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    const auto draw = [&](const QStyleOption& outlined) {
        QProxyStyle::drawPrimitive(element, &outlined, painter, widget);
    };
    if (element == PE_FrameGroupBox && isFusion() && outliningWindow(option->palette)) {
        return drawGroupFrame(*painter, *option, titleHeight(widget));
    }
    bool drawn = false;
    switch (isFusion() ? element : PE_Widget) {
        case PE_IndicatorCheckBox:
        case PE_IndicatorRadioButton:
        case PE_PanelButtonCommand: drawn = drawOutlined<QStyleOptionButton>(option, draw); break;
        case PE_Frame:
        case PE_FrameLineEdit:
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
    if (element == CE_ShapedFrame && isFusion() && drewRule(*painter, *option)) return;
    if (element == CE_MenuItem && isFusion() && drawOutlined<QStyleOptionMenuItem>(option, draw)) return;
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_HeaderSection && isFusion() && outliningWindow(option->palette)) {
        drawHeadingLines(*painter, *option);
    }
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
