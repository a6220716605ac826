#include "platform/qt/QtSerialPorts.h"

#include <filesystem>

#include "platform/PortProblem.h"
#include "platform/PortScan.h"
#include "platform/Settings.h"
#include "platform/qt/QtSerialDevice.h"

namespace korvex {

namespace {

bool leadsTo(const std::string& name, const std::string& device) {
    std::error_code error;
    return std::filesystem::equivalent(name, device, error);
}

/// The port behind a number that has no device.
class NoDevice : public SerialDevice {
public:
    explicit NoDevice(int number) : m_number(number) {}
    Failure open(const LineSettings&, Handshaking) override {
        return RuntimeError{errors::PortGone, "There is no serial port " + std::to_string(m_number) +
                                                  " on this computer. Choose another one in the port settings."};
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

QtSerialPorts::QtSerialPorts(SettingsStore& settings, const std::map<int, std::string>& given, SerialPorts* demo)
    : m_settings(settings), m_given(given), m_demo(demo) {
    if (m_demo != nullptr) m_numbers.reserve(PortNumbers::first);
    for (const auto& [number, name] : m_given) {
        if (!isDemo(number)) m_numbers.give(number, name);
    }
    for (int number = PortNumbers::first; number <= PortNumbers::last; ++number) {
        const auto name = readSetting(m_settings, keys::device(number));
        if (!name.empty()) m_numbers.remember(number, name);
    }
}

void QtSerialPorts::look() {
    auto found = scanPorts();
    for (auto& port : found) {
        for (const auto& [number, name] : m_given) {
            if (leadsTo(name, port.device)) port.names.push_back(name);
        }
    }
    m_numbers.setFound(std::move(found));
}

std::unique_ptr<SerialDevice> QtSerialPorts::makeDevice(int number) {
    if (isDemo(number)) return m_demo->makeDevice(number);
    look();
    const std::string device = m_numbers.deviceOf(number);
    if (device.empty()) return std::make_unique<NoDevice>(number);
    return std::make_unique<QtSerialDevice>(device);
}

/// Devices from the command line need not be among the found ones: pseudo terminals are not.
bool QtSerialPorts::isThere(int number) const {
    if (m_numbers.foundAt(number) != nullptr) return true;
    const std::string name = m_numbers.deviceOf(number);
    std::error_code error;
    return !name.empty() && std::filesystem::is_character_file(name, error);
}

std::vector<SerialPortInfo> QtSerialPorts::list() {
    look();
    std::vector<SerialPortInfo> ports;
    if (m_demo != nullptr) ports = m_demo->list();
    std::erase_if(ports, [this](const SerialPortInfo& port) { return !isDemo(port.number); });
    for (int number = PortNumbers::first; number <= PortNumbers::last; ++number) {
        if (isDemo(number) || !isThere(number)) continue;
        const auto* found = m_numbers.foundAt(number);
        SerialPortInfo port{number, found != nullptr ? found->device : m_numbers.deviceOf(number), {}, {}};
        port.description = port.device;
        if (found != nullptr && !found->description.empty()) port.description += ": " + found->description;
        if (found != nullptr) port.latencyMs = found->latencyMs;
        ports.push_back(std::move(port));
    }
    return ports;
}

void QtSerialPorts::remember(int number) {
    look();
    const std::string name = m_numbers.nameToRemember(number);
    if (name.empty()) return;
    m_numbers.remember(number, name);
    const auto key = keys::device(number);
    if (readSetting(m_settings, key) != name) writeSetting(m_settings, key, name);
}

Failure QtSerialPorts::heldByOther(int number) {
    if (isDemo(number)) return {};
    look();
    std::error_code error;
    const auto device = std::filesystem::canonical(m_numbers.deviceOf(number), error);
    return error ? Failure() : portproblem::heldByOther(device.string());
}

}  // namespace korvex
