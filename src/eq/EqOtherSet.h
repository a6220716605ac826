#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string_view>

#include "base/Property.h"
#include "eq/EqItems.h"
#include "platform/Clock.h"
#include "platform/MSComm.h"

namespace korvex {

/// The equalizer's set that is not shown, because the processor stands the other way. The radio tells it, too: an item
/// every 400 ms, while nothing else wants the line.
class EqOtherSet {
public:
    EqOtherSet(MSComm& port, Clock& clock);

    /// Nothing while not all nine values are known.
    Property<std::optional<EqValues>> values;

    /// `processorOn` is the set's own. What was known is forgotten.
    void read(bool processorOn);
    void stop() { m_timer->setEnabled(false); }
    bool reading() const { return m_timer->Enabled(); }
    /// The answer ("EX13405;") was of this set.
    bool take(std::string_view answer);
    Signal<> ended;  ///< a reading is over, `values` tells how it went; not after stop()

private:
    void tick();

    MSComm& m_port;
    std::unique_ptr<Timer> m_timer;
    bool m_processorOn = true;
    std::size_t m_next = 0;
    std::array<std::optional<int>, eqItemCount> m_told;
    Connection m_tick;
};

}  // namespace korvex
