#include <QSlider>
#include <QTest>
#include <QToolButton>
#include <functional>
#include <gtest/gtest.h>

#include "app/Program.h"
#include "bandstack/ui/frmBandStack.h"
#include "eq/ui/frmEQ_Set.h"
#include "fakes/FakeDialogs.h"
#include "fakes/ProgramBench.h"
#include "fakes/SimulatorProcess.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtSerialPorts.h"

namespace korvex {
namespace {

/// Real windows, real time, a real serial device: the simulated radio on a pseudo terminal.
struct WindowsOnAPty : testing::Test {
    bool comes(const std::function<bool()>& done, int limitMs = 5000) { return QTest::qWaitFor(done, limitMs); }
    bool radioHas(const std::string& line) {
        return comes([&] { return fakes::fileContent(state).find(line + "\n") != std::string::npos; });
    }

    fakes::TemporaryFolder folder;
    std::string state = folder.file("radio.txt");
    fakes::SimulatorProcess radio{BINARY_DIR "/ft2000sim", {"--state", state}};
    QtClock clock;
    fakes::FakeSettings settings;
    fakes::FakeFileDialog fileDialog;
    fakes::FakeMsgBox msgBox;
    fakes::FakeShell shell;
    QtSerialPorts ports{settings, {{1, radio.device()}}};
    Program program{{clock, ports, settings, fileDialog, msgBox, shell, folder.path()}};
};

TEST_F(WindowsOnAPty, ASliderThatIsMovedMovesTheRadio) {
    frmEQ_Set form(program.eqWindow, settings);
    form.show();
    const auto slider = [&](int item) { return form.findChild<QSlider*>(QStringLiteral("VScroll1_%1").arg(item)); };
    ASSERT_TRUE(radioHas("menu 125 = 03"));
    form.findChild<QToolButton*>(QStringLiteral("imgNotConnected"))->click();
    EXPECT_TRUE(comes([&] { return slider(0)->value() == 300; }));  // the radio's own

    for (const int value : {-18, -17, -16}) slider(7)->setSliderPosition(value);
    slider(3)->setFocus();
    QTest::keyClick(slider(3), Qt::Key_End);
    EXPECT_TRUE(radioHas("menu 132 = -16"));
    EXPECT_TRUE(radioHas("menu 128 = 09"));
    form.close();
    EXPECT_FALSE(program.eqWindow.isPortOpen());
}

TEST_F(WindowsOnAPty, ARegisterIsReadIntoTheGrid) {
    program.terminal.Form_Load();
    program.link.togglePort();
    frmBandStack form(program.bandStackWindow, program.link, settings);
    form.show();
    form.findChild<QAction*>(QStringLiteral("mnu_readBandStack"))->trigger();
    auto& grid = program.bandStackWindow.stack().FlexGrid1;
    EXPECT_TRUE(comes([&] { return !grid.TextMatrix(1, 2).empty(); }));
    EXPECT_EQ(grid.TextMatrix(10, 1), "FA01822500;");
    for (int row = 1; row <= 22; ++row) EXPECT_TRUE(grid.TextMatrix(row, 1).ends_with(';')) << row;
    program.link.togglePort();
    EXPECT_TRUE(comes([&] { return !program.bandStackWindow.reader().running(); }, 500));
}

}  // namespace
}  // namespace korvex
