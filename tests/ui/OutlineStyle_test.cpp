#include "windows/ui/OutlineStyle.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPainter>
#include <QSlider>
#include <QStyleFactory>
#include <QStyleOption>
#include <gtest/gtest.h>
#include <memory>
#include <set>

namespace korvex {
namespace {

/// The number of colours that a control shows in a window of this palette.
template <class Control>
std::size_t colours(const QPalette& palette, QStyle& style) {
    Control control;
    control.setStyle(&style);
    control.setPalette(palette);
    control.resize(60, 60);
    const QImage image = control.grab().toImage();
    std::set<QRgb> found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) found.insert(image.pixel(x, y));
    }
    return found.size();
}

QPalette plain(const QColor& ground, const QColor& ink) {
    QPalette palette(ink, ground, ground, ground, ground, ink, ground);
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
        palette.setColor(QPalette::Disabled, role, ground);
    return palette;
}

TEST(OutlineStyle, ShowsInABlackWindowWhereBoxesFieldsAndSlidersAre) {
    const QPalette black = plain(Qt::black, Qt::white);
    OutlineStyle style;
    style.setBaseStyle(QStyleFactory::create(QStringLiteral("fusion")));
    EXPECT_GT(colours<QCheckBox>(black, style), 1U);
    EXPECT_GT(colours<QLineEdit>(black, style), 1U);
    EXPECT_GT(colours<QSlider>(black, style), 1U);

    const std::unique_ptr<QStyle> fusion(QStyleFactory::create(QStringLiteral("fusion")));
    const QPalette usual = fusion->standardPalette();
    EXPECT_EQ(colours<QCheckBox>(usual, style), colours<QCheckBox>(usual, *fusion)) << "nothing needs to be mended";
}

TEST(OutlineStyle, ShowsGroupsAndHeadingsInABlackWindow) {
    OutlineStyle style;
    style.setBaseStyle(QStyleFactory::create(QStringLiteral("fusion")));
    const auto drawn = [&style](QStyleOption& option, auto draw) {
        option.palette = plain(Qt::black, Qt::white);
        option.rect = QRect(0, 0, 40, 20);
        QImage image(40, 20, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        draw(painter);
        return qGray(image.pixel(20, 19)) > 80 && qGray(image.pixel(39, 10)) > 80;
    };
    QStyleOptionFrame group;
    EXPECT_TRUE(drawn(
        group, [&](QPainter& painter) { style.drawPrimitive(QStyle::PE_FrameGroupBox, &group, &painter, nullptr); }));
    QStyleOptionHeader heading;
    EXPECT_TRUE(drawn(
        heading, [&](QPainter& painter) { style.drawControl(QStyle::CE_HeaderSection, &heading, &painter, nullptr); }));
}

TEST(OutlineStyle, LetsDisabledTextBeRead) {
    OutlineStyle style;
    QPalette black = plain(Qt::black, Qt::white);
    style.polish(black);
    EXPECT_GT(qGray(black.color(QPalette::Disabled, QPalette::ButtonText).rgb()), 100);
    QPalette grey = plain(Qt::black, Qt::white);
    grey.setColor(QPalette::Disabled, QPalette::Text, QColor(120, 120, 120));
    style.polish(grey);
    EXPECT_EQ(grey.color(QPalette::Disabled, QPalette::Text), QColor(120, 120, 120)) << "the desktop's choice";

    black.setColor(QPalette::PlaceholderText, Qt::black);
    style.polish(black);
    EXPECT_GT(qGray(black.color(QPalette::Active, QPalette::PlaceholderText).rgb()), 100);
}

TEST(OutlineStyle, DrawsGridLinesThatAreNoneOfTheCellsColours) {
    const OutlineStyle style;
    QStyleOption option;
    option.palette = plain(Qt::black, Qt::white);
    const auto line = static_cast<QRgb>(style.styleHint(QStyle::SH_Table_GridLineColor, &option, nullptr, nullptr));
    EXPECT_GT(qGray(line), 40);
    EXPECT_LT(qGray(line), 200);
}

}  // namespace
}  // namespace korvex
