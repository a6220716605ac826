#include "desktop/ui/Desktop.h"

#include <QApplication>
#include <QScreen>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "app/ui/ToolWindow.h"
#include "fakes/ProgramBench.h"
#include "radio/SimulatedPorts.h"

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
