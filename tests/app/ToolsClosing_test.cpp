#include <gtest/gtest.h>

#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"

namespace korvex {
namespace {

TEST(ToolsClosing, AToolThatIsClosedByItsMenuHidesAndGivesItsButtonBack) {
    fakes::ProgramBench<fakes::ScriptedPorts> bench;
    Program& program = bench.program;
    const auto closes = [&](StartWindow::Tool tool, WindowState& window, auto& logic,
                            const std::function<void()>& close) {
        program.startWindow.backColor(tool) = StartWindow::lightGreen;
        window.show();
        int stored = 0;
        const Connection place = logic.storePlace.connect([&stored] { ++stored; });
        close();
        bench.clock.advance(1'000);
        EXPECT_FALSE(window.visible) << tool;
        EXPECT_EQ(program.startWindow.backColor(tool), StartWindow::lightOrange) << tool;
        EXPECT_EQ(stored, 1) << tool;
    };
    closes(StartWindow::MenuManager, program.windows.menuManager, program.menuManager,
           [&] { program.menuManager.mnu_exit_Click(); });
    closes(StartWindow::BandStack, program.windows.bandStack, program.bandStackWindow,
           [&] { program.bandStackWindow.mnu_closeWindow_Click(); });
    closes(StartWindow::Equalizer, program.windows.equalizer, program.eqWindow,
           [&] { program.eqWindow.mnu_EXit_Click(); });
}

}  // namespace
}  // namespace korvex
