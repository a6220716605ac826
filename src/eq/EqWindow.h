#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/Property.h"
#include "cat/PhaseFlag.h"
#include "eq/EqExchange.h"
#include "eq/EqSetWriter.h"
#include "platform/Clock.h"
#include "platform/MSComm.h"
#include "platform/MsgBox.h"
#include "platform/OwnersFiles.h"
#include "platform/SettingsStore.h"

namespace korvex {

/// What the equalizer window decides: its port, the speech processor's button and how it is closed. The sliders belong
/// to `exchange`.
class EqWindow {
public:
    EqWindow(SerialPorts& ports, Clock& clock, const OwnersDesk& desk);

    EqExchange& exchange() { return m_exchange; }
    /// Whether another port on the same device may be closed for this one: asked before this one opens.
    std::function<bool()> mayTakePort = [] { return true; };

    /// Why the radio at a port (`MSComm::deviceText`) must not be asked for an equalizer, UTF-8; empty when it may.
    std::function<std::string(const std::string& device)> whyNotThisRadio = [](const std::string&) {
        return std::string();
    };

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

    /// Asks for the processor's state and reads both sets anew.
    void mnu_ReadAgain_Click();
    /// The shown set into a file, and a file's set into the radio, in place of the shown one. While that is not known
    /// the file's set waits until it has been read.
    void mnu_SavePreset_Click();
    void mnu_LoadPreset_Click();
    /// The one set in place of the other, in the radio.
    void mnu_CopyOffToOn_Click() { copySet(false); }
    void mnu_CopyOnToOff_Click() { copySet(true); }

    void closeBox();
    void mnu_EXit_Click();

    /// Connect pictures, check mark of `comop` and caption of `portHint` follow this one value.
    Property<bool> connected{false};
    Property<bool> canWrite{false};  ///< the shown set is known and nothing is being written: presets and copies
    Property<std::string> settingsPanel;
    Property<std::string> errorPanel;
    Property<std::string> portHint{"click to open"};

    /// Where closing leads: the window and the program do these, in the order in which they are told.
    Signal<> storePlace;
    Signal<> showTerminal;
    Signal<> hide;
    Signal<> buttonBackToNormal;  ///< the start window's equalizer button

private:
    bool mayOpen();
    void showPortState();
    void showClosed();
    void onReadingEnded();
    void onOtherEnded();
    void copySet(bool processorOn);
    void usePreset();
    void write(const EqValues& values, bool processorOn);
    void tellWritten(bool processorOn, const std::optional<EqValues>& now);
    void showWhatCanBeDone();
    void onLost(const RuntimeError& error);
    void Timer3_Timer();

    MsgBox& m_msgBox;
    MSComm m_port;
    EqExchange m_exchange;
    EqSetWriter m_writer;
    OwnersFiles m_presets;
    struct Written {
        EqValues values;
        bool processorOn;
    };
    std::optional<EqValues> m_presetWaiting;  // for the radio's own values to be read
    std::optional<Written> m_written;         // and not yet read back
    std::unique_ptr<Timer> m_timer3;
    PhaseFlag m_timer3Toggle;
    Connections m_connections;
};

}  // namespace korvex
