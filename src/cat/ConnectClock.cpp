#include "cat/ConnectClock.h"

#include "base/NumberText.h"

namespace korvex {

ConnectClock::ConnectClock(Property<std::string>& panel, Clock& clock)
    : m_panel(panel), m_clock(clock), m_timer1(clock.makeTimer()) {
    m_timer1->setInterval(1000);
    m_connections += m_timer1->tick.connect([this] { Timer1_Timer(); });
}

void ConnectClock::start() {
    m_connectStart = m_clock.now();
    m_timer1->setEnabled(true);
}

void ConnectClock::stop() {
    m_timer1->setEnabled(false);
    m_panel = "";
}

void ConnectClock::Timer1_Timer() {
    constexpr std::int64_t secondsOfDay = std::int64_t{24} * 60 * 60;
    // A span is shown as a time of day, so that it starts again after 24 hours.
    const auto seconds = static_cast<int>((m_clock.now() - m_connectStart) / 1000 % secondsOfDay);
    m_panel = zeroPadded(seconds / 3600, 2) + ":" + zeroPadded(seconds / 60 % 60, 2) + ":" +
              zeroPadded(seconds % 60, 2) + " ";
}

}  // namespace korvex
