#include "radio/SimulatedPorts.h"

namespace korvex {

namespace {

constexpr int radioNumber = 1;

/// A number behind which there is nothing.
class NoDevice : public SerialDevice {
public:
    explicit NoDevice(int number) : m_number(number) {}

    Failure open(const LineSettings&, Handshaking) override {
        return RuntimeError{errors::PortGone, "There is no device at port " + std::to_string(m_number) + "."};
    }
    void close() override {}
    void write(std::string_view) override {}
    std::string read() override { return {}; }
    std::size_t waiting() const override { return 0; }
    std::size_t unsent() const override { return 0; }
    void discardWaiting() override {}
    void discardUnsent() override {}
    void setRts(bool) override {}
    void setDtr(bool) override {}

private:
    int m_number;
};

}  // namespace

void SimulatedPorts::unplug() {
    cable.pluggedIn = false;
    cable.unplugNow.emit();
}

void SimulatedPorts::plugIn() {
    cable.pluggedIn = true;
    cable.line.plugIn();
}

std::unique_ptr<SerialDevice> SimulatedPorts::makeDevice(int number) {
    if (number != radioNumber) return std::make_unique<NoDevice>(number);
    return std::make_unique<SimulatedDevice>(m_clock, cable);
}

std::vector<SerialPortInfo> SimulatedPorts::list() {
    if (!cable.pluggedIn) return {};
    return {{radioNumber, "simulated", "Simulated FT-2000"}};
}

}  // namespace korvex
