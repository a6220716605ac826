#include "platform/MSComm.h"

namespace korvex {

namespace {

CommEvent eventFor(ModemLine line) {
    switch (line) {
        case ModemLine::Cts: return CommEvent::CtsChanged;
        case ModemLine::Dsr: return CommEvent::DsrChanged;
        case ModemLine::Carrier: break;
    }
    return CommEvent::CarrierChanged;
}

}  // namespace

MSComm::MSComm(SerialPorts& ports) : m_ports(ports) {}

Failure MSComm::setCommPort(int number) {
    if (number < 1 || number > 20) {
        return RuntimeError{errors::InvalidPortNumber,
                            "Invalid port number " + std::to_string(number) + ": ports are numbered 1 to 20."};
    }
    if (m_open && number != m_commPort) {
        return RuntimeError{errors::PortAlreadyOpen, "The port number cannot be changed while the port is open."};
    }
    m_commPort = number;
    return {};
}

Failure MSComm::setSettings(std::string_view text) {
    auto parsed = parseLineSettings(text);
    if (!parsed) return parsed.error();
    m_settings = *parsed;
    return {};
}

Failure MSComm::setHandshaking(int code) {
    if (code < 0 || code > 3) {
        return RuntimeError{errors::InvalidPropertyValue,
                            "Invalid handshaking " + std::to_string(code) +
                                ": 0 none, 1 XON/XOFF, 2 RTS, 3 RTS and XON/XOFF are possible."};
    }
    m_handshaking = static_cast<korvex::Handshaking>(code);
    return {};
}

void MSComm::setRTSEnable(bool raised) {
    m_rts = raised;
    if (m_open) m_device->setRts(raised);
}

void MSComm::setDTREnable(bool raised) {
    m_dtr = raised;
    if (m_open) m_device->setDtr(raised);
}

Failure MSComm::setPortOpen(bool open) {
    if (open == m_open) return {};
    if (open) return openDevice();
    closeDevice();
    return {};
}

Failure MSComm::openDevice() {
    m_device = m_ports.makeDevice(m_commPort);
    if (auto failure = m_device->open(m_settings, m_handshaking)) {
        m_device.reset();
        return failure;
    }
    m_open = true;
    if (m_rts) m_device->setRts(true);
    if (m_dtr) m_device->setDtr(true);
    m_deviceEvents += m_device->received.connect([this] { OnComm.emit(CommEvent::Receive); });
    m_deviceEvents += m_device->lineChanged.connect([this](ModemLine line) { OnComm.emit(eventFor(line)); });
    m_deviceEvents += m_device->lost.connect([this](const RuntimeError& error) { onLost(error); });
    return {};
}

void MSComm::closeDevice() {
    m_deviceEvents.endAll();
    m_open = false;
    // The device may be the caller's caller (closing from a receive handler): it is replaced at the next opening.
    m_device->close();
}

void MSComm::onLost(const RuntimeError& error) {
    // Closing may destroy what holds the error.
    const RuntimeError told = error;  // NOLINT(performance-unnecessary-copy-initialization)
    closeDevice();
    lost.emit(told);
}

std::optional<SerialPortInfo> MSComm::info() const {
    for (auto& port : m_ports.list()) {
        if (port.number == m_commPort) return std::move(port);
    }
    return std::nullopt;
}

std::string MSComm::deviceText() const {
    const auto port = info();
    if (!port) return {};
    return port->description.empty() ? port->device : port->description;
}

std::optional<int> MSComm::latencyMs() const {
    const auto port = info();
    return port ? port->latencyMs : std::nullopt;
}

std::string MSComm::Input() {
    return m_open ? m_device->read() : std::string();
}

void MSComm::Output(std::string_view wire) {
    if (m_open && !wire.empty()) m_device->write(wire);
}

void MSComm::clearInBuffer() {
    if (m_open) m_device->discardWaiting();
}

void MSComm::clearOutBuffer() {
    if (m_open) m_device->discardUnsent();
}

}  // namespace korvex
