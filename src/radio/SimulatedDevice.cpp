#include "radio/SimulatedDevice.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "radio/MenuItems.h"

namespace korvex {

namespace {

RuntimeError gone() {
    return {errors::PortGone, "The simulated radio is not plugged in."};
}

}  // namespace

SimulatedDevice::SimulatedDevice(Clock& clock, SimulatedCable& cable)
    : m_clock(clock), m_cable(cable), m_timer(clock.makeTimer()) {
    m_connections += m_timer->tick.connect([this] { onTick(); });
    m_connections += m_cable.unplugNow.connect([this] { arm(); });
}

SimulatedDevice::~SimulatedDevice() {
    SimulatedDevice::close();
}

Failure SimulatedDevice::open(const LineSettings& settings, Handshaking) {
    if (!m_cable.pluggedIn) return gone();
    if (m_cable.isOpen) return RuntimeError{errors::PortAlreadyOpen, "The simulated radio's port is open already."};
    m_settings = settings;
    m_open = m_cable.isOpen = true;
    m_rts = m_dtr = false;
    arm();
    return {};
}

void SimulatedDevice::close() {
    if (!m_open) return;
    m_open = m_cable.isOpen = false;
    m_timer->setEnabled(false);
    m_leaving.clear();
    m_received.clear();
    m_cable.line.clear();
}

void SimulatedDevice::write(std::string_view wire) {
    if (!m_open) return;
    double at = static_cast<double>(m_clock.now());
    if (!m_leaving.empty()) at = std::max(at, m_leaving.back().at);
    for (const char c : wire) {
        at += characterTime();
        m_leaving.push_back({at, c});
    }
    arm();
}

std::string SimulatedDevice::read() {
    return std::exchange(m_received, {});
}

std::size_t SimulatedDevice::unsent() const {
    const auto now = static_cast<double>(m_clock.now());
    return static_cast<std::size_t>(
        std::count_if(m_leaving.begin(), m_leaving.end(), [now](const Leaving& c) { return c.at > now; }));
}

void SimulatedDevice::discardUnsent() {
    const auto now = static_cast<double>(m_clock.now());
    std::erase_if(m_leaving, [now](const Leaving& c) { return c.at > now; });
    arm();
}

/// The next moment at which anyone could notice something: a command is complete, an answer comes in.
void SimulatedDevice::arm() {
    m_timer->setEnabled(false);
    if (!m_open) return;
    auto due = m_cable.line.nextDue();
    const auto ending =
        std::find_if(m_leaving.begin(), m_leaving.end(), [](const Leaving& c) { return c.character == ';'; });
    const auto notable = ending != m_leaving.end() || m_leaving.empty() ? ending : std::prev(m_leaving.end());
    if (notable != m_leaving.end()) due = due ? std::min(*due, notable->at) : notable->at;
    if (!m_cable.pluggedIn) due = 0;
    if (!due) return;
    const double wait = std::ceil(*due - static_cast<double>(m_clock.now()));
    m_timer->setInterval(static_cast<int>(std::max(wait, 1.0)));
    m_timer->setEnabled(true);
}

void SimulatedDevice::letCharactersLeave() {
    const auto now = static_cast<double>(m_clock.now());
    m_cable.line.speedsDiffer = speedsDiffer();
    m_cable.line.characterTimeMs = characterTime();
    while (!m_leaving.empty() && m_leaving.front().at <= now) {
        const Leaving first = m_leaving.front();
        m_leaving.pop_front();
        m_cable.line.hear(first.at, std::string_view(&first.character, 1));
    }
}

void SimulatedDevice::onTick() {
    letCharactersLeave();
    const auto now = static_cast<double>(m_clock.now());
    const std::string came = m_cable.line.takeDue(now);
    m_received += came;
    if (m_cable.line.isUnplugged(now)) m_cable.pluggedIn = false;
    arm();
    // Last: a handler may close or destroy this device.
    if (!came.empty()) {
        received.emit();
    } else if (!m_cable.pluggedIn) {
        pullPlug();
    }
}

void SimulatedDevice::pullPlug() {
    close();
    lost.emit(gone());
}

double SimulatedDevice::characterTime() const {
    return m_cable.idealLine ? 0 : m_settings.characterTime();
}

bool SimulatedDevice::speedsDiffer() const {
    if (!m_cable.comparesSpeeds) return false;
    constexpr std::array<std::string_view, 4> codes = {"0", "1", "2", "3"};
    constexpr std::array<int, 4> speeds = {4800, 9600, 19200, 38400};
    const auto code = std::find(codes.begin(), codes.end(), m_cable.radio.state.menu.at(menuCatRate));
    return code == codes.end() || speeds.at(static_cast<std::size_t>(code - codes.begin())) != m_settings.speed;
}

}  // namespace korvex
