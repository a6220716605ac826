#pragma once

#include <cstddef>
#include <cstdint>

namespace korvex {

/// How long the radio may take to answer, and how much room there is between two questions, from what the line can
/// carry and from what this radio has shown.
class Tempo {
public:
    /// `longestDelayMs` is what is known of the radio from before; one that obeys one of two commands at once always
    /// gets room between them.
    explicit Tempo(double characterMs, int longestDelayMs = 0, bool obeysOneAtATime = false);

    /// What the line takes for so many characters.
    int lineMs(std::size_t characters) const;
    /// How long an answer is waited for after `sent` characters; longer with every try, counted from 1.
    int patience(std::size_t sent, int tries) const;
    /// Between an answer and the next question, 0 at best.
    int spacing() const { return m_spacing; }

    /// An answer came that late, the line's own time taken off. One at the first asking lets it go faster again.
    void answered(std::int64_t delayMs, bool atOnce);
    /// A question, or its answer, was lost.
    void lost();

private:
    double m_characterMs;
    std::int64_t m_longestDelay = 0;
    std::int64_t m_longestPatience;
    int m_narrowestSpacing = 0;
    int m_spacing = 0;
    int m_inARow = 0;  // answered at the first asking
};

}  // namespace korvex
