#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cat/CatLink.h"
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
        std::string toolTip;  ///< which device and adapter it is, UTF-8
    };

    PortSettings(CatLink& link, SerialPorts& ports, SettingsStore& settings, MsgBox& msgBox, bool& sharedEcho);

    /// Probes the ports 1..20 and fills the fields below from the port control. The port is closed afterwards.
    void Form_Load();
    /// Applies and stores the fields. False when something was refused: the user has been told, nothing is stored, and
    /// the dialog stays open.
    bool cmdOK_Click();

    void optFlow_Click(int index) { handshaking = index; }
    void optEcho_Click(int index) { echo = index == 1; }

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
    bool canBeOpened(int number);
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
};

}  // namespace korvex
