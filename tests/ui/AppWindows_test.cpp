#include <QAccessible>
#include <QDropEvent>
#include <QGuiApplication>
#include <QImage>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QScreen>
#include <gtest/gtest.h>
#include <set>
#include <vector>

#include "app/ui/frmAbout.h"
#include "app/ui/frmUtilities.h"
#include "desktop/ui/Desktop.h"
#include "fakes/FakeDialogs.h"
#include "fakes/ProgramBench.h"
#include "fakes/VirtualClock.h"
#include "platform/RecentFiles.h"
#include "radio/SimulatedPorts.h"
#include "ui/Widgets.h"
#include "windows/ui/ToolWindow.h"
#include "windows/ui/frmProgr.h"

namespace korvex {
namespace {

struct DesktopTest : testing::Test {
    DesktopTest() { desktop.showStartWindow(); }
    void pick(StartWindow::Tool tool) {
        bench.program.startWindow.Command1_Click(tool);
        bench.clock.advance(1000);
        QApplication::processEvents();
    }
    static std::vector<ToolWindow*> visible() {
        std::vector<ToolWindow*> windows;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* window = qobject_cast<ToolWindow*>(widget);
            if (window && window->isVisible()) windows.push_back(window);
        }
        return windows;
    }
    static std::string names() {
        std::set<std::string> sorted;
        for (const auto* window : visible()) sorted.insert(window->objectName().toStdString());
        std::string all;
        for (const auto& name : sorted) all += name + " ";
        return all;
    }
    static std::string inUse() {
        const QWidget* active = QApplication::activeWindow();
        return active ? active->objectName().toStdString() : "none";
    }

    fakes::ProgramBench<SimulatedPorts> bench;
    Desktop desktop{bench.program};
};

/// Letters among the entries of one menu, or of the bar.
void expectOneLetterEach(const QList<QAction*>& actions) {
    std::set<QChar> letters;
    for (const QAction* action : actions) {
        if (action->isSeparator()) continue;
        const auto at = action->text().indexOf(QLatin1Char('&'));
        ASSERT_GE(at, 0) << action->text().toStdString();
        EXPECT_TRUE(letters.insert(action->text().at(at + 1).toLower()).second) << action->text().toStdString();
        if (!action->menu()) continue;
        Q_EMIT action->menu()->aboutToShow();
        expectOneLetterEach(action->menu()->actions());
    }
}

TEST_F(DesktopTest, EveryWindowTakesFilesHelpAndTheEndByKeyboard) {
    for (int tool = 0; tool < StartWindow::toolCount; ++tool) {
        pick(static_cast<StartWindow::Tool>(tool));
        for (ToolWindow* window : visible()) {
            SCOPED_TRACE(window->objectName().toStdString());
            expectOneLetterEach(window->menuBar()->actions());
            QMimeData files;
            files.setUrls({QUrl::fromLocalFile(QStringLiteral("/nowhere/x.mef"))});
            QDragEnterEvent enter({5, 5}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(window, &enter);
            EXPECT_TRUE(enter.isAccepted());
            QDropEvent drop({5, 5}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
            bench.msgBox.foresee("There is no file /nowhere/x.mef");
            QApplication::sendEvent(window, &drop);
            QApplication::processEvents();
        }
        if (inUse() == "frmProgr") continue;  // the descriptions are being loaded
        bench.shell.started.clear();
        QTest::keyClick(QApplication::activeWindow(), Qt::Key_F1);
        QApplication::processEvents();
        EXPECT_EQ(bench.shell.started.size(), 1U) << inUse();
    }
    for (const char* entry : {"mnu_SaveKeyer", "mnu_SaveMemFile", "mnu_saveDatafromHD", "Flexgrid_toGrid"}) {
        const QAction* save = nullptr;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (!save) save = window->findChild<QAction*>(QLatin1String(entry));
        }
        ASSERT_NE(save, nullptr) << entry;
        EXPECT_EQ(save->shortcut(), QKeySequence(QKeySequence::Save)) << entry;
    }
    int ends = 0;
    const auto counted = bench.program.ended.connect([&ends] { ++ends; });
    QTest::keyClick(QApplication::activeWindow(), Qt::Key_Q, Qt::ControlModifier);
    QApplication::processEvents();
    EXPECT_EQ(ends, 1);
}

TEST_F(DesktopTest, ThePortIsSharedAndRememberedFromTheTerminalsMenu) {
    pick(StartWindow::Terminal);
    const auto click = [](const char* name) {
        QAction* action = nullptr;
        for (ToolWindow* window : visible()) {
            if (auto* found = window->findChild<QAction*>(QLatin1String(name))) action = found;
        }
        if (action == nullptr) return false;
        action->trigger();
        QApplication::processEvents();
        return action->isChecked();
    };
    EXPECT_TRUE(click("mnu_sharePort"));
    EXPECT_EQ(bench.error(), "Shared as /run/fake or /dev/pts/fake");
    EXPECT_TRUE(click("mnu_shareRigctl"));
    EXPECT_EQ(bench.program.share.listeningAt, 4532);
    bench.msgBox.foresee("able to make the radio transmit", MsgAnswer::No);
    EXPECT_FALSE(click("mnu_shareTransmit"));
    bench.msgBox.foresee("able to make the radio transmit", MsgAnswer::Yes);
    EXPECT_TRUE(click("mnu_shareTransmit"));
    EXPECT_TRUE(bench.program.share.transmitAllowed());

    ShareEntry nextStart({bench.program.link, bench.program.share, bench.settings, bench.msgBox});
    nextStart.recall();
    EXPECT_TRUE(nextStart.sharesPort);
    EXPECT_TRUE(nextStart.servesRigctl);
    EXPECT_FALSE(nextStart.mayTransmit);

    bench.doors.failure = RuntimeError{errors::DeviceIo, "in use"};
    EXPECT_FALSE(click("mnu_sharePort"));
    bench.msgBox.foresee("in use");
    EXPECT_FALSE(click("mnu_sharePort")) << "what could not be shared is not shown as shared";
}

TEST_F(DesktopTest, ARecentFileIsOneClickAway) {
    recentfiles::add(bench.settings, "/nowhere/my & yours.mef");
    auto* recent = control<QMenu>(*visible().front(), "mnu_RecentFiles");
    Q_EMIT recent->aboutToShow();
    ASSERT_EQ(recent->actions().size(), 1);
    EXPECT_EQ(recent->actions()[0]->text(), QStringLiteral("&1  my && yours.mef"));
    bench.msgBox.foresee("There is no file /nowhere/my & yours.mef");
    recent->actions()[0]->trigger();
    QApplication::processEvents();
}

TEST_F(DesktopTest, ThePickedToolHasTheKeyboardAndTheTerminalComesWithoutTakingIt) {
    auto& terminal = bench.program.windows.terminal;
    int terminalsTurns = 0;
    const auto counted = terminal.restored.connect([&] { ++terminalsTurns; });
    const auto expect = [](const std::string& picked, const std::string& all) {
        const std::string active = inUse();
        EXPECT_TRUE(active == picked || active == "frmProgr") << active;  // the descriptions are being loaded
        EXPECT_EQ(names(), all);
    };
    pick(StartWindow::MemoryManager);
    expect("frmMem", "frmChannelinfo frmMem frmTerm frmUtilities ");
    pick(StartWindow::MenuManager);
    expect("frmDescription", "frmDescription frmTerm frmUtilities ");
    pick(StartWindow::Equalizer);
    expect("frmEQ_Set", "frmEQ_Set frmUtilities ");
    pick(StartWindow::BandStack);
    expect("frmBandStack", "frmBandStack frmTerm frmUtilities ");
    pick(StartWindow::Keyer);
    expect("frmKeyer", "frmKeyer frmTerm frmUtilities ");
    EXPECT_EQ(terminalsTurns, 0);
    pick(StartWindow::Terminal);
    expect("frmTerm", "frmTerm frmUtilities ");
    EXPECT_EQ(terminalsTurns, 1);
}

/// As they come when nothing is remembered, on a screen of 1024 x 768 with its title bar and a panel of the desktop.
TEST_F(DesktopTest, NoWindowIsTooLargeForASmallScreenAndTheirTitlesAreApart) {
    std::set<std::pair<int, int>> corners;
    for (const auto& first : {geometry::startWindow, geometry::terminal, geometry::memoryEditor, geometry::memoryList,
                              geometry::menuManager, geometry::equalizer, geometry::bandStack, geometry::keyer}) {
        EXPECT_TRUE(corners.emplace(first.atFirst.left, first.atFirst.top).second) << first.prefix;
        const auto screen = WindowPlace{0, 0, 1024 * twipsPerPixel, 738 * twipsPerPixel};
        EXPECT_LE(first.atFirst.left + first.atFirst.width, screen.width) << first.prefix;
    }
    for (int tool = 0; tool < StartWindow::toolCount; ++tool) {
        pick(static_cast<StartWindow::Tool>(tool));
        for (const auto* window : visible()) {
            EXPECT_LE(window->minimumSizeHint().width(), 1000) << window->objectName().toStdString();
            EXPECT_LE(window->minimumSizeHint().height(), 700) << window->objectName().toStdString();
            const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
            EXPECT_TRUE(screen.contains(window->geometry()))
                << window->objectName().toStdString() << " at " << window->x() << "," << window->y() << " size "
                << window->width() << "x" << window->height();
        }
    }
}

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
