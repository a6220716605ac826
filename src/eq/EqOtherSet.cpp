#include "eq/EqOtherSet.h"

namespace korvex {

namespace {

constexpr int queryMs = 400;
constexpr std::size_t listenedToTheEnd = eqItemCount + 1;  // a slow radio answers within half a second

}  // namespace

EqOtherSet::EqOtherSet(MSComm& port, Clock& clock) : m_port(port), m_timer(clock.makeTimer()) {
    m_timer->setInterval(queryMs);
    m_tick = m_timer->tick.connect([this] { tick(); });
}

void EqOtherSet::read(bool processorOn) {
    m_processorOn = processorOn;
    m_next = 0;
    m_told = {};
    values = std::nullopt;
    m_timer->setEnabled(true);
}

void EqOtherSet::tick() {
    if (m_next < eqItemCount) m_port.Output(eq::menuItem(m_next, m_processorOn) + ";");
    if (++m_next <= listenedToTheEnd) return;
    stop();
    ended.emit();
}

bool EqOtherSet::take(std::string_view answer) {
    if (!reading()) return false;
    const auto read = eq::readAnswer(answer, m_processorOn);
    if (!read) return false;
    m_told[read->item] = read->value;
    EqValues all{};
    for (std::size_t item = 0; item < eqItemCount; ++item) {
        if (!m_told[item]) return true;
        all[item] = *m_told[item];
    }
    values = all;
    return true;
}

}  // namespace korvex
