#include "backup/BackupJournal.h"

#include <set>
#include <utility>

#include "platform/TextFile.h"

namespace korvex {

void BackupJournal::close() {
    m_tail.close();
    m_file.clear();
    m_soFar = {};
}

void BackupJournal::begin(std::string file, std::string timeOfDay, ReadSoFar before) {
    close();
    m_file = std::move(file);
    m_timeOfDay = std::move(timeOfDay);
    m_soFar = std::move(before);
    m_hasSession = false;
}

bool BackupJournal::isWhole(const std::string& reading) const {
    const auto found = m_soFar.readings.find(reading);
    return found != m_soFar.readings.end() && found->second.isWhole;
}

Recollection BackupJournal::recollectionOf(const std::string& reading) {
    const auto known = [this, reading](const Exchange& exchange) -> std::optional<std::string> {
        const auto& answers = m_soFar.readings[reading].answers;
        const auto found = answers.find(exchange.item);
        if (found == answers.end() || found->second.query != exchange.query) return std::nullopt;
        const std::string& answer = found->second.answer;
        if (answer != "?;" && answerIn(exchange.answer, answer) != answer) return std::nullopt;
        return answer;
    };
    const auto heard = [this, reading](const Exchange& exchange, const std::string& answer) {
        add(reading, {exchange.item, exchange.query, answer});
    };
    return {known, heard};
}

/// The one that goes on now; with its first answer it stands in the file.
int BackupJournal::session() {
    if (!std::exchange(m_hasSession, true)) {
        m_soFar.sessions.push_back(m_timeOfDay);
        m_tail.close();
        // What cannot be written now is told when the reading is whole.
        static_cast<void>(textfile::write(m_file, textOf(m_soFar)));
    }
    return static_cast<int>(m_soFar.sessions.size()) - 1;
}

void BackupJournal::add(const std::string& reading, const Told& told) {
    const ReadSoFar::Answer answer = {told.query, told.answer, session()};
    m_soFar.readings[reading].answers[told.item] = answer;
    if (!m_tail.is_open()) m_tail.open(m_file, std::ios::app | std::ios::binary);
    m_tail << answerLine(reading, told.item, answer) << std::flush;
}

Failure BackupJournal::noteWhole(const std::string& reading, const std::vector<Told>& told) {
    if (!isOpen()) return {};
    auto& kept = m_soFar.readings[reading];
    for (const auto& one : told) {
        auto& answer = kept.answers[one.item];
        if (answer.answer != one.answer || answer.query != one.query) answer = {one.query, one.answer, session()};
    }
    kept.isWhole = true;
    m_tail.close();
    return textfile::write(m_file, textOf(m_soFar));
}

void BackupJournal::forget(const std::string& reading) {
    if (m_soFar.readings.erase(reading) == 0) return;
    m_tail.close();
    static_cast<void>(textfile::write(m_file, textOf(m_soFar)));  // where that fails it is forgotten the next time
}

std::vector<std::string> BackupJournal::timesOf(const std::string& reading) const {
    const auto found = m_soFar.readings.find(reading);
    std::set<int> sessions;
    if (found != m_soFar.readings.end()) {
        for (const auto& [item, answer] : found->second.answers) sessions.insert(answer.session);
    }
    std::vector<std::string> times;
    for (const int session : sessions) times.push_back(m_soFar.sessions.at(static_cast<std::size_t>(session)));
    return times;
}

}  // namespace korvex
