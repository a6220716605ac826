#pragma once

#include <functional>
#include <memory>

#include "platform/Clock.h"

namespace korvex {

/// How long an answer is waited for: 5 s after the last sign of life `onSilence` is called, once.
class AnswerPatience {
public:
    AnswerPatience(Clock& clock, std::function<void()> onSilence) : m_timer(clock.makeTimer()) {
        constexpr int silenceMs = 5'000;
        m_timer->setInterval(silenceMs);
        m_tick = m_timer->tick.connect([this, silence = std::move(onSilence)] {
            end();
            silence();
        });
    }

    /// A question has gone out, or an answer has come and there are more to come.
    void begin() {
        end();
        m_timer->setEnabled(true);
    }
    void end() { m_timer->setEnabled(false); }

private:
    std::unique_ptr<Timer> m_timer;
    Connection m_tick;
};

}  // namespace korvex
