#include "doctor/Examination.h"

#include <algorithm>
#include <set>

#include "cat/RadioModel.h"
#include "cat/Tempo.h"
#include "memory/MemoryRecord.h"
#include "memory/MemoryTables.h"
#include "report/AnswerForm.h"

namespace korvex {

namespace {

constexpr std::size_t letters = 2;
constexpr int testStepMs = 20;
constexpr int patienceMs = 1'000;  // twice of what a slow radio takes
constexpr int mostTries = 2;
constexpr int silentBeforeProbe = 2;
constexpr int busyMs = 150;
constexpr int listenMs = 1'500;
constexpr int misnamedBeforeTaken = 3;  // channels; from then on nothing better is waited for

/// An answer to another question of the same letters has another number.
bool isNamed(std::string_view query, std::string_view answer) {
    return answer.starts_with(query.substr(0, query.size() - 1));
}

/// What came without a question, by its two letters; empty for what makes no sense.
std::string lettersOf(std::string_view piece) {
    const auto isCapital = [](char c) { return c >= 'A' && c <= 'Z'; };
    for (std::size_t i = 0; i + letters < piece.size(); ++i) {
        if (isCapital(piece[i]) && isCapital(piece[i + 1])) return std::string(piece.substr(i, letters));
    }
    return {};
}

/// No command of the radio has such a character, but for a keyer text.
bool isNoise(char c) {
    constexpr unsigned char firstPrintable = 0x20;
    constexpr unsigned char lastPrintable = 0x7E;
    const auto byte = static_cast<unsigned char>(c);
    return byte > lastPrintable || (byte < firstPrintable && c != '\r' && c != '\n');
}

AnswerDelay delayOf(const std::string& name, std::vector<int> times) {
    constexpr int step = 10;
    const auto& classes = AnswerDelay::classesMs;
    std::sort(times.begin(), times.end());
    const int usual = (times[times.size() / 2] + step / 2) / step * step;
    const auto* within = std::find_if(classes.begin(), classes.end() - 1, [&](int ms) { return times.back() <= ms; });
    return {name, std::min(usual, classes.back()), *within};
}

}  // namespace

void Examination::begin(RadioReport begun, bool withSettings) {
    const int count = static_cast<int>(questions().size());
    auto operation = m_link.begin({ActiveOperation::MenuReadToFile,
                                   "Checking the radio",
                                   count,
                                   {"question", "questions"},
                                   "Check of the radio: questions only",
                                   count,
                                   1});
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_report = std::move(begun);
    m_withSettings = withSettings;
    m_at = 0;
    m_silent = m_silentInARow = 0;
    m_longestDelay = 0;
    m_delays.clear();
    m_doubtfulDelays.clear();
    m_noise = m_link.came.connect([this](std::string_view wire) {
        const bool isText = m_at < questions().size() && question().query.starts_with("KM");
        if (!isText && std::any_of(wire.begin(), wire.end(), isNoise)) m_report.noise = true;
    });
    m_operation->onAnswer([this](std::string_view answer) { return take(answer); });
    m_operation->onStrange([this](std::string_view piece) { return takeUnasked(piece); });
    m_operation->onEnd([this](const Outcome& outcome) {
        m_noise.end();
        m_report.echoes = m_link.returnsWhatIsSent();
        ended.emit(outcome);
    });
    m_report.line = m_link.port().Settings();
    m_report.handshaking = m_link.port().Handshaking();
    m_operation->after(testStepMs, [this] { startTested(); });
}

/// The answer to the communication test is nobody's.
void Examination::startTested() {
    if (m_link.testing()) return m_operation->after(testStepMs, [this] { startTested(); });
    m_link.clearTraffic();
    start();
}

void Examination::start() {
    m_tries = 0;
    m_askedAt = m_operation->now();
    m_refused = false;
    m_candidate.clear();
    m_operation->step(static_cast<int>(m_at) + 1);
    const std::string& query = question().query;
    const bool isText = query.starts_with("KM");
    m_operation->expect({query.substr(0, isText ? query.size() - 1 : letters), isText ? 0 : query.size() + 1, isText});
    ask();
}

int Examination::lineMs(std::size_t characters) const {
    return Tempo(m_link.port().lineSettings().characterTime()).lineMs(characters);
}

void Examination::ask() {
    constexpr std::size_t longestAnswer = 54;
    ++m_tries;
    m_operation->send(question().query);
    constexpr int shortPatienceMs = 150;
    const bool isKnown = passesOver() && m_longestDelay > 0;
    const int patience = isKnown ? std::clamp(3 * m_longestDelay, shortPatienceMs, patienceMs) : patienceMs;
    m_operation->after(patience + lineMs(question().query.size() + longestAnswer), [this] { onPatience(); });
}

Rest Examination::take(std::string_view answer) {
    const std::string& query = question().query;
    if (answer == "?;" && !m_refused && !question().mayBeRefused) {
        m_refused = true;
        m_operation->after(busyMs, [this] {
            m_askedAt = m_operation->now();
            ask();
        });
        return Rest::GoOn;
    }
    const bool named = answer == "?;" || isNamed(query, answer);
    if (!named && m_report.channelsMisnamed < misnamedBeforeTaken) {
        m_candidate = answer;
        return Rest::GoOn;
    }
    noteDelay(query, answer);
    settle(std::string(answer));
    return Rest::GoOn;
}

Rest Examination::takeUnasked(std::string_view piece) {
    if (piece == "?;") return Rest::GoOn;  // a late one
    const std::string name = lettersOf(piece);
    auto& unasked = m_report.unasked;
    if (name.empty()) return Rest::GoOn;
    if (std::find(unasked.begin(), unasked.end(), name) == unasked.end()) {
        unasked.insert(std::upper_bound(unasked.begin(), unasked.end(), name), name);
    }
    return Rest::GoOn;
}

/// An answer to a question that was asked twice is late, or the first question was not heard.
void Examination::noteDelay(std::string_view query, std::string_view answer) {
    const auto took = static_cast<int>(m_operation->now() - m_askedAt);
    const int delay = std::max(0, took - lineMs(query.size() + answer.size()));
    const bool isSure = m_tries == 1;
    if (isSure) m_longestDelay = std::max({m_longestDelay, delay, 1});
    (isSure ? m_delays : m_doubtfulDelays)[std::string(query.substr(0, letters))].push_back(delay);
}

void Examination::onPatience() {
    if (!m_candidate.empty()) return settle(m_candidate);
    if (m_refused) return settle("?;");
    if (m_tries < mostTries && !passesOver()) return ask();
    onSilent();
}

void Examination::onSilent() {
    keep(question(), {});
    if (m_at == 0) return m_operation->breakOff(Outcome::Kind::NoAnswer);
    ++m_silent;
    ++m_silentInARow == silentBeforeProbe ? probe() : next();
}

/// It has shown that it is there and says nothing to what it does not know: nobody waits long for hundreds of those.
bool Examination::passesOver() const {
    constexpr int enough = 4;
    return m_silent >= enough;
}

/// Whether the radio is still there.
void Examination::probe() {
    m_operation->expect({"ID", sizeof("ID0;") - 1});
    m_tries = 1;
    m_askedAt = m_operation->now();
    m_operation->onAnswer([this](std::string_view id) {
        if (id != "?;") noteDelay("ID;", id);
        m_silentInARow = 0;
        m_operation->onAnswer([this](std::string_view answer) { return take(answer); });
        next();
        return Rest::GoOn;
    });
    m_operation->after(patienceMs, [this] { m_operation->breakOff(Outcome::Kind::NoAnswer); });
    m_operation->send("ID;");
}

void Examination::settle(const std::string& answer) {
    m_silentInARow = 0;
    keep(question(), answer);
    if (m_at == 0 && !isFt2000(answer)) return m_operation->breakOff(Outcome::Kind::Refused);
    next();
}

void Examination::keep(const Question& question, const std::string& answer) {
    m_report.forms.push_back({question.query, formOf(question.query, answer)});
    if (m_at == 0) m_report.model = answer == "?;" ? "" : answer;
    if (answer.empty() || answer == "?;") return;
    if (question.isTold) m_report.told[question.query] = answer;
    if (m_withSettings && question.isOwnersSetting) m_report.settings.push_back(answer);
    if (question.query.starts_with("MR") && question.query < memoryReadCommand(scanLimits.first)) {
        keepChannel(question.query, answer);
    }
}

void Examination::keepChannel(std::string_view query, std::string_view answer) {
    constexpr std::size_t frequency = 5;  // MR00714195000+...
    constexpr std::size_t digits = 8;
    constexpr std::size_t source = 21;
    ++m_report.channelsTold;
    if (!isNamed(query, answer)) ++m_report.channelsMisnamed;
    if (answer.substr(std::min(frequency, answer.size()), digits) == "00000000") ++m_report.channelsOfZeros;
    if (answer.size() <= source) return;
    std::set<char> sources(m_report.channelSources.begin(), m_report.channelSources.end());
    sources.insert(answer[source]);
    m_report.channelSources.assign(sources.begin(), sources.end());
}

void Examination::next() {
    if (++m_at < questions().size()) return start();
    askTwoAtOnce();
}

void Examination::askTwoAtOnce() {
    constexpr int questionsAtOnce = 2;
    m_operation->expect({"ID", sizeof("ID0;") - 1});
    m_owed = questionsAtOnce;
    m_operation->onAnswer([this](std::string_view answer) {
        if (answer == "?;" || --m_owed > 0) return Rest::GoOn;
        m_report.answersTwoAtOnce = true;
        listen();
        return Rest::GoOn;
    });
    m_report.answersTwoAtOnce = false;
    m_operation->after(patienceMs, [this] { listen(); });
    m_operation->send("ID;ID;");
}

/// What comes now has not been asked for.
void Examination::listen() {
    m_operation->expect({});
    m_operation->onAnswer([this](std::string_view piece) { return takeUnasked(piece); });
    m_operation->after(listenMs, [this] { complete(); });
}

void Examination::complete() {
    const auto& delays = m_delays.empty() ? m_doubtfulDelays : m_delays;
    for (const auto& [name, times] : delays) m_report.delays.push_back(delayOf(name, times));
    const int count = static_cast<int>(questions().size());
    m_operation->end({Outcome::Kind::Done, count, count, {}, {}});
}

}  // namespace korvex
