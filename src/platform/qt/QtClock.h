#pragma once

#include "platform/Clock.h"

namespace korvex {

/// Timers and time of the event loop of this thread; a Q(Core)Application must exist. Timers tick in nested event loops
/// (dialogs) too; only a timer whose own handler still runs waits for it to come back.
class QtClock : public Clock {
public:
    std::unique_ptr<Timer> makeTimer() override;
    std::int64_t now() const override;
    void letEventsRun(int ms) override;
};

}  // namespace korvex
