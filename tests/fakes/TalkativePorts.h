#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "radio/SimulatedPorts.h"

namespace korvex::fakes {

/// A machine whose simulated radio also says whatever a test puts into its mouth, and where everything that the program
/// has written is kept.
class TalkativePorts : public SimulatedPorts {
public:
    using SimulatedPorts::SimulatedPorts;

    std::unique_ptr<SerialDevice> makeDevice(int number) override {
        return std::make_unique<Device>(*this, SimulatedPorts::makeDevice(number));
    }

    /// These characters come in now, if the port is open. The test is the event loop: call it from outside the
    /// program's calls.
    void say(std::string_view wire) {
        if (m_open != nullptr) m_open->say(wire);
    }
    void changeLine(ModemLine line) {
        if (m_open != nullptr) m_open->lineChanged.emit(line);
    }

    std::function<bool(std::string_view wire)> swallows;  ///< what does not reach the radio

    std::string written;  ///< through whatever device, in one text

private:
    /// The simulated device with a second mouth.
    class Device : public SerialDevice {
    public:
        Device(TalkativePorts& ports, std::unique_ptr<SerialDevice> device)
            : m_ports(ports), m_device(std::move(device)) {
            m_connections += m_device->received.connect([this] { received.emit(); });
            m_connections += m_device->lost.connect([this](const RuntimeError& error) {
                forget();
                lost.emit(error);
            });
        }
        ~Device() override { forget(); }

        Failure open(const LineSettings& settings, Handshaking handshaking) override {
            if (auto failure = m_device->open(settings, handshaking)) return failure;
            m_ports.m_open = this;
            return {};
        }
        void close() override {
            forget();
            m_device->close();
        }
        void write(std::string_view wire) override {
            m_ports.written += wire;
            if (m_ports.swallows && m_ports.swallows(wire)) return;
            m_device->write(wire);
        }
        std::string read() override { return m_device->read() + std::exchange(m_said, {}); }
        std::size_t waiting() const override { return m_device->waiting() + m_said.size(); }
        std::size_t unsent() const override { return m_device->unsent(); }
        void discardWaiting() override {
            m_said.clear();
            m_device->discardWaiting();
        }
        void discardUnsent() override { m_device->discardUnsent(); }
        void setRts(bool raised) override { m_device->setRts(raised); }
        void setDtr(bool raised) override { m_device->setDtr(raised); }

        /// Last: a handler may close or destroy this device.
        void say(std::string_view wire) {
            m_said += wire;
            received.emit();
        }

    private:
        void forget() {
            if (m_ports.m_open == this) m_ports.m_open = nullptr;
            m_said.clear();
        }

        TalkativePorts& m_ports;
        std::unique_ptr<SerialDevice> m_device;
        std::string m_said;
        Connections m_connections;
    };

    Device* m_open = nullptr;
};

}  // namespace korvex::fakes
