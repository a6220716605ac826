#pragma once

#include <functional>
#include <memory>

#include "base/Signal.h"
#include "platform/Clock.h"

namespace korvex {

class CatLink;

/// How long those who have nobody to ask wait for the radio: 5 s without the end of an answer, as noise could go on for
/// ever, and 30 s without a step forward, as what the dial tells unasked could.
class Patience {
public:
    /// `lost` is called once; the watch is over then.
    Patience(CatLink& link, Clock& clock, const std::function<void()>& lost);

    /// A radio that is written into says nothing: each step forward counts as an answer.
    enum class Of { Reading, Writing };
    void begin(Of what = Of::Reading);
    void end();

private:
    void startAnew(Timer& watch) const;

    Of m_what = Of::Reading;
    std::unique_ptr<Timer> m_silence;
    std::unique_ptr<Timer> m_standstill;
    Connections m_connections;
};

}  // namespace korvex
