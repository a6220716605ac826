#include <gtest/gtest.h>

#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"

namespace korvex {
namespace {

class TerminalTest : public testing::Test {
protected:
    using Bench = fakes::ProgramBench<fakes::ScriptedPorts>;
    Bench bench;
    Terminal& terminal = bench.program.terminal;
    fakes::ScriptedLine& line = bench.ports.plug(1);

    void type(std::string_view text) {
        for (const char c : text) terminal.term3_KeyPress(std::string_view(&c, 1));
    }
};

TEST_F(TerminalTest, EnterSendsExactlyWhatWasTyped) {
    bench.openPort();
    line.forgetWrites();
    type("FX");
    terminal.term3_Backspace();
    type("A;\r");
    EXPECT_EQ(line.story(), "0 FA;");
    EXPECT_EQ(terminal.transmitBuffer.get(), "");
    EXPECT_EQ(bench.program.link.sent().text(), "FA;\r\n");
}

TEST_F(TerminalTest, WithThePortClosedTheTextStaysInTheBuffer) {
    terminal.Form_Load();
    type("FA;\r");
    EXPECT_EQ(terminal.transmitBuffer.get(), "FA;\r");
    EXPECT_EQ(line.story(), "");
    terminal.cmd3_Click();
    EXPECT_EQ(terminal.transmitBuffer.get(), "FA;\r");
    EXPECT_EQ(bench.program.link.sent().text(), "");
    for (int i = 0; i < 10; ++i) terminal.term3_Backspace();  // what was not sent can be taken back
    EXPECT_EQ(terminal.transmitBuffer.get(), "");
}

TEST_F(TerminalTest, PastedLinesWaitForEnterAndForeignCharactersAreRefused) {
    bench.openPort();
    line.forgetWrites();
    terminal.term3_Paste("EX001;\r\nTX1;\n");
    EXPECT_EQ(line.story(), "");
    EXPECT_EQ(terminal.transmitBuffer.get(), "EX001;TX1;");
    terminal.term3_KeyPress("Ω");
    EXPECT_EQ(terminal.transmitBuffer.get(), "EX001;TX1;");
    EXPECT_NE(bench.error().find("Ω"), std::string::npos);
    terminal.term3_KeyPress("ä");
    EXPECT_EQ(terminal.transmitBuffer.get(), "EX001;TX1;\xE4");
}

TEST_F(TerminalTest, FastTransfersAreRemembered) {
    terminal.Form_Load();
    EXPECT_EQ(bench.program.link.pace, Pace::Every100Ms);
    terminal.mnu_fastTransfers_Click();
    EXPECT_EQ(bench.program.link.pace, Pace::Answered);
    Bench next;
    next.settings.values = bench.settings.values;
    next.program.terminal.Form_Load();
    EXPECT_EQ(next.program.link.pace, Pace::Answered);
    next.program.terminal.mnu_fastTransfers_Click();
    EXPECT_EQ(next.program.link.pace, Pace::Every100Ms);
    EXPECT_FALSE(readSetting(next.settings, keys::fastTransfers));
}

TEST_F(TerminalTest, PrintStartsTheEditorAndRemembersTheFile) {
    bench.settings.values["Settings/SavePath"] = "/home/om/ft2000";
    terminal.Form_Load();
    bench.fileDialog.choose("/home/om/shack.mnu");
    terminal.mnu_print_Click();
    EXPECT_EQ(bench.fileDialog.shown.at(0).start, "/home/om/ft2000");
    EXPECT_EQ(bench.shell.started, std::vector<std::string>{"editor /home/om/shack.mnu"});
    EXPECT_EQ(terminal.files().path.get(), "/home/om/shack.mnu");

    bench.fileDialog.cancel();
    terminal.mnu_print_Click();
    bench.shell.fails = RuntimeError{errors::FileNotFound, "no editor"};
    bench.fileDialog.choose("/home/om/shack.mnu");
    bench.msgBox.foresee("no editor");
    terminal.mnu_print_Click();
    EXPECT_EQ(bench.msgBox.shown.at(0).title, "File not found");

    EXPECT_TRUE(terminal.Form_Unload());
    EXPECT_EQ(bench.settings.values["Settings/SavePath"], "/home/om/shack.mnu");
}

TEST_F(TerminalTest, ToolsOpenWithTheirPortIndicator) {
    terminal.Form_Load();
    auto& windows = bench.program.windows;
    auto& indicators = bench.program.link.indicators();
    terminal.mnu_bandStack_Click();
    terminal.mnu_description_Click();
    terminal.mnu_memory_Click();
    EXPECT_TRUE(windows.bandStack.visible && windows.menuManager.visible && windows.memoryEditor.visible &&
                windows.memoryList.visible);
    EXPECT_EQ(indicators.bandStack.get(), "RS232 closed");
    EXPECT_EQ(indicators.menuManager.get(), "RS232 closed ");
    EXPECT_EQ(indicators.memoryEditor.get(), "ComPort closed");
}

TEST_F(TerminalTest, TheEqualizerGetsThePortAndTheScreenOnTheSecondTick) {
    bench.openPort();
    auto& windows = bench.program.windows;
    windows.terminal.show();
    terminal.mnu_equalizer_Click();
    EXPECT_FALSE(bench.program.link.PortOpen());
    bench.clock.advance(399);
    EXPECT_FALSE(windows.equalizer.visible);
    bench.clock.advance(1);
    EXPECT_TRUE(windows.equalizer.visible);
    EXPECT_FALSE(windows.terminal.visible);
    EXPECT_EQ(bench.clock.armedTimers(), 0U);
}

}  // namespace
}  // namespace korvex
