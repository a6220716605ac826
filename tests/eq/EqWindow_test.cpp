#include "eq/EqWindow.h"

#include <gtest/gtest.h>
#include <string>

#include "fakes/FakeDialogs.h"
#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"
#include "fakes/VirtualClock.h"

namespace korvex {
namespace {

struct EqWindowTest : ::testing::Test {
    EqWindowTest() {
        events += window.storePlace.connect([this] { told += window.isPortOpen() ? "store(open) " : "store "; });
        events += window.showTerminal.connect([this] { told += "terminal "; });
        events += window.hide.connect([this] { told += "hide "; });
        events += window.buttonBackToNormal.connect([this] { told += "button "; });
    }
    void expectClosed() {
        EXPECT_FALSE(window.connected.get());
        EXPECT_EQ(window.portHint.get(), "click to open");
        EXPECT_EQ(window.exchange().statusText.get(), "");
        EXPECT_FALSE(window.isPortOpen());
    }

    fakes::VirtualClock clock;
    fakes::ScriptedPorts ports{clock};
    fakes::ScriptedLine& line = ports[1];
    fakes::FakeMsgBox msgBox;
    fakes::FakeSettings settings;
    fakes::FakeFileDialog fileDialog;
    fakes::TemporaryFolder folder;
    EqWindow window{ports, clock, {settings, fileDialog, msgBox, folder.path()}};
    Property<bool>& processorOn = window.exchange().processorOn;
    std::string told;
    Connections events;
};

TEST_F(EqWindowTest, OpensOnTheStoredSettingsAndReadsAtOnce) {
    settings.values = {{"Einstellungen/Einstellungen", "9600,N,8,1"},
                       {"Einstellungen/COM-Anschluß", "3"},
                       {"Einstellungen/Handshaking", "2"}};
    auto& third = ports[3];
    window.Form_Load(settings);
    expectClosed();
    MSComm terminal(ports);
    ASSERT_FALSE(terminal.setCommPort(3));
    ASSERT_FALSE(terminal.setPortOpen(true));
    events += window.exchange().beforeOpen.connect([&] { EXPECT_FALSE(terminal.setPortOpen(false)); });
    window.toggleEqPort();
    EXPECT_TRUE(window.connected.get());
    EXPECT_EQ(window.portHint.get(), "click to close");
    EXPECT_EQ(window.settingsPanel.get(), "Settings: Port 3, 9600,n,8,1");
    EXPECT_EQ(window.exchange().statusText.get(), " Reading EQ Settings of FT-2000");
    EXPECT_EQ(third.handshaking, Handshaking::Rts);
    EXPECT_FALSE(third.rts || third.dtr);
    third.feedAfter(500, "EX12507;");
    clock.advance(500);
    EXPECT_EQ(window.exchange().value[0].get(), 700);

    window.toggleEqPort();
    expectClosed();
    EXPECT_EQ(window.settingsPanel.get(), "Settings: ");
    third.forgetWrites();
    clock.advance(5000);
    EXPECT_EQ(third.story(), "");  // the reading goes on without sending
}

TEST_F(EqWindowTest, TellsWhyAPortCannotBeSetUpOpenedOrKept) {
    settings.values["Einstellungen/Einstellungen"] = "4800,n,8";
    msgBox.foresee("");
    window.Form_Load(settings);

    line.openFailure = RuntimeError{errors::PortAlreadyOpen, "held by another program"};
    msgBox.foresee("held by another program");
    window.toggleEqPort();
    expectClosed();

    line.openFailure.reset();
    window.toggleEqPort();
    msgBox.foresee("no device");
    msgBox.whileShown = [this] { expectClosed(); };
    line.goAway();
    clock.advance(5000);
    EXPECT_EQ(line.story(), "0 PR;");
    for (const auto& box : msgBox.shown) EXPECT_EQ(box.icon, MsgIcon::Exclamation);
}

TEST_F(EqWindowTest, ProcessorButtonNamesThePresentState) {
    window.toggleEqPort();
    line.forgetWrites();
    window.Command1_Click(0);
    EXPECT_TRUE(processorOn.get());
    EXPECT_EQ(line.story(), "0 PR1;");
    EXPECT_TRUE(window.connected.get());
    line.feed("?;");
    EXPECT_FALSE(processorOn.get());
    EXPECT_EQ(window.errorPanel.get(), "The radio did not switch the processor");
    window.Command1_Click(0);
    EXPECT_EQ(window.errorPanel.get(), "");
    line.openFailure = RuntimeError{errors::PortGone, "gone"};
    msgBox.foresee("gone");
    msgBox.whileShown = [&] { EXPECT_TRUE(processorOn.get()); };
    line.forgetWrites();
    window.Command1_Click(1);
    EXPECT_TRUE(processorOn.get());  // the radio was told nothing
    EXPECT_EQ(line.story(), "");
    expectClosed();
}

TEST_F(EqWindowTest, TheBoxClosesAtOnceAndTheMenuHalfASecondLater) {
    window.toggleEqPort();
    window.closeBox();
    EXPECT_EQ(told, "store terminal hide ");
    expectClosed();

    told.clear();
    window.toggleEqPort();
    window.mnu_EXit_Click();
    expectClosed();
    clock.advance(499);
    EXPECT_EQ(told, "store ");
    clock.advance(1);
    EXPECT_EQ(told, "store terminal hide button ");
    clock.advance(2000);
    EXPECT_EQ(told, "store terminal hide button ");
}

}  // namespace
}  // namespace korvex
