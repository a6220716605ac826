#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fakes/VirtualClock.h"
#include "platform/SerialDevice.h"

namespace korvex::fakes {

/// The far end of one port as a test plays it: what was written and when, what comes back, and what goes wrong. It
/// stays while the program opens and closes devices on it.
class ScriptedLine {
public:
    explicit ScriptedLine(VirtualClock& clock) : m_clock(clock), m_start(clock.now()) {}

    struct Write {
        std::int64_t at = 0;  ///< ms since the ports were made, or since forgetWrites()
        std::string text;
        bool operator==(const Write&) const = default;
    };
    std::vector<Write> writes;

    /// All that was written, in one text.
    std::string written() const {
        std::string all;
        for (const auto& write : writes) all += write.text;
        return all;
    }
    /// The writes as "200 EX125;|600 EX126;": a whole exchange in one comparison.
    std::string story() const {
        std::string all;
        for (const auto& write : writes) {
            all += (all.empty() ? "" : "|") + std::to_string(write.at) + ' ' + write.text;
        }
        return all;
    }
    /// Starts a new story; its times count from now.
    void forgetWrites() {
        writes.clear();
        m_start = m_clock.now();
    }

    /// Characters arrive now (one receive event). The test is the event loop: call it from outside the program's calls.
    void feed(std::string_view wire) {
        if (!m_device) return;
        waiting += wire;
        m_device->received.emit();
    }
    /// Characters arrive `ms` ms from now.
    void feedAfter(std::int64_t ms, std::string wire) {
        m_clock.after(ms, [this, wire = std::move(wire)] { feed(wire); });
    }
    /// What comes back for a write, `answerDelay` ms after it; an empty text is silence.
    std::function<std::string(std::string_view wire)> answer;
    std::int64_t answerDelay = 10;

    /// The next openings fail with this until it is reset.
    Failure openFailure;
    /// The open device goes away now (the adapter is pulled out); later openings fail until `openFailure` is reset.
    void goAway() {
        openFailure = noDevice();
        if (auto* device = std::exchange(m_device, nullptr)) device->lost.emit(noDevice());
    }
    void changeLine(ModemLine line) {
        if (m_device) m_device->lineChanged.emit(line);
    }
    static RuntimeError noDevice() { return {errors::PortGone, "The port has no device."}; }

    bool isOpen() const { return m_device != nullptr; }
    int openings = 0;  ///< how often it was opened with success
    LineSettings settings;
    Handshaking handshaking = Handshaking::None;
    bool rts = false;
    bool dtr = false;
    std::string waiting;
    std::size_t unsent = 0;  ///< what the program is told of its unsent output; a test sets it

private:
    friend class ScriptedDevice;
    VirtualClock& m_clock;
    std::int64_t m_start;
    SerialDevice* m_device = nullptr;  ///< the open one
};

/// One opened (or closed) device of a ScriptedLine, as MSComm holds it.
class ScriptedDevice : public SerialDevice {
public:
    explicit ScriptedDevice(std::shared_ptr<ScriptedLine> line) : m_line(std::move(line)) {}
    ~ScriptedDevice() override { ScriptedDevice::close(); }

    /// Fails with PortAlreadyOpen while another device is open on the same line.
    Failure open(const LineSettings& settings, Handshaking handshaking) override {
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
    void close() override {
        if (isOpen()) m_line->m_device = nullptr;
    }
    void write(std::string_view wire) override {
        if (!isOpen()) return;
        m_line->writes.push_back({m_line->m_clock.now() - m_line->m_start, std::string(wire)});
        if (!m_line->answer) return;
        if (auto text = m_line->answer(wire); !text.empty()) m_line->feedAfter(m_line->answerDelay, std::move(text));
    }
    std::string read() override { return std::exchange(m_line->waiting, {}); }
    std::size_t waiting() const override { return m_line->waiting.size(); }
    std::size_t unsent() const override { return m_line->unsent; }
    void discardWaiting() override { m_line->waiting.clear(); }
    void discardUnsent() override { m_line->unsent = 0; }
    void setRts(bool raised) override { m_line->rts = raised; }
    void setDtr(bool raised) override { m_line->dtr = raised; }

private:
    bool isOpen() const { return m_line->m_device == this; }

    std::shared_ptr<ScriptedLine> m_line;
};

/// Twenty ports; what is plugged in is what a test has named with plug().
class ScriptedPorts : public SerialPorts {
public:
    explicit ScriptedPorts(VirtualClock& clock) : m_clock(clock) {}

    /// The line of a port; plugs something in when there is nothing yet.
    ScriptedLine& plug(int number) {
        auto& line = m_lines[number];
        if (!line) line = std::make_shared<ScriptedLine>(m_clock);
        return *line;
    }
    ScriptedLine& operator[](int number) { return plug(number); }

    std::unique_ptr<SerialDevice> makeDevice(int number) override {
        const auto found = m_lines.find(number);
        if (found != m_lines.end()) return std::make_unique<ScriptedDevice>(found->second);
        auto nothing = std::make_shared<ScriptedLine>(m_clock);
        nothing->openFailure = ScriptedLine::noDevice();
        return std::make_unique<ScriptedDevice>(std::move(nothing));
    }
    std::vector<SerialPortInfo> list() override {
        std::vector<SerialPortInfo> all;
        for (const auto& [number, line] : m_lines) {
            const auto text = std::to_string(number);
            all.push_back({number, "/dev/scripted" + text, "scripted port " + text});
        }
        return all;
    }
    void remember(int number) override { remembered.push_back(number); }

    std::vector<int> remembered;

private:
    VirtualClock& m_clock;
    std::map<int, std::shared_ptr<ScriptedLine>> m_lines;
};

}  // namespace korvex::fakes
