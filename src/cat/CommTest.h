#pragma once

#include <memory>
#include <string_view>

#include "cat/PhaseFlag.h"
#include "cat/TrafficDisplay.h"
#include "platform/Clock.h"
#include "platform/MSComm.h"

namespace korvex {

/// Asks the radio for the VFO A frequency when the port has been opened and says in the receive display whether an
/// answer came. The banner itself holds no "FA".
class CommTest {
public:
    CommTest(MSComm& port, TrafficDisplay& received, Clock& clock);

    void start();
    bool running() const { return m_timer5->Enabled(); }

    /// Whether the answer stands in what has come: a question that an adapter has returned is none.
    static bool isAnswered(std::string_view received);

    static constexpr std::string_view question = "FA;\r\n";
    static constexpr std::string_view banner =
        " Communication Test \r\n Reading VFO A Frequency. Please check the result \r\n\r\n VFO A Frequency =  ";

private:
    void Timer5_Timer();

    MSComm& m_port;
    TrafficDisplay& m_received;
    std::unique_ptr<Timer> m_timer5;
    PhaseFlag m_testTick;  // kept across tests: the first verdict comes after 500 ms, later ones after 1000
    Connections m_connections;
};

}  // namespace korvex
