#include <QAccessible>
#include <QGuiApplication>
#include <QImage>
#include <QMenuBar>
#include <QProgressBar>
#include <QScreen>
#include <gtest/gtest.h>
#include <vector>

#include "app/ui/frmAbout.h"
#include "app/ui/frmUtilities.h"
#include "fakes/FakeDialogs.h"
#include "fakes/ProgramBench.h"
#include "fakes/VirtualClock.h"
#include "ui/Widgets.h"
#include "windows/ui/ToolWindow.h"
#include "windows/ui/frmProgr.h"

namespace korvex {
namespace {

struct Window : ToolWindow {
    Window(const WindowGeometry& rule, SettingsStore& settings) : ToolWindow(rule, settings) { loadPlace(); }
};

TEST(ToolWindow, WhatWasNotTouchedKeepsItsTwips) {
    fakes::FakeSettings settings;
    {
        Window window(geometry::terminal, settings);
        window.show();
        EXPECT_EQ(window.geometry().size(), QSize(433, 567));
        window.close();
    }
    EXPECT_EQ(settings.values["Settings/TermWidth"], "6500");  // no whole number of pixels
    EXPECT_EQ(settings.values["Settings/TermLeft"], "1000");
    {
        Window window(geometry::terminal, settings);
        window.resize(500, 567);
        window.close();
    }
    EXPECT_EQ(settings.values["Settings/TermWidth"], "7500");
    EXPECT_EQ(settings.values["Settings/TermHeight"], "8500");
}

TEST(ToolWindow, OpensInSightWhereverItWasStored) {
    fakes::FakeSettings settings;
    settings.values = {
        {"Settings/TermLeft", "400000"}, {"Settings/TermTop", "400000"}, {"Settings/TermWidth", "470000"}};
    const Window window(geometry::terminal, settings);
    EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(window.geometry()));
}

TEST(ToolWindow, AMaximizedWindowStoresItsNormalPlace) {
    fakes::FakeSettings settings;
    Window window(geometry::terminal, settings);
    window.show();
    window.showMaximized();
    window.close();
    EXPECT_EQ(settings.values["Settings/TermWidth"], "6500");
    EXPECT_EQ(settings.values["Settings/TermTop"], "1000");
    window.showRestored();
    EXPECT_FALSE(window.isMaximized());
    EXPECT_TRUE(window.isVisible());
}

TEST(AboutBox, TellsWhatTheProgramIsAndLetsGo) {
    fakes::FakeShell shell;
    fakes::FakeMsgBox boxes;
    QWidget owner;
    showAbout(&owner, "/proc/self/exe", shell, boxes);
    auto* box = topLevel<frmAbout>("frmAbout");
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->isModal());
    const auto shown = [&](const char* name) { return control<QLabel>(*box, name)->text(); };
    EXPECT_TRUE(shown("lblVersion").startsWith(QStringLiteral(" Release  ")));
    EXPECT_EQ(shown("lblBuilt").size(), 17);
    EXPECT_TRUE(shown("lblDisclaimer").contains(QStringLiteral("ausschließlich")));
    // No line of the list breaks within a tool's name.
    const auto* description = control<QLabel>(*box, "lblDescription");
    EXPECT_EQ(description->heightForWidth(description->width()), 3 * description->fontMetrics().lineSpacing());

    click(*box, "cmdSysInfo");
    EXPECT_EQ(shell.started, std::vector<std::string>{"system information"});
    click(*box, "cmdOK");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(topLevel<frmAbout>("frmAbout"));
}

TEST(ProgressView, ShowsTheValuesAndCancelsByButtonEscapeAndCloseBox) {
    ProgressWindow progress;
    const ProgressView view(progress);
    int cancelled = 0;
    const Connection counting = progress.cancelled.connect([&] { ++cancelled; });
    EXPECT_FALSE(topLevel("frmProgr"));
    progress.caption = "Restore Menu Settings to FT-2000, with a caption that is wider than the window";
    progress.maximum = 155;
    progress.value = 31;
    progress.detail = "item 31 of 149, about 12 s left";
    progress.cancellable = true;
    QWidget inUse;
    inUse.setGeometry(0, 0, 400, 300);
    inUse.show();
    QApplication::setActiveWindow(&inUse);
    progress.show();
    auto* window = topLevel("frmProgr");
    ASSERT_TRUE(window && window->isVisible());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(window)->role(), QAccessible::Dialog);
    EXPECT_GT(window->width(), QFontMetrics(window->font()).horizontalAdvance(window->windowTitle()));
    EXPECT_FALSE(window->geometry().intersects(inUse.frameGeometry()));
    auto* detail = control<QLabel>(*window, "lblDetail");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(detail)->text(QAccessible::Name).toStdString(),
              progress.detail.get());
    const auto* bar = control<QProgressBar>(*window, "ProgressBar1");
    EXPECT_EQ(bar->maximum(), 155);
    EXPECT_EQ(bar->value(), 31);
    progress.value = 160;  // counters may run past the end
    EXPECT_EQ(bar->value(), 155);

    auto* button = control<QPushButton>(*window, "cmdCancel");
    click(*window, "cmdCancel");
    EXPECT_EQ(cancelled, 1);
    QTest::keyClick(&inUse, Qt::Key_Escape);
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_EQ(cancelled, 3);
    window->close();
    EXPECT_EQ(cancelled, 4);
    EXPECT_FALSE(window->isVisible());

    progress.cancellable = false;
    progress.show();
    EXPECT_FALSE(button->isEnabled());
    QTest::keyClick(&inUse, Qt::Key_Escape);
    EXPECT_EQ(cancelled, 4);
    progress.hide();
    EXPECT_FALSE(window->isVisible());
}

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
    StartWindow logic{clock,
                      {[this] { calls.push_back("close equalizer port"); }, [this] { calls.push_back("hide tools"); },
                       [](int) { return true; }, [this](int tool) { calls.push_back("open " + std::to_string(tool)); },
                       [this] { calls.push_back("help"); },
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
    EXPECT_EQ(caption(bar[0]), QStringLiteral("Files"));
    EXPECT_EQ(caption(bar[1]), QStringLiteral("Help"));
    EXPECT_EQ(caption(bar[2]), QStringLiteral("About"));
    // As assistive programs press them.
    QAccessibleInterface* shown = QAccessible::queryAccessibleInterface(window.menuBar());
    for (const int entry : {1, 2}) {
        ASSERT_TRUE(shown->child(entry) && shown->child(entry)->actionInterface());
        EXPECT_EQ(shown->child(entry)->text(QAccessible::Name), caption(bar[entry]));
        shown->child(entry)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCoreApplication::processEvents();
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, (std::vector<std::string>{"help", "about"}));
}

TEST_F(StartWindowUi, ExitStoresThePlaceAndStaysWhenTheUserWantsToStay) {
    window.show();
    EXPECT_EQ(caption(control<QAction>(window, "mnu_Exit")), QStringLiteral("Exit Program"));
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
