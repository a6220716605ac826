#include <QAccessible>
#include <QImage>
#include <QMenuBar>

#include "app/ui/frmUtilities.h"
#include "fakes/FakeDialogs.h"
#include "fakes/VirtualClock.h"
#include "ui/Widgets.h"

namespace korvex {
namespace {

struct StartWindowUi : testing::Test {
    StartWindowUi() {
        for (auto& enabled : logic.enabled) enabled = true;
    }
    QPushButton* button(int tool) { return window.findChild<QPushButton*>(QStringLiteral("Command1_%1").arg(tool)); }
    QRgb colorOf(const QWidget* control) {
        const QPoint inside = control->mapTo(&window, QPoint(20, 8));  // beside the caption
        return window.grab().toImage().pixel(inside) & RGB_MASK;
    }

    fakes::VirtualClock clock;
    fakes::FakeSettings settings;
    std::vector<std::string> calls;
    bool mayUnload = true;
    StartWindow logic{
        clock,
        {[this] { calls.push_back("close equalizer port"); }, [this] { calls.push_back("hide tools"); },
         [this](int tool) { calls.push_back("open " + std::to_string(tool)); }, [this] { calls.push_back("help"); },
         [this] {
             calls.push_back("unload");
             return mayUnload;
         }}};
    frmUtilities window{logic, settings, [this](QWidget* owner) {
                            calls.push_back(owner == &window ? "about" : "about of another window");
                        }};
};

TEST_F(StartWindowUi, ShowsThePictureAndSixButtonsWhole) {
    window.show();
    EXPECT_EQ(window.size(), QSize(411, 515));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Korvex"));
    const auto* picture = control<QWidget>(window, "Picture1");
    EXPECT_EQ(picture->geometry(), QRect(25, 16, 360, 150));
    EXPECT_NE(window.grab().toImage().pixel(picture->mapTo(&window, picture->rect().center())),
              window.palette().color(QPalette::Window).rgb());
    int bottom = picture->geometry().bottom();
    const QRect face(QPoint(), picture->parentWidget()->size());
    for (int tool = 0; tool < StartWindow::toolCount; ++tool) {
        const QRect place = button(tool)->geometry();
        EXPECT_EQ(place.top(), bottom + 11) << tool;
        EXPECT_EQ(place.left(), 25);
        EXPECT_EQ(place.width(), 360);
        EXPECT_GE(place.width(), button(tool)->sizeHint().width());
        bottom = place.bottom();
    }
    EXPECT_EQ(picture->parentWidget()->visibleRegion().boundingRect(), face);  // nothing to scroll
    EXPECT_LT(bottom, face.bottom());
    EXPECT_EQ(button(4)->text(), QStringLiteral("Band Stack Register Saver"));
}

TEST_F(StartWindowUi, AClickPaintsTheButtonGreenAndAResizeOrangeAgain) {
    window.show();
    EXPECT_EQ(colorOf(button(1)), 0xFFC080u);
    QTest::mouseClick(button(1), Qt::LeftButton);
    EXPECT_EQ(colorOf(button(1)), 0x80FF80u);
    EXPECT_EQ(colorOf(button(0)), 0xFFC080u);
    EXPECT_EQ(button(1)->accessibleDescription(), QStringLiteral("in use"));
    window.resize(600, 600);
    EXPECT_EQ(colorOf(button(1)), 0xFFC080u);
    EXPECT_EQ(button(1)->x(), 120);  // centred anew
    QTest::keyClick(button(5), Qt::Key_Return);
    clock.advance(300);
    EXPECT_EQ(calls.back(), "open 5");
    logic.enabled[3] = false;
    QTest::mouseClick(button(3), Qt::LeftButton);
    EXPECT_EQ(colorOf(button(3)), 0xFFC080u);
}

TEST_F(StartWindowUi, ItsMenusAct) {
    window.show();
    const auto bar = window.menuBar()->actions();
    ASSERT_EQ(bar.size(), 3);
    EXPECT_EQ(bar[0]->text(), QStringLiteral("Files"));
    EXPECT_EQ(bar[1]->text(), QStringLiteral("Help"));
    EXPECT_EQ(bar[2]->text(), QStringLiteral("About"));
    // As assistive programs press them.
    QAccessibleInterface* shown = QAccessible::queryAccessibleInterface(window.menuBar());
    for (const int entry : {1, 2}) {
        ASSERT_TRUE(shown->child(entry) && shown->child(entry)->actionInterface());
        EXPECT_EQ(shown->child(entry)->text(QAccessible::Name), bar[entry]->text());
        shown->child(entry)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCoreApplication::processEvents();
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, (std::vector<std::string>{"help", "about"}));
}

TEST_F(StartWindowUi, ExitStoresThePlaceAndStaysWhenTheUserWantsToStay) {
    window.show();
    EXPECT_EQ(control<QAction>(window, "mnu_Exit")->text(), QStringLiteral("Exit Program"));
    mayUnload = false;
    choose(window, "mnu_Exit");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(settings.values["Settings/UtilitiesWidth"], "6165");

    window.move(30, 40);
    window.resize(500, 520);
    mayUnload = true;
    choose(window, "mnu_Exit");
    EXPECT_FALSE(window.isVisible());
    const std::map<std::string, std::string> stored = {{"Settings/UtilitiesHeight", "7800"},
                                                       {"Settings/UtilitiesLeft", "450"},
                                                       {"Settings/UtilitiesTop", "600"},
                                                       {"Settings/UtilitiesWidth", "7500"}};
    EXPECT_EQ(settings.values, stored);
}

TEST_F(StartWindowUi, AMinimizedWindowKeepsTheStoredPlace) {
    settings.values["Settings/UtilitiesLeft"] = "777";
    window.showMinimized();
    window.close();
    EXPECT_EQ(settings.values["Settings/UtilitiesLeft"], "777");
    EXPECT_EQ(settings.values.count("Settings/UtilitiesWidth"), 0u);
}

}  // namespace
}  // namespace korvex
