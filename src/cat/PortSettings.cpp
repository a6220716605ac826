#include "cat/PortSettings.h"

#include <algorithm>

#include "base/NumberText.h"
#include "cat/PortConfiguration.h"

namespace korvex {

PortSettings::PortSettings(CatLink& link, SerialPorts& ports, SettingsStore& settings, MsgBox& msgBox, bool& sharedEcho)
    : m_link(link),
      m_port(link.port()),
      m_ports(ports),
      m_settings(settings),
      m_msgBox(msgBox),
      m_sharedEcho(sharedEcho) {}

void PortSettings::Form_Load() {
    listAvailablePorts();
    loadPortSettingsIntoDialog();
}

void PortSettings::listAvailablePorts() {
    m_link.closePort();
    const int before = m_port.CommPort();
    // Hardware handshaking would raise RTS, and behind any of these ports may be what keys a transmitter.
    const int chosenHandshaking = m_port.Handshaking();
    static_cast<void>(m_port.setHandshaking(0));
    const auto known = m_ports.list();
    cboPort.clear();
    for (int number = 1; number <= 20; ++number) {
        if (!canBeOpened(number)) continue;
        const auto info =
            std::find_if(known.begin(), known.end(), [number](const auto& port) { return port.number == number; });
        cboPort.push_back({number, info == known.end() ? std::string() : info->description});
    }
    static_cast<void>(m_port.setHandshaking(chosenHandshaking));
    // Looking is not choosing: leaving the dialog by "Exit" must leave the port number as it was.
    const auto stored = parseWhole(storedText(m_settings, keys::commPort));
    if (!stored || m_port.setCommPort(*stored)) static_cast<void>(m_port.setCommPort(before));
}

bool PortSettings::canBeOpened(int number) {
    if (m_port.setCommPort(number)) return false;
    const Failure failure = m_port.setPortOpen(true);
    static_cast<void>(m_port.setPortOpen(false));
    // A port that is only asked for a format it cannot do is there; another format is chosen in this very dialog.
    return !failure || failure->number == errors::LineNotSupported;
}

void PortSettings::loadPortSettingsIntoDialog() {
    const std::string settings = m_port.Settings();
    // "4800,n,8,2": everything is counted from the end, because the speed has three to six digits. Stop bits "1.5" make
    // the text two characters longer.
    const std::size_t more = settings.find('.') == std::string::npos ? 0 : 2;
    const std::size_t length = settings.size();
    speed = settings.substr(0, length - 6 - more);
    const char letter = settings[length - 5 - more];
    const auto named = std::find_if(parities.begin(), parities.end(),
                                    [letter](std::string_view name) { return asciiLower(name.front()) == letter; });
    if (named != parities.end()) parity = static_cast<std::size_t>(named - parities.begin());
    dataBits = settings.substr(length - 3 - more, 1);
    stopBits = settings.substr(length - 1 - more);
    handshaking = m_port.Handshaking();
    echo = m_sharedEcho;
    selectCurrentPort();
}

void PortSettings::selectCurrentPort() {
    selectedPort.reset();
    if (cboPort.empty()) return;
    const auto current = std::find_if(cboPort.begin(), cboPort.end(),
                                      [this](const PortEntry& entry) { return entry.number == m_port.CommPort(); });
    selectedPort = current == cboPort.end() ? 0 : static_cast<std::size_t>(current - cboPort.begin());
}

bool PortSettings::cmdOK_Click() {
    m_sharedEcho = echo;
    Failure failure = applyPortNumber();
    if (!failure) failure = applyFormat();
    if (failure) {
        m_msgBox.exclamation(failure->text);
        return false;
    }
    storePort(m_settings, m_port, echo);
    m_ports.remember(m_port.CommPort());
    return true;
}

Failure PortSettings::applyPortNumber() {
    if (!selectedPort) return {};
    // Loading the dialog has closed the port, and nothing can open it behind a modal dialog.
    return m_port.setCommPort(cboPort[*selectedPort].number);
}

Failure PortSettings::applyFormat() {
    const std::string letter = parity ? std::string(parities.at(*parity).substr(0, 1)) : std::string();
    if (auto failure = m_port.setSettings(speed + "," + letter + "," + dataBits + "," + stopBits)) return failure;
    return m_port.setHandshaking(handshaking);
}

}  // namespace korvex
