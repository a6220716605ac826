#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/Signal.h"
#include "platform/LineSettings.h"
#include "platform/SerialDevice.h"

namespace korvex {

/// What OnComm tells of.
enum class CommEvent { Receive = 2, CtsChanged = 3, DsrChanged = 4, CarrierChanged = 5 };

/// The serial port control: a port number, its settings, and open or closed. What it cannot take is refused as it is
/// set. All its text is wire text (one byte a character).
class MSComm {
public:
    explicit MSComm(SerialPorts& ports);

    int CommPort() const { return m_commPort; }
    /// 1..20, else InvalidPortNumber; refused (PortAlreadyOpen) while the port is open.
    Failure setCommPort(int number);

    /// What the ports call the device behind the number, UTF-8: "/dev/ttyUSB0: its adapter"; empty when there is none.
    std::string deviceText() const;
    /// How long its adapter keeps what comes for itself, where that is known.
    std::optional<int> latencyMs() const;

    /// As the control reports it: "4800,n,8,2", the parity letter in lower case.
    std::string Settings() const { return m_settings.text(); }
    const LineSettings& lineSettings() const { return m_settings; }
    /// Refuses what parseLineSettings refuses. On an open port it takes effect at the next opening.
    Failure setSettings(std::string_view text);

    int Handshaking() const { return static_cast<int>(m_handshaking); }
    /// 0..3, else InvalidPropertyValue. On an open port it takes effect at the next opening.
    Failure setHandshaking(int code);

    void setRTSEnable(bool raised);
    void setDTREnable(bool raised);
    bool RTSEnable() const { return m_rts; }
    /// Nothing where the device has no such line, and while the port is closed.
    std::optional<bool> CTSHolding() const { return m_open ? m_device->cts() : std::nullopt; }

    bool PortOpen() const { return m_open; }
    /// Opening fails with the device's reason. Setting what already is does nothing.
    Failure setPortOpen(bool open);

    /// Every waiting character; empty while the port is closed.
    std::string Input();
    /// Sends the text as it is. Nothing happens while the port is closed.
    void Output(std::string_view wire);

    std::size_t InBufferCount() const { return m_open ? m_device->waiting() : 0; }
    std::size_t OutBufferCount() const { return m_open ? m_device->unsent() : 0; }
    void clearInBuffer();
    void clearOutBuffer();

    Signal<CommEvent> OnComm;
    /// The device went away while open; the port is closed already. Told once.
    Signal<const RuntimeError&> lost;

private:
    std::optional<SerialPortInfo> info() const;
    Failure openDevice();
    void closeDevice();
    void onLost(const RuntimeError& error);

    SerialPorts& m_ports;
    int m_commPort = 1;
    LineSettings m_settings;
    korvex::Handshaking m_handshaking = korvex::Handshaking::None;
    bool m_rts = false;
    bool m_dtr = false;
    bool m_open = false;
    std::unique_ptr<SerialDevice> m_device;
    Connections m_deviceEvents;
};

}  // namespace korvex
