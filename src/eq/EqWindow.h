#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/Property.h"
#include "cat/PhaseFlag.h"
#include "eq/EqExchange.h"
#include "platform/Clock.h"
#include "platform/MSComm.h"
#include "platform/MsgBox.h"
#include "platform/SettingsStore.h"

namespace korvex {

/// What the equalizer window decides: its port, the speech processor's button and how it is closed. The sliders belong
/// to `exchange`.
class EqWindow {
public:
    EqWindow(SerialPorts& ports, Clock& clock, MsgBox& msgBox);

    EqExchange& exchange() { return m_exchange; }
    /// Whether another port on the same device may be closed for this one: asked before this one opens.
    std::function<bool()> mayTakePort = [] { return true; };

    /// Sets the port up from the stored settings; it stays closed.
    void Form_Load(const SettingsStore& settings);

    /// Opens the closed port or closes the open one.
    void toggleEqPort();
    bool isPortOpen() const { return m_port.PortOpen(); }
    /// Closes the port if it is open; the indicators follow.
    void closePort();

    /// 0 "Processor OFF": switch it on; 1 "Processor ON": switch it off. A switch that fails leaves the button as it
    /// is.
    void Command1_Click(int index);

    void closeBox();
    void mnu_EXit_Click();

    /// Connect pictures, check mark of `comop` and caption of `portHint` follow this one value.
    Property<bool> connected{false};
    Property<std::string> settingsPanel;
    Property<std::string> errorPanel;
    Property<std::string> portHint{"click to open"};

    /// Where closing leads: the window and the program do these, in the order in which they are told.
    Signal<> storePlace;
    Signal<> showTerminal;
    Signal<> hide;
    Signal<> buttonBackToNormal;  ///< the start window's equalizer button

private:
    void showPortState();
    void showClosed();
    void onReadingEnded();
    void onLost(const RuntimeError& error);
    void Timer3_Timer();

    MsgBox& m_msgBox;
    MSComm m_port;
    EqExchange m_exchange;
    std::unique_ptr<Timer> m_timer3;
    PhaseFlag m_timer3Toggle;
    Connections m_connections;
};

}  // namespace korvex
