#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Clock.h"

namespace korvex::fakes {

/// A clock that stands still until a test moves it. It goes from deadline to deadline; what falls on the same
/// millisecond runs in the order in which it was armed. It does not start at zero, so that nobody takes zero for
/// "never".
class VirtualClock : public Clock {
public:
    VirtualClock();
    ~VirtualClock() override;

    std::unique_ptr<Timer> makeTimer() override;
    std::int64_t now() const override { return m_now; }
    /// Nobody waits here: the other events of the next `ms` ms happen at once.
    void letEventsRun(int ms) override { advance(ms); }

    /// Runs everything that falls due within the next `ms` ms, the last of them included.
    void advance(std::int64_t ms);
    /// Moves from deadline to deadline until `done` or until `limitMs` have passed; tells whether `done`.
    bool advanceUntil(const std::function<bool()>& done, std::int64_t limitMs);
    /// The program hangs for `ms` ms: time passes and nothing runs.
    void stall(std::int64_t ms) { m_now += ms; }

    /// `work` runs once, `ms` ms from now (0: at the next move, still not from inside this call).
    void after(std::int64_t ms, std::function<void()> work);

    /// How many timers are enabled now: tests ask it to show that nothing goes on.
    std::size_t armedTimers() const;

private:
    class VirtualTimer;
    struct Deadline;
    struct State;

    bool runNext(std::int64_t until);

    std::int64_t m_now;
    std::shared_ptr<State> m_state;
};

}  // namespace korvex::fakes
