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
    m_port.Output("FA;\r\n");
    m_timer5->setEnabled(true);
}

void CommTest::Timer5_Timer() {
    if (!m_testTick.isSet()) {
        m_timer5->setEnabled(false);
        const bool answered = m_received.text().find("FA") != std::string::npos;
        m_received.append(answered ? "\r\n  Communication OK  "
                                   : "\r\n\r\n Error: No Communication\r\n Please check settings and cable ");
    }
    m_testTick.invert();
}

}  // namespace korvex
