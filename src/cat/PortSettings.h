#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cat/CatLink.h"
#include "cat/RadioSearch.h"
#include "platform/MsgBox.h"
#include "platform/SerialDevice.h"
#include "platform/SettingsStore.h"

namespace korvex {

/// The logic of the port settings dialog: which ports can be chosen, what is shown, and what OK does. One object per
/// opening of the dialog.
class PortSettings {
public:
    static constexpr std::array<std::string_view, 5> parities = {"Even", "Odd", "None", "Mark", "Space"};
    static constexpr std::array<std::string_view, 5> dataBitsChoices = {"4", "5", "6", "7", "8"};
    static constexpr std::array<std::string_view, 3> stopBitsChoices = {"1", "1.5", "2"};

    struct PortEntry {
        int number = 0;
        std::string device;    ///< which device and adapter it is, UTF-8; for a missing one why it cannot be had
        bool missing = false;  ///< stored, and cannot be opened now
    };

    PortSettings(CatLink& link, Clock& clock, SerialPorts& ports, SettingsStore& settings, MsgBox& msgBox,
                 bool& sharedEcho);

    /// Probes the ports 1..20 and fills the fields below from the port control. The port is closed afterwards. Listed
    /// is what could be opened, and the stored port in any case.
    void Form_Load();
    /// Applies and stores the fields. False when something was refused: the user has been told, nothing is stored, and
    /// the dialog stays open.
    bool cmdOK_Click();

    void optFlow_Click(int index) { handshaking = index; }
    void optEcho_Click(int index) { echo = index == 1; }
    /// "Find my Radio": begins with the selected port and the speed above, or stops the search that runs.
    void cmdFind_Click();
    RadioSearch search;
    Signal<> radioFound;  ///< the search has set the fields to where the radio is; nothing is applied or stored yet

    std::vector<PortEntry> cboPort;
    std::optional<std::size_t> selectedPort;  ///< index in cboPort; nothing when the list is empty
    std::string speed;
    std::optional<std::size_t> parity;  ///< index in `parities`
    std::string dataBits;
    std::string stopBits;
    int handshaking = 0;
    bool echo = false;

private:
    void listAvailablePorts();
    void listPort(int number, bool isStored, const std::vector<SerialPortInfo>& known);
    Failure tryToOpen(int number);
    void takeFound(const RadioSearch::Found& found);
    void selectPort(const RadioSearch::Found& found);
    void loadPortSettingsIntoDialog();
    void selectCurrentPort();
    Failure applyPortNumber();
    Failure applyFormat();

    CatLink& m_link;
    MSComm& m_port;
    SerialPorts& m_ports;
    SettingsStore& m_settings;
    MsgBox& m_msgBox;
    bool& m_sharedEcho;
    Connection m_found;
};

}  // namespace korvex
