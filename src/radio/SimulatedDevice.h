#pragma once

#include <deque>
#include <memory>
#include <string>

#include "base/Signal.h"
#include "platform/Clock.h"
#include "platform/SerialDevice.h"
#include "radio/RadioLine.h"

namespace korvex {

/// A radio at the end of a cable. The radio lives on while programs open and close the port.
struct SimulatedCable {
    SimulatedRadio radio;
    RadioLine line{radio};
    bool idealLine = false;       ///< characters take no time
    bool comparesSpeeds = false;  ///< a port at another speed than menu 028 says hears and sends garbage
    bool pluggedIn = true;
    bool isOpen = false;

    Signal<> unplugNow;
};

/// The simulated radio as a serial device. Nothing happens but on the clock's timers, and no timer is armed while the
/// line is quiet.
class SimulatedDevice : public SerialDevice {
public:
    SimulatedDevice(Clock& clock, SimulatedCable& cable);
    ~SimulatedDevice() override;

    Failure open(const LineSettings& settings, Handshaking handshaking) override;
    void close() override;

    void write(std::string_view wire) override;
    std::string read() override;
    std::size_t waiting() const override { return m_received.size(); }
    std::size_t unsent() const override;
    void discardWaiting() override { m_received.clear(); }
    void discardUnsent() override;

    void setRts(bool raised) override { m_rts = raised; }
    void setDtr(bool raised) override { m_dtr = raised; }
    bool rts() const { return m_rts; }
    bool dtr() const { return m_dtr; }

private:
    struct Leaving {
        double at;  // when the character has left altogether
        char character;
    };

    void onTick();
    void letCharactersLeave();
    void arm();
    double characterTime() const;
    bool speedsDiffer() const;
    void pullPlug();

    Clock& m_clock;
    SimulatedCable& m_cable;
    std::unique_ptr<Timer> m_timer;
    Connections m_connections;
    LineSettings m_settings;
    bool m_open = false;
    bool m_rts = false;
    bool m_dtr = false;
    std::deque<Leaving> m_leaving;
    std::string m_received;
};

}  // namespace korvex
