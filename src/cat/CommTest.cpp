#include "cat/CommTest.h"

#include <string>

namespace korvex {

CommTest::CommTest(MSComm& port, TrafficDisplay& received, Clock& clock)
    : m_port(port), m_received(received), m_timer5(clock.makeTimer()) {
    m_timer5->setInterval(500);
    m_connections += m_timer5->tick.connect([this] { Timer5_Timer(); });
}

void CommTest::start() {
    m_received.set(banner);
    m_port.Output(question);
    m_timer5->setEnabled(true);
}

bool CommTest::isAnswered(std::string_view received) {
    constexpr std::string_view head = "FA";
    for (auto at = received.find(head); at != std::string_view::npos; at = received.find(head, at + 1)) {
        if (!received.substr(at + head.size()).starts_with(';')) return true;
    }
    return false;
}

void CommTest::Timer5_Timer() {
    if (!m_testTick.isSet()) {
        m_timer5->setEnabled(false);
        m_received.append(isAnswered(m_received.text())
                              ? "\r\n  Communication OK  "
                              : "\r\n\r\n Error: No Communication\r\n Please check settings and cable ");
    }
    m_testTick.invert();
}

}  // namespace korvex
