#pragma once

namespace korvex {

/// Makes a timer handler work on every second call only: `if (flag.isSet()) work(); flag.invert();`. It is kept between
/// runs, so a run begins with the half step that the run before it ended with.
class PhaseFlag {
public:
    bool isSet() const { return m_set; }
    void invert() { m_set = !m_set; }

private:
    bool m_set = false;
};

}  // namespace korvex
