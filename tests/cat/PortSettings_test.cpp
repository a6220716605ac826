#include "cat/PortSettings.h"

#include <gtest/gtest.h>

#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"
#include "platform/Settings.h"

namespace korvex {
namespace {

class PortSettingsTest : public testing::Test {
protected:
    using Bench = fakes::ProgramBench<fakes::ScriptedPorts>;
    Bench bench;
    Program& program = bench.program;
    MSComm& port = program.MSComm1;

    std::string stored(std::string_view key) {
        return bench.settings.get(applicationName, portSection, key, "(nothing)");
    }
};

TEST_F(PortSettingsTest, AFirstStartUsesTheBuiltInPortAndStoresNothing) {
    program.terminal.Form_Load();
    EXPECT_EQ(port.CommPort(), 1);
    EXPECT_EQ(port.Settings(), "4800,n,8,2");
    EXPECT_TRUE(bench.settings.values.empty());
    EXPECT_TRUE(program.link.received().text().starts_with("\r\n- Select the Serial Port"));
}

TEST_F(PortSettingsTest, NonsenseInTheStoreLeavesAPortThatWorks) {
    bench.settings.values["Einstellungen/COM-Anschluß"] = "99";
    bench.settings.values["Einstellungen/Echo"] = "perhaps";
    program.terminal.Form_Load();
    EXPECT_EQ(port.CommPort(), 1);
    EXPECT_FALSE(program.terminal.echo);
}

TEST_F(PortSettingsTest, AStoredSettingThatIsRefusedIsToldAndLeavesTheRestUndone) {
    bench.settings.values["Einstellungen/Einstellungen"] = "12345,n,8,2";
    bench.settings.values["Einstellungen/COM-Anschluß"] = "3";
    bench.msgBox.foresee("12345,n,8,2");
    program.terminal.Form_Load();
    EXPECT_EQ(port.CommPort(), 1);
    EXPECT_EQ(program.link.received().text(), "");
}

TEST_F(PortSettingsTest, TheDialogListsWhatCouldBeOpenedAndOkStoresItAll) {
    bench.ports.plug(1);
    bench.ports.plug(2).openFailure = RuntimeError{errors::PermissionDenied, "no"};
    bench.ports.plug(3);
    bench.ports.plug(20);
    bench.openPort();
    PortSettings dialog = program.makePortSettings();
    dialog.Form_Load();
    EXPECT_FALSE(program.link.PortOpen());
    EXPECT_FALSE(program.link.indicators().open);
    ASSERT_EQ(dialog.cboPort.size(), 3U);
    EXPECT_EQ(dialog.cboPort.back().number, 20);
    EXPECT_EQ(dialog.cboPort.at(*dialog.selectedPort).number, 1);
    EXPECT_EQ(port.CommPort(), 1) << "looking is not choosing";

    dialog.selectedPort = 1;
    dialog.speed = "38400";
    dialog.optFlow_Click(2);
    dialog.optEcho_Click(1);
    EXPECT_TRUE(dialog.cmdOK_Click());
    EXPECT_EQ(stored("Einstellungen"), "38400,n,8,2");
    EXPECT_EQ(stored("COM-Anschluß"), "3");
    EXPECT_EQ(stored("Handshaking"), "2");
    EXPECT_EQ(stored("Echo"), "True");
    EXPECT_TRUE(program.terminal.echo);
    EXPECT_EQ(bench.ports.remembered, std::vector<int>{3});
}

TEST_F(PortSettingsTest, TheProbeRaisesNoLineAndFindsPortsThatCannotDoTheFormat) {
    bench.ports.plug(1);
    bench.ports.plug(2).openFailure = RuntimeError{errors::LineNotSupported, "4 data bits"};
    ASSERT_FALSE(port.setHandshaking(2));
    PortSettings dialog = program.makePortSettings();
    dialog.Form_Load();
    EXPECT_EQ(bench.ports.plug(1).handshaking, Handshaking::None);
    EXPECT_EQ(dialog.cboPort.size(), 2U);
    EXPECT_EQ(dialog.handshaking, 2);
    EXPECT_EQ(port.Handshaking(), 2);
}

TEST_F(PortSettingsTest, EveryFormatSurvivesOpeningTheDialogAndOk) {
    for (const char* settings : {"4800,n,8,1.5", "110,o,7,1", "256000,m,4,2", "9600,s,5,1", "38400,e,6,1.5"}) {
        ASSERT_FALSE(port.setSettings(settings));
        PortSettings dialog = program.makePortSettings();
        dialog.Form_Load();
        EXPECT_TRUE(dialog.cmdOK_Click());
        EXPECT_EQ(stored("Einstellungen"), settings);
    }
}

TEST_F(PortSettingsTest, ARefusedFormatKeepsTheDialogAndStoresNothing) {
    PortSettings dialog = program.makePortSettings();
    dialog.Form_Load();
    dialog.speed = "12";
    bench.msgBox.foresee("Invalid port settings");
    EXPECT_FALSE(dialog.cmdOK_Click());
    EXPECT_TRUE(bench.settings.values.empty());
}

TEST_F(PortSettingsTest, AMissingPortStaysChosenAndOkKeepsItsNumber) {
    PortSettings first = program.makePortSettings();
    first.Form_Load();
    EXPECT_TRUE(first.cboPort.empty()) << "nobody has settled on a port yet";
    bench.settings.values["Einstellungen/COM-Anschluß"] = "7";
    bench.ports.plug(1);
    bench.ports.plug(12);
    program.terminal.Form_Load();
    PortSettings dialog = program.makePortSettings();
    dialog.Form_Load();
    ASSERT_EQ(dialog.cboPort.size(), 3U);
    EXPECT_EQ(dialog.selectedPort, 1U);
    EXPECT_TRUE(dialog.cboPort[1].missing);
    EXPECT_FALSE(dialog.cboPort[0].missing);
    EXPECT_TRUE(dialog.cmdOK_Click());
    EXPECT_EQ(stored("COM-Anschluß"), "7");
}

}  // namespace
}  // namespace korvex
