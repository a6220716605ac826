#pragma once

#include <memory>

#include "eq/EqExchange.h"

namespace korvex {

/// Writes nine values into one of the equalizer's two sets, one every 100 ms, each with its query behind it, and then
/// has the set read again: what is shown afterwards is what the radio has.
class EqSetWriter {
public:
    EqSetWriter(EqExchange& exchange, Clock& clock);

    void write(const EqValues& values, bool processorOn);
    /// What has not gone out stays unsent.
    void stop() { m_timer->setEnabled(false); }
    bool writing() const { return m_timer->Enabled(); }

    Signal<> written;  ///< all has gone out, and the reading has begun

private:
    void tick();

    EqExchange& m_exchange;
    std::unique_ptr<Timer> m_timer;
    EqValues m_values{};
    bool m_processorOn = false;
    std::size_t m_next = 0;
    Connection m_tick;
};

}  // namespace korvex
