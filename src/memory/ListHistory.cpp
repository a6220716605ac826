#include "memory/ListHistory.h"

#include <utility>

namespace korvex {

namespace {

constexpr std::size_t mostSteps = 200;

}  // namespace

void ListHistory::note(Step step) {
    m_steps.resize(m_made);
    if (m_steps.size() == mostSteps) m_steps.erase(m_steps.begin());
    m_steps.push_back(std::move(step));
    m_made = m_steps.size();
}

std::optional<ListHistory::Step> ListHistory::undo() {
    return m_made == 0 ? std::nullopt : std::optional(m_steps[--m_made]);
}

std::optional<ListHistory::Step> ListHistory::redo() {
    return m_made == m_steps.size() ? std::nullopt : std::optional(m_steps[m_made++]);
}

}  // namespace korvex
