#include "platform/Clock.h"

#include <algorithm>

namespace korvex {

void Timer::setInterval(int ms) {
    m_interval = std::max(ms, 1);
    if (m_enabled) arm(m_interval);
}

void Timer::setEnabled(bool enabled) {
    if (enabled == m_enabled) return;
    m_enabled = enabled;
    if (enabled) {
        arm(m_interval);
    } else {
        disarm();
    }
}

}  // namespace korvex
