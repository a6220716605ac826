#include "cat/RadioSearch.h"

#include <algorithm>
#include <array>
#include <utility>

#include "cat/RadioModel.h"

namespace korvex {

namespace {

constexpr std::array radioSpeeds = {4800, 38400, 9600, 19200};  // the factory's first, then the one that most choose
constexpr int answerMs = 400;                                   // half of what a slow radio takes
constexpr int asksPerSpeed = 2;   // the first may end what another speed has left in the radio
constexpr int asksWhenHeard = 4;  // "?;" says that somebody listens at this speed
constexpr std::size_t longestAnswer = 16;
constexpr std::string_view query = "ID;";
constexpr std::size_t modelLength = sizeof("ID0251;") - 1;

std::string at(int speed) {
    return " at " + std::to_string(speed) + " bit/s";
}

template <class Values, class Is>
void bringToFront(Values& values, Is is) {
    const auto first = std::find_if(values.begin(), values.end(), is);
    if (first != values.end()) std::rotate(values.begin(), first, first + 1);
}

std::string called(const SerialPortInfo& port) {
    return "Port " + std::to_string(port.number) + (port.device.empty() ? "" : ", " + port.device);
}

}  // namespace

RadioSearch::RadioSearch(SerialPorts& ports, Clock& clock)
    : m_machine(ports), m_port(ports), m_timer(clock.makeTimer()) {
    m_connections += m_timer->tick.connect([this] { tick(); });
    m_connections += m_port.OnComm.connect([this](CommEvent event) {
        if (event == CommEvent::Receive) take(m_port.Input());
    });
    m_connections += m_port.lost.connect([this](const RuntimeError& error) { nextPort(error.text); });
}

void RadioSearch::start(int firstPort, int firstSpeed, Where where) {
    stop();
    m_ports = m_machine.list();
    if (where == Where::FirstPortOnly) {
        std::erase_if(m_ports, [firstPort](const SerialPortInfo& port) { return port.number != firstPort; });
    }
    bringToFront(m_ports, [firstPort](const SerialPortInfo& port) { return port.number == firstPort; });
    m_speeds.assign(radioSpeeds.begin(), radioSpeeds.end());
    bringToFront(m_speeds, [firstSpeed](int speed) { return speed == firstSpeed; });
    m_portIndex = m_speedIndex = 0;
    m_noise = false;
    m_report.clear();
    tries = static_cast<int>(m_ports.size() * m_speeds.size());
    tried = 0;
    running = true;
    status = "Looking for serial ports";
    after(1);
}

void RadioSearch::cancel() {
    if (running) end("The search was cancelled.");
}

void RadioSearch::tick() {
    m_timer->setEnabled(false);
    if (!m_port.PortOpen()) return beginTry();
    if (m_asked < (m_heard ? asksWhenHeard : asksPerSpeed)) return ask();
    nextSpeed();
}

void RadioSearch::beginTry() {
    if (m_portIndex == m_ports.size()) return end("No FT-2000 has answered.");
    status = called(port()) + at(speed()) + ": asking for the radio's model";
    if (const auto held = m_machine.heldByOther(port().number)) return nextPort(held->text);
    LineSettings line;
    line.speed = speed();
    static_cast<void>(m_port.setCommPort(port().number));
    static_cast<void>(m_port.setSettings(line.text()));
    if (const auto failure = m_port.setPortOpen(true)) {
        return failure->number == errors::LineNotSupported ? nextSpeed() : nextPort(failure->text);
    }
    m_asked = 0;
    m_heard = false;
    m_received.clear();
    ask();
}

void RadioSearch::ask() {
    ++m_asked;
    m_port.Output(query);
    after(answerMs);
}

void RadioSearch::take(std::string_view wire) {
    for (const char c : wire) {
        m_noise = m_noise || c < ' ' || c > '~';
        m_received += c;
        if (m_received.size() > longestAnswer) m_received.erase(0, 1);
        if (c != ';') continue;
        const std::string piece = std::exchange(m_received, {});
        takeAnswer(piece);
        if (!m_port.PortOpen()) return;
    }
}

/// An adapter that echoes says "ID;", too, which is no answer.
void RadioSearch::takeAnswer(std::string_view answer) {
    const auto head = answer.rfind("ID");
    const auto told = head == std::string_view::npos ? std::string_view() : answer.substr(head);
    if (told != query) m_heard = m_noise = true;
    if (told.size() != modelLength) return;
    const std::string model(ft2000Named(told));
    if (model.empty()) return nextPort("A radio" + at(speed()) + " that is no FT-2000: " + std::string(told));
    const Found what{port().number, m_port.lineSettings(), port().description};
    m_report.clear();
    end(called(port()) + at(speed()) + ": here is the " + model + ". OK takes port and speed.");
    found.emit(what);
}

void RadioSearch::nextSpeed() {
    tried = tried + 1;
    if (m_speedIndex + 1 == m_speeds.size()) {
        return nextPort(m_noise ? "characters come, and none of them is an answer" : "no answer");
    }
    static_cast<void>(m_port.setPortOpen(false));
    ++m_speedIndex;
    after(1);
}

void RadioSearch::nextPort(const std::string& why) {
    m_report.push_back(called(port()) + ": " + why);
    static_cast<void>(m_port.setPortOpen(false));
    ++m_portIndex;
    m_speedIndex = 0;
    m_noise = false;
    tried = static_cast<int>(m_portIndex * m_speeds.size());
    after(1);
}

void RadioSearch::end(const std::string& result) {
    stop();
    status = result + reportText();
    running = false;
}

void RadioSearch::stop() {
    m_timer->setEnabled(false);
    static_cast<void>(m_port.setPortOpen(false));
}

/// Never from inside a signal of the device: what opens the next one ends the last.
void RadioSearch::after(int ms) {
    m_timer->setInterval(ms);
    m_timer->setEnabled(true);
}

std::string RadioSearch::reportText() const {
    std::string text;
    for (const auto& line : m_report) text += "\n" + line;
    if (running && m_portIndex == m_ports.size()) {
        text += m_ports.empty() ? "\nThis computer has no serial port. Is the adapter plugged in?"
                                : "\nIs the radio switched on, and menu 030 (CAT RTS) OFF?";
    }
    return text;
}

}  // namespace korvex
