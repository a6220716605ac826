#include "backup/SameRadio.h"

#include <algorithm>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "memory/MemoryExchange.h"

namespace korvex {

namespace {

constexpr std::size_t samplesOfAReading = 8;

/// EX042;, MR007; and KM1; tell the same wherever the radio stands. The queries come from a file: what could set
/// something is none.
bool isAskedAnywhere(const std::string& query) {
    const bool isLong = query.starts_with("EX") || query.starts_with("MR");
    const std::size_t digits = isLong ? 3 : 1;
    constexpr std::size_t letters = 2;
    if ((!isLong && !query.starts_with("KM")) || query.size() != letters + digits + 1 || query.back() != ';')
        return false;
    return std::all_of(query.begin() + letters, query.end() - 1, isDigit);
}

Exchange questionOf(const std::string& name, const std::string& query) {
    const bool isText = query.starts_with("KM");
    return {name, query, {query.substr(0, query.size() - 1), isText ? 0 : query.size() + 1, isText}};
}

}  // namespace

/// Spread over what is there, the first and the last among them.
void SameRadio::choose(const ReadSoFar& before) {
    m_samples.clear();
    for (const auto& [name, reading] : before.readings) {
        std::vector<Sample> told;
        for (const auto& [item, answer] : reading.answers) {
            if (answer.answer != "?;" && isAskedAnywhere(answer.query)) told.push_back({name + " " + item, answer});
        }
        const std::size_t count = std::min(told.size(), samplesOfAReading);
        for (std::size_t i = 0; i < count; ++i) {
            m_samples.push_back(told[count == 1 ? 0 : i * (told.size() - 1) / (count - 1)]);
        }
    }
}

void SameRadio::look(const ReadSoFar& before) {
    m_different.clear();
    m_asked = 0;
    choose(before);
    if (m_samples.empty()) return ended.emit({});
    auto operation =
        m_link.begin({ActiveOperation::MenuReadToFile, "Looking at the radio", static_cast<int>(m_samples.size())});
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_operation->onEnd([this](const Outcome& outcome) { ended.emit(outcome); });
    const auto next = [this]() -> std::optional<Exchange> {
        if (m_asked == m_samples.size()) return std::nullopt;
        const Sample& sample = m_samples[m_asked++];
        m_operation->step(static_cast<int>(m_asked));
        return questionOf(sample.name, sample.before.query);
    };
    const auto heard = [this](const Reply& reply) { compare(m_samples[m_asked - 1], reply); };
    m_operation->converse({next, heard, [this](const Outcome& outcome) { m_operation->end(outcome); }});
}

void SameRadio::compare(const Sample& sample, const Reply& reply) {
    if (reply.kind == Reply::Kind::None) return;
    const bool isMemory = sample.before.query.starts_with("MR");
    const bool alike =
        isMemory ? isSameMemory(sample.before.answer, reply.answer) : sample.before.answer == reply.answer;
    if (!alike) m_different.push_back(utf8FromWire(sample.name));
}

}  // namespace korvex
