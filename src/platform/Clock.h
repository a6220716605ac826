#pragma once

#include <cstdint>
#include <memory>

#include "base/Signal.h"

namespace korvex {

/// Ticks every `Interval` ms while `Enabled`. Enabling starts a full interval; a tick never comes from inside the call
/// that enables the timer, and never early. The pace is kept from deadline to deadline: no drift, and no burst of ticks
/// after a stall. A handler may stop, restart or destroy its own timer.
class Timer {
public:
    virtual ~Timer() = default;
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    int Interval() const { return m_interval; }
    /// In ms, at least 1. While the timer is enabled it starts anew with the new interval.
    void setInterval(int ms);

    bool Enabled() const { return m_enabled; }
    /// Enabling a timer that is enabled changes nothing.
    void setEnabled(bool enabled);

    Signal<> tick;

protected:
    Timer() = default;
    virtual void arm(int ms) = 0;
    virtual void disarm() = 0;

private:
    int m_interval = 1;
    bool m_enabled = false;
};

/// Where timers come from and what time it is. Tests play it.
class Clock {
public:
    virtual ~Clock() = default;

    virtual std::unique_ptr<Timer> makeTimer() = 0;

    /// ms since some moment in the past; never goes back, and says nothing about the time of day.
    virtual std::int64_t now() const = 0;

    /// Lets every other event run for up to `ms` ms, then comes back. The one wait in the program; only the drain of
    /// unsent output at shutdown uses it.
    virtual void letEventsRun(int ms) = 0;
};

}  // namespace korvex
