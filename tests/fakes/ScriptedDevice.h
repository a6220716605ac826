#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
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
    std::string written() const;
    /// The writes as "200 EX125;|600 EX126;": a whole exchange in one comparison.
    std::string story() const;
    /// Starts a new story; its times count from now.
    void forgetWrites();

    /// Characters arrive now (one receive event). The test is the event loop: call it from outside the program's calls.
    void feed(std::string_view wire);
    /// Characters arrive `ms` ms from now.
    void feedAfter(std::int64_t ms, std::string wire);
    /// What comes back for a write, `answerDelay` ms after it; an empty text is silence.
    std::function<std::string(std::string_view wire)> answer;
    std::int64_t answerDelay = 10;

    /// The next openings fail with this until it is reset.
    Failure openFailure;
    /// The open device goes away now (the adapter is pulled out); later openings fail until `openFailure` is reset.
    void goAway();
    void changeLine(ModemLine line);

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
    class ScriptedDevice* m_device = nullptr;
};

/// One opened (or closed) device of a ScriptedLine, as MSComm holds it.
class ScriptedDevice : public SerialDevice {
public:
    explicit ScriptedDevice(std::shared_ptr<ScriptedLine> line) : m_line(std::move(line)) {}
    ~ScriptedDevice() override { ScriptedDevice::close(); }

    /// Fails with PortAlreadyOpen while another device is open on the same line.
    Failure open(const LineSettings& settings, Handshaking handshaking) override;
    void close() override;
    void write(std::string_view wire) override;
    std::string read() override;
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
    ScriptedLine& plug(int number);
    ScriptedLine& operator[](int number) { return plug(number); }

    std::unique_ptr<SerialDevice> makeDevice(int number) override;
    std::vector<SerialPortInfo> list() override;
    void remember(int number) override { remembered.push_back(number); }

    std::vector<int> remembered;

private:
    VirtualClock& m_clock;
    std::map<int, std::shared_ptr<ScriptedLine>> m_lines;
};

}  // namespace korvex::fakes
