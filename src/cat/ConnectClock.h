#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/Property.h"
#include "platform/Clock.h"

namespace korvex {

/// Shows in a panel, once a second, how long the port has been open: "00:12:34 ".
class ConnectClock {
public:
    ConnectClock(Property<std::string>& panel, Clock& clock);

    void start();
    void stop();

private:
    void Timer1_Timer();

    Property<std::string>& m_panel;
    Clock& m_clock;
    std::unique_ptr<Timer> m_timer1;
    std::int64_t m_connectStart = 0;  // ms of the clock
    Connections m_connections;
};

}  // namespace korvex
