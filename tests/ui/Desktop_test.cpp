#include "desktop/ui/Desktop.h"

#include <QAccessible>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <gtest/gtest.h>
#include <set>
#include <vector>

#include "fakes/FakeDialogs.h"
#include "fakes/ProgramBench.h"
#include "fakes/VirtualClock.h"
#include "platform/RecentFiles.h"
#include "radio/SimulatedPorts.h"
#include "ui/Widgets.h"
#include "windows/ui/ToolWindow.h"

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
    EXPECT_TRUE(!bench.program.share.device.get().empty());
    EXPECT_TRUE(bench.program.share.listeningAt != 0);

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

}  // namespace
}  // namespace korvex
