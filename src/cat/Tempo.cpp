#include "cat/Tempo.h"

#include <algorithm>
#include <cmath>

namespace korvex {

namespace {

constexpr std::size_t longestAnswer = 54;  // a full keyer memory
constexpr std::int64_t shortestPatienceMs = 200;
constexpr std::int64_t usualPatienceMs = 1'000;  // at most
constexpr int firstSpacingMs = 25;
constexpr int widestSpacingMs = 100;  // what any radio keeps up with
constexpr int calmAnswers = 16;

}  // namespace

Tempo::Tempo(double characterMs, int longestDelayMs, bool obeysOneAtATime)
    : m_characterMs(characterMs),
      m_longestDelay(longestDelayMs),
      m_longestPatience(std::max<std::int64_t>(usualPatienceMs, 2 * longestDelayMs)),
      m_narrowestSpacing(obeysOneAtATime ? std::max(widestSpacingMs, longestDelayMs) : 0),
      m_spacing(m_narrowestSpacing) {}

int Tempo::lineMs(std::size_t characters) const {
    return static_cast<int>(std::ceil(m_characterMs * static_cast<double>(characters)));
}

int Tempo::patience(std::size_t sent, int tries) const {
    const auto once = std::max(2 * m_longestDelay, shortestPatienceMs);
    return lineMs(sent + longestAnswer) + static_cast<int>(std::min(once << (tries - 1), m_longestPatience));
}

void Tempo::answered(std::int64_t delayMs, bool atOnce) {
    m_longestDelay = std::clamp(delayMs, m_longestDelay, m_longestPatience);
    m_inARow = atOnce ? m_inARow + 1 : 0;
    if (m_inARow == 0 || m_inARow % calmAnswers != 0) return;
    m_spacing = std::max(m_narrowestSpacing, m_spacing > firstSpacingMs ? m_spacing / 2 : 0);
}

void Tempo::lost() {
    m_inARow = 0;
    m_spacing = std::max(m_narrowestSpacing, std::clamp(2 * m_spacing, firstSpacingMs, widestSpacingMs));
}

}  // namespace korvex
