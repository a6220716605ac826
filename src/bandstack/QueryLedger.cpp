#include "bandstack/QueryLedger.h"

#include <algorithm>

namespace korvex {

namespace {

constexpr std::size_t mostOwed = 200;         // a radio that has been deaf for so long owes nothing
constexpr std::int64_t usualLatencyMs = 100;  // a radio no slower than that is asked again at every step
constexpr std::int64_t shortestSilenceMs = 300;
constexpr std::int64_t longestSilenceMs = 1'500;

}  // namespace

std::string_view queryHead(std::string_view query) {
    return query.substr(0, query.find(';'));
}

bool answersQuery(std::string_view query, std::string_view answer) {
    const auto head = queryHead(query);
    return answer.starts_with(head) && answer.size() > head.size() + 1;
}

template <class Test>
QueryLedger::Entry QueryLedger::firstThat(Test test) {
    return std::find_if(m_owed.begin(), m_owed.end(), test);
}

/// After that much silence no more answers come to what was asked before.
std::int64_t QueryLedger::silenceLimit() const {
    return std::clamp(3 * std::max(m_span, m_latency), shortestSilenceMs, longestSilenceMs);
}

bool QueryLedger::due(const Place& place, std::int64_t now) {
    const auto isOther = [&](const Asked& asked) { return asked.place != place && !asked.taken; };
    if (std::any_of(m_owed.begin(), m_owed.end(), isOther)) {
        if (now - m_lastActivity < silenceLimit()) return false;
        std::erase_if(m_owed, isOther);
    }
    return m_owed.empty() || m_latency <= usualLatencyMs || now - m_owed.back().at >= 2 * m_latency;
}

void QueryLedger::sent(const Place& place, std::string_view query, std::int64_t now) {
    if (m_owed.size() == mostOwed) m_owed.pop_front();
    m_owed.push_back({place, std::string(query), now, false});
    m_lastActivity = now;
}

/// Here and below: the radio answers in the order of the queries; what was asked before has been lost.
void QueryLedger::answered(const Entry& own, std::int64_t now) {
    m_lastActivity = now;
    m_span = now - own->at;
    m_owed.erase(m_owed.begin(), own + 1);
}

std::optional<QueryLedger::Place> QueryLedger::settle(const Entry& entry, std::int64_t now) {
    m_lastActivity = now;
    const Asked asked = *entry;
    m_owed.erase(m_owed.begin(), entry + 1);
    m_latency = std::clamp(now - asked.at, m_latency, longestSilenceMs);
    return asked.place;
}

std::optional<QueryLedger::Place> QueryLedger::ownerOfRefusal(const Place& place, std::int64_t now) {
    const auto first = firstThat([](const Asked& asked) { return !asked.taken; });
    if (first == m_owed.end()) return place;
    if (first->place == place) {
        answered(first, now);
        return place;
    }
    settle(first, now);
    return std::nullopt;
}

std::optional<QueryLedger::Place> QueryLedger::ownerOf(std::string_view answer, const Place& place,
                                                       std::string_view query, std::int64_t now) {
    if (answer == "?;") return ownerOfRefusal(place, now);
    const auto own = firstThat([&](const Asked& asked) { return asked.place == place; });
    if (own != m_owed.end() && answersQuery(query, answer)) {
        answered(own, now);
        return place;
    }
    const auto late =
        firstThat([&](const Asked& asked) { return asked.place != place && answersQuery(asked.query, answer); });
    if (late != m_owed.end()) return settle(late, now);
    if (own == m_owed.end()) return std::nullopt;  // unasked
    own->taken = true;
    return place;
}

}  // namespace korvex
