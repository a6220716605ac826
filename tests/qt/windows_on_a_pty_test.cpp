#include <QAction>
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
#include "menu/DescriptionTable.h"
#include "menu/ui/frmDescription.h"
#include "platform/ProgramFolder.h"
#include "platform/TextFile.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtDatabase.h"
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
    QtDatabase database;
    QtSerialPorts ports{settings, {{1, radio.device()}}};
    Program program{{clock, ports, settings, fileDialog, msgBox, shell, database, folder.path()}};
};

TEST_F(WindowsOnAPty, ASliderThatIsMovedMovesTheRadio) {
    frmEQ_Set form(program.eqWindow, settings);
    form.show();
    const auto slider = [&](int item) { return form.findChild<QSlider*>(QStringLiteral("VScroll1_%1").arg(item)); };
    ASSERT_TRUE(radioHas("menu 125 = 03"));
    form.findChild<QToolButton*>(QStringLiteral("imgNotConnected"))->click();
    EXPECT_TRUE(comes([&] { return slider(0)->value() == 300; }));  // the radio's own

    EXPECT_TRUE(comes([&] { return slider(7)->isEnabled() && slider(3)->isEnabled(); }));  // as far as it is read
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
    EXPECT_TRUE(comes([&] { return !grid.TextMatrix(1, 2).empty(); }, 20'000));
    EXPECT_EQ(grid.TextMatrix(10, 1), "FA01822500;");
    for (int row = 1; row <= 22; ++row) EXPECT_TRUE(grid.TextMatrix(row, 1).ends_with(';')) << row;
    program.link.togglePort();
    EXPECT_TRUE(comes([&] { return !program.bandStackWindow.reader().running(); }, 500));
}

/// The whole menu takes its 15 seconds.
TEST_F(WindowsOnAPty, AColumnOfSettingsIsReadSavedAndInTheFile) {
    const std::string file = folder.file(std::string(descriptionDatabaseName));
    const std::string password(description::password);
    const auto shipped = parseDescription(*textfile::read(SOURCE_DIR "/data/menu-description.tsv"));
    ASSERT_FALSE(database.writeTable(file, password, *shipped));
    program.windows.menuManager.show();
    frmDescription form(program.menuManager, program.link, settings, [] { return true; });
    form.show();
    auto& grid = program.menuManager.FlexGrid1;
    ASSERT_TRUE(comes([&] { return grid.TextMatrix(188, 0) == "149"; }));
    program.terminal.Form_Load();
    program.link.togglePort();
    program.menuManager.FlexGrid1_RightClick(8);
    msgBox.foresee("Do you like to save the Menu Settings now", MsgAnswer::Yes);
    form.findChild<QAction*>(QStringLiteral("mnu_readSettings"))->trigger();
    EXPECT_TRUE(comes([&] { return !msgBox.shown.empty(); }, 30'000));
    EXPECT_FALSE(program.link.PortOpen());

    const auto connection = database.makeConnection();
    ASSERT_FALSE(connection->Open(file, password));
    const auto records = connection->makeRecordset();
    ASSERT_FALSE(records->Open(std::string(description::query)));
    for (int row = 1; row < 190; ++row) {
        ASSERT_FALSE(records->setAbsolutePosition(row + 1));
        EXPECT_EQ(records->Field(9).empty(), records->Field(1).empty()) << row;
        EXPECT_EQ(records->Field(8), "") << row;
    }
}

}  // namespace
}  // namespace korvex
