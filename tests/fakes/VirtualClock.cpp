#include "fakes/VirtualClock.h"

#include <algorithm>
#include <utility>

namespace korvex::fakes {

struct VirtualClock::Deadline {
    std::int64_t at = 0;
    std::uint64_t order = 0;
    const void* owner = nullptr;  // a timer, or null for work that runs once
    std::function<void()> work;
};

struct VirtualClock::State {
    VirtualClock* clock = nullptr;
    std::uint64_t armed = 0;
    std::vector<Deadline> deadlines;

    void add(std::int64_t at, const void* owner, std::function<void()> work) {
        deadlines.push_back({at, ++armed, owner, std::move(work)});
    }
    void removeAll(const void* owner) {
        std::erase_if(deadlines, [owner](const Deadline& d) { return d.owner == owner; });
    }
};

class VirtualClock::VirtualTimer : public Timer {
public:
    explicit VirtualTimer(std::shared_ptr<State> state) : m_state(std::move(state)) {}
    ~VirtualTimer() override { m_state->removeAll(this); }

protected:
    void arm(int ms) override {
        m_state->removeAll(this);
        m_next = m_state->clock->now() + ms;
        m_state->add(m_next, this, [this] { fire(); });
    }
    void disarm() override { m_state->removeAll(this); }

private:
    void fire() {
        m_next += Interval();
        // After a stall the missed ticks are gone; the next one comes a full interval from now.
        if (m_next <= m_state->clock->now()) m_next = m_state->clock->now() + Interval();
        m_state->add(m_next, this, [this] { fire(); });
        tick.emit();
    }

    std::shared_ptr<State> m_state;
    std::int64_t m_next = 0;
};

VirtualClock::VirtualClock() : m_now(1'700'000), m_state(std::make_shared<State>()) {
    m_state->clock = this;
}

VirtualClock::~VirtualClock() = default;

std::unique_ptr<Timer> VirtualClock::makeTimer() {
    return std::make_unique<VirtualTimer>(m_state);
}

bool VirtualClock::runNext(std::int64_t until) {
    auto& deadlines = m_state->deadlines;
    const auto next = std::min_element(deadlines.begin(), deadlines.end(), [](const auto& a, const auto& b) {
        return std::pair(a.at, a.order) < std::pair(b.at, b.order);
    });
    if (next == deadlines.end() || next->at > until) return false;
    const Deadline due = std::move(*next);
    deadlines.erase(next);
    m_now = std::max(m_now, due.at);
    due.work();
    return true;
}

void VirtualClock::advance(std::int64_t ms) {
    const auto until = m_now + ms;
    while (runNext(until)) {
    }
    m_now = std::max(m_now, until);
}

bool VirtualClock::advanceUntil(const std::function<bool()>& done, std::int64_t limitMs) {
    const auto until = m_now + limitMs;
    while (!done()) {
        if (!runNext(until)) return false;
    }
    return true;
}

void VirtualClock::after(std::int64_t ms, std::function<void()> work) {
    m_state->add(m_now + ms, nullptr, std::move(work));
}

std::size_t VirtualClock::armedTimers() const {
    return static_cast<std::size_t>(std::count_if(m_state->deadlines.begin(), m_state->deadlines.end(),
                                                  [](const Deadline& d) { return d.owner != nullptr; }));
}

}  // namespace korvex::fakes
