#pragma once

#include <memory>
#include <vector>

#include "platform/Clock.h"
#include "platform/SerialDevice.h"
#include "radio/SimulatedDevice.h"

namespace korvex {

/// A machine with one port: number 1 leads to the simulated radio.
class SimulatedPorts : public SerialPorts {
public:
    explicit SimulatedPorts(Clock& clock) : m_clock(clock) {}

    SimulatedCable cable;

    SimulatedRadio& radio() { return cable.radio; }
    Faults& faults() { return cable.line.faults; }

    /// The device goes away now; an open port is told so by the clock.
    void unplug();
    void plugIn();

    std::unique_ptr<SerialDevice> makeDevice(int number) override;
    std::vector<SerialPortInfo> list() override;
    void remember(int) override {}

private:
    Clock& m_clock;
};

}  // namespace korvex
