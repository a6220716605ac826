#include "cat/PortSettings.h"

#include <algorithm>

#include "base/NumberText.h"
#include "cat/PortConfiguration.h"

namespace korvex {

PortSettings::PortSettings(CatLink& link, Clock& clock, SerialPorts& ports, SettingsStore& settings, MsgBox& msgBox,
                           bool& sharedEcho)
    : search(ports, clock),
      m_link(link),
      m_port(link.port()),
      m_ports(ports),
      m_settings(settings),
      m_msgBox(msgBox),
      m_sharedEcho(sharedEcho),
      m_found(search.found.connect([this](const RadioSearch::Found& found) { takeFound(found); })) {}

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
    const auto stored = parseWhole(storedText(m_settings, keys::commPort));
    cboPort.clear();
    for (int number = 1; number <= 20; ++number) listPort(number, stored == number, known);
    static_cast<void>(m_port.setHandshaking(chosenHandshaking));
    // Looking is not choosing: leaving the dialog by "Exit" must leave the port number as it was.
    if (!stored || m_port.setCommPort(*stored)) static_cast<void>(m_port.setCommPort(before));
}

/// The owner's port stays in the list while its adapter lies in a drawer: OK must not put another one in its place.
void PortSettings::listPort(int number, bool isStored, const std::vector<SerialPortInfo>& known) {
    const Failure failure = tryToOpen(number);
    if (failure && !isStored) return;
    if (failure) {
        cboPort.push_back({number, failure->text, true});
        return;
    }
    const auto info =
        std::find_if(known.begin(), known.end(), [number](const auto& port) { return port.number == number; });
    cboPort.push_back({number, info == known.end() ? std::string() : info->description, false});
}

/// A port that is only asked for a format it cannot do is there; another format is chosen in this very dialog.
Failure PortSettings::tryToOpen(int number) {
    if (auto failure = m_port.setCommPort(number)) return failure;
    Failure failure = m_port.setPortOpen(true);
    static_cast<void>(m_port.setPortOpen(false));
    if (failure && failure->number == errors::LineNotSupported) return {};
    return failure;
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

void PortSettings::cmdFind_Click() {
    if (search.running) return search.cancel();
    m_link.closePort();
    search.start(selectedPort ? cboPort[*selectedPort].number : m_port.CommPort(), parseWhole(speed).value_or(0));
}

void PortSettings::takeFound(const RadioSearch::Found& found) {
    selectPort(found);
    speed = std::to_string(found.line.speed);
    parity = static_cast<std::size_t>(std::find(parities.begin(), parities.end(), "None") - parities.begin());
    dataBits = std::to_string(found.line.dataBits);
    stopBits = "2";
    handshaking = 0;
    radioFound.emit();
}

/// The port may have been plugged in since the dialog was opened.
void PortSettings::selectPort(const RadioSearch::Found& found) {
    const auto notBelow = [&found](const PortEntry& entry) { return entry.number >= found.port; };
    auto place = std::find_if(cboPort.begin(), cboPort.end(), notBelow);
    if (place == cboPort.end() || place->number != found.port) place = cboPort.insert(place, {found.port, {}, false});
    if (place->missing || place->device.empty()) *place = {found.port, found.device, false};
    selectedPort = static_cast<std::size_t>(place - cboPort.begin());
}

bool PortSettings::cmdOK_Click() {
    search.cancel();
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
