#include "platform/qt/QtClock.h"

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

#include "fakes/VirtualClock.h"

namespace korvex {
namespace {

/// What every clock keeps, on the tests' clock and on the machine's. Real time is allowed to be late, never early.
template <class AnyClock>
class ClockContract : public ::testing::Test {
protected:
    static constexpr bool isVirtual = std::is_same_v<AnyClock, fakes::VirtualClock>;

    AnyClock clock;
    std::int64_t start = clock.now();
    std::vector<std::int64_t> ticks;
    std::unique_ptr<Timer> timer = clock.makeTimer();
    Connection recording = timer->tick.connect([this] { ticks.push_back(clock.now() - start); });

    void enable(int ms) {
        timer->setInterval(ms);
        start = clock.now();
        timer->setEnabled(true);
    }
    void hang(int ms) {
        if constexpr (isVirtual) {
            clock.stall(ms);
        } else {
            std::this_thread::sleep_for(std::chrono::milliseconds(ms));
        }
    }
};

using Clocks = ::testing::Types<fakes::VirtualClock, QtClock>;
TYPED_TEST_SUITE(ClockContract, Clocks);

TYPED_TEST(ClockContract, TicksFromDeadlineToDeadlineNeverEarly) {
    this->enable(50);
    EXPECT_TRUE(this->ticks.empty());
    auto slow = this->timer->tick.connect([this] { this->hang(30); });
    this->clock.letEventsRun(380);
    ASSERT_GE(this->ticks.size(), 3U);
    std::int64_t shortestGap = 1000;
    for (std::size_t i = 0; i < this->ticks.size(); ++i) {
        EXPECT_GE(this->ticks[i], 50 * static_cast<std::int64_t>(i + 1));
        if (i > 0) shortestGap = std::min(shortestGap, this->ticks[i] - this->ticks[i - 1]);
    }
    EXPECT_LT(shortestGap, 50 + 30) << "the pace drifts by what the handler takes";
}

TYPED_TEST(ClockContract, AfterAStallOneTickAndThenAFullInterval) {
    this->enable(20);
    this->hang(110);
    this->clock.letEventsRun(60);
    ASSERT_GE(this->ticks.size(), 2U);
    EXPECT_GE(this->ticks[0], 110);
    EXPECT_GE(this->ticks[1] - this->ticks[0], 20);
}

TYPED_TEST(ClockContract, EnablingAndANewIntervalStartAFullInterval) {
    this->enable(150);
    this->clock.letEventsRun(20);
    this->timer->setEnabled(true);  // nothing new
    this->timer->setInterval(100);
    const auto changed = this->clock.now() - this->start;
    this->clock.letEventsRun(110);
    ASSERT_GE(this->ticks.size(), 1U);
    EXPECT_GE(this->ticks[0], changed + 100);
    this->timer->setEnabled(false);
    this->ticks.clear();
    this->clock.letEventsRun(120);
    EXPECT_TRUE(this->ticks.empty());
}

TYPED_TEST(ClockContract, AHandlerMayStopRestartAndDestroyItsTimer) {
    int calls = 0;
    auto handler = this->timer->tick.connect([&] {
        ++calls;
        if (calls == 1) {
            this->timer->setEnabled(false);
            this->timer->setEnabled(true);
            EXPECT_EQ(calls, 1);
        } else {
            this->timer.reset();
        }
    });
    this->enable(10);
    this->clock.letEventsRun(120);
    EXPECT_EQ(calls, 2);
}

TYPED_TEST(ClockContract, TicksWhileAnotherHandlerSitsInADialog) {
    this->enable(10);
    auto other = this->clock.makeTimer();
    std::size_t before = 0;
    std::size_t after = 0;
    auto dialog = other->tick.connect([&] {
        other->setEnabled(false);
        before = this->ticks.size();
        this->clock.letEventsRun(60);
        after = this->ticks.size();
    });
    other->setInterval(15);
    other->setEnabled(true);
    this->clock.letEventsRun(100);
    EXPECT_GT(after, before);
}

}  // namespace
}  // namespace korvex
