#include "eq/EqWindow.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "fakes/FakeDialogs.h"
#include "fakes/ScriptedDevice.h"
#include "fakes/VirtualClock.h"
#include "radio/SimulatedPorts.h"

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
        EXPECT_EQ(window.Label5.get(), "click to open");
        EXPECT_EQ(window.exchange().statusText.get(), "");
        EXPECT_FALSE(window.isPortOpen());
    }

    fakes::VirtualClock clock;
    fakes::ScriptedPorts ports{clock};
    fakes::ScriptedLine& line = ports[1];
    fakes::FakeMsgBox msgBox;
    fakes::FakeSettings settings;
    EqWindow window{ports, clock, msgBox};
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
    EXPECT_EQ(window.Label5.get(), "click to close");
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
    EXPECT_EQ(line.story(), "");
    for (const auto& box : msgBox.shown) EXPECT_EQ(box.icon, MsgIcon::Exclamation);
}

TEST_F(EqWindowTest, ProcessorButtonNamesThePresentState) {
    window.toggleEqPort();
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

TEST(EqWithARadio, SlidersShowTheRadioAndTheRadioFollowsThem) {
    fakes::VirtualClock clock;
    SimulatedPorts ports(clock);
    auto& menu = ports.radio().state.menu;
    const std::array<std::string, 9> off{"03", "+05", "10", "09", "-20", "01", "18", "-00", "07"};
    const std::array<std::string, 9> on{"07", "-11", "02", "00", "+10", "03", "01", "+01", "10"};
    std::copy(off.begin(), off.end(), menu.begin() + 125);
    std::copy(on.begin(), on.end(), menu.begin() + 134);
    fakes::FakeMsgBox msgBox;
    EqWindow window{ports, clock, msgBox};
    auto& eq = window.exchange();
    const auto values = [&eq] {
        std::string all;
        for (const auto& value : eq.value) all += std::to_string(value) + " ";
        return all;
    };
    const auto untilRead = [&] { return eq.phase() == EqExchange::Phase::Live; };

    window.toggleEqPort();
    ASSERT_TRUE(clock.advanceUntil(untilRead, 6000));
    EXPECT_EQ(values(), "300 5 10 1500 -20 1 3200 0 7 ");
    EXPECT_EQ(std::vector(menu.begin() + 125, menu.begin() + 134), std::vector(off.begin(), off.end()));
    eq.applyValue(4, -19);
    eq.applyValue(4, -18);
    clock.advance(200);
    EXPECT_EQ(menu[129], "-18");
    EXPECT_EQ(eq.value[4].get(), -18);

    window.Command1_Click(0);
    ASSERT_TRUE(clock.advanceUntil(untilRead, 6000));
    EXPECT_EQ(values(), "700 -11 2 600 10 3 1500 1 10 ");
    EXPECT_EQ(ports.radio().state.get("PR"), "1");
    EXPECT_EQ(ports.radio().timesKeyed, 0);
}

}  // namespace
}  // namespace korvex
