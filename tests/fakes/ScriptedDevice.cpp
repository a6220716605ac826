#include "fakes/ScriptedDevice.h"

#include <utility>

namespace korvex::fakes {

namespace {

RuntimeError noDevice() {
    return {errors::PortGone, "The port has no device."};
}

}  // namespace

std::string ScriptedLine::written() const {
    std::string all;
    for (const auto& write : writes) all += write.text;
    return all;
}

std::string ScriptedLine::story() const {
    std::string all;
    for (const auto& write : writes) {
        if (!all.empty()) all += '|';
        all += std::to_string(write.at) + ' ' + write.text;
    }
    return all;
}

void ScriptedLine::forgetWrites() {
    writes.clear();
    m_start = m_clock.now();
}

void ScriptedLine::feed(std::string_view wire) {
    if (!m_device) return;
    waiting += wire;
    m_device->received.emit();
}

void ScriptedLine::feedAfter(std::int64_t ms, std::string wire) {
    m_clock.after(ms, [this, wire = std::move(wire)] { feed(wire); });
}

void ScriptedLine::goAway() {
    openFailure = noDevice();
    if (auto* device = std::exchange(m_device, nullptr)) device->lost.emit(noDevice());
}

void ScriptedLine::changeLine(ModemLine line) {
    if (m_device) m_device->lineChanged.emit(line);
}

Failure ScriptedDevice::open(const LineSettings& settings, Handshaking handshaking) {
    if (m_line->openFailure) return m_line->openFailure;
    if (m_line->m_device) return RuntimeError{errors::PortAlreadyOpen, "The port is held by another program."};
    m_line->m_device = this;
    ++m_line->openings;
    m_line->settings = settings;
    m_line->handshaking = handshaking;
    m_line->rts = m_line->dtr = false;
    m_line->waiting.clear();
    return {};
}

void ScriptedDevice::close() {
    if (isOpen()) m_line->m_device = nullptr;
}

void ScriptedDevice::write(std::string_view wire) {
    if (!isOpen()) return;
    m_line->writes.push_back({m_line->m_clock.now() - m_line->m_start, std::string(wire)});
    if (!m_line->answer) return;
    if (auto text = m_line->answer(wire); !text.empty()) m_line->feedAfter(m_line->answerDelay, std::move(text));
}

std::string ScriptedDevice::read() {
    return std::exchange(m_line->waiting, {});
}

ScriptedLine& ScriptedPorts::plug(int number) {
    auto& line = m_lines[number];
    if (!line) line = std::make_shared<ScriptedLine>(m_clock);
    return *line;
}

std::unique_ptr<SerialDevice> ScriptedPorts::makeDevice(int number) {
    if (const auto found = m_lines.find(number); found != m_lines.end()) {
        return std::make_unique<ScriptedDevice>(found->second);
    }
    auto nothing = std::make_shared<ScriptedLine>(m_clock);
    nothing->openFailure = noDevice();
    return std::make_unique<ScriptedDevice>(std::move(nothing));
}

std::vector<SerialPortInfo> ScriptedPorts::list() {
    std::vector<SerialPortInfo> all;
    for (const auto& [number, line] : m_lines) {
        const auto text = std::to_string(number);
        all.push_back({number, "/dev/scripted" + text, "scripted port " + text});
    }
    return all;
}

}  // namespace korvex::fakes
