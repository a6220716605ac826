#include "eq/EqSetWriter.h"

namespace korvex {

namespace {

constexpr int commandMs = 100;

}  // namespace

EqSetWriter::EqSetWriter(EqExchange& exchange, Clock& clock) : m_exchange(exchange), m_timer(clock.makeTimer()) {
    m_timer->setInterval(commandMs);
    m_tick = m_timer->tick.connect([this] { tick(); });
}

void EqSetWriter::write(const EqValues& values, bool processorOn) {
    m_values = values;
    m_processorOn = processorOn;
    m_next = 0;
    m_timer->setEnabled(true);
}

void EqSetWriter::tick() {
    if (m_next < eqItemCount) {
        m_exchange.setValue(m_processorOn, m_next, m_values[m_next]);
        ++m_next;
        return;
    }
    stop();
    m_exchange.readSet(m_processorOn);
    written.emit();
}

}  // namespace korvex
