#include "share/SharedLine.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/AsciiText.h"
#include "base/CodePage.h"
#include "cat/TransmitGuard.h"
#include "share/ReadForms.h"

namespace korvex {

namespace {

constexpr int pollMs = 50;
constexpr int longestWaitMs = 2'000;  // hamlib gives up after as long
constexpr int answerMs = 1'000;       // a slow radio answers within half a second
constexpr int refusalMs = 60;         // for a radio whose delay is not known yet
constexpr int longestRefusalMs = 500;
constexpr std::size_t mostAnswers = 512;
constexpr std::string_view refused = "?;";
const std::string unaskedQuestion = "AI;";

}  // namespace

SharedLine::SharedLine(CatLink& link, Clock& clock)
    : m_link(link), m_clock(clock), m_poll(clock.makeTimer()), m_patience(clock.makeTimer()) {
    m_poll->setInterval(pollMs);
    m_connections += m_poll->tick.connect([this] { goOn(); });
    m_connections += m_patience->tick.connect([this] { onPatience(); });
    m_connections += m_link.went.connect([this](std::string_view wire) { noteOurs(wire); });
    m_connections += m_link.closing.connect([this] { onClosing(); });
    m_connections += m_link.closed.connect([this] { keepQuiet(); });
    m_link.answers().setFirstLook([this](std::string_view piece) { return take(piece); });
}

SharedLine::~SharedLine() {
    onClosing();
    m_link.answers().setFirstLook(nullptr);
}

void SharedLine::ask(ForeignCommand command) {
    command.cameAt = m_clock.now();
    if (endsTransmission(command)) {
        m_link.send(command.wire);
        m_keyed.erase(inCapitals(command.wire));
        command.known = "";
    }
    const auto his = std::count_if(m_waiting.begin(), m_waiting.end(),
                                   [&](const ForeignCommand& other) { return other.from == command.from; });
    if (static_cast<std::size_t>(his) >= mostWaiting) return command.answered(refused);
    if (!command.known && !mayGoOut(command)) command.known = refused;
    m_waiting.push_back(std::move(command));
    goOn();
}

bool SharedLine::mayGoOut(const ForeignCommand& command) {
    if (!keysTransmitter(command.wire)) return true;
    const std::string wire = utf8FromWire(command.wire);
    told.emit(transmitAllowed ? "Another program has sent " + wire + " which can make the radio transmit."
                              : "Another program wanted to send " + wire +
                                    " which can make the radio transmit. It was not passed on.");
    return transmitAllowed;
}

bool SharedLine::endsTransmission(const ForeignCommand& command) const {
    return m_link.PortOpen() && m_keyed.contains(inCapitals(command.wire));
}

/// `wire` in capitals, and on its way.
void SharedLine::noteKeying(const std::string& wire, const void* from) {
    if (!wire.starts_with("TX") && !wire.starts_with("MX")) return;
    if (keysTransmitter(wire)) {
        m_keyed[wire.substr(0, 2) + "0;"] = from;
    } else {
        m_keyed.erase(wire);
    }
}

void SharedLine::endTransmissionsOf(const void* from, const std::string& why) {
    for (auto keyed = m_keyed.begin(); keyed != m_keyed.end();) {
        if (keyed->second != from) {
            ++keyed;
            continue;
        }
        const std::string end = keyed->first;
        keyed = m_keyed.erase(keyed);
        if (!m_link.PortOpen()) continue;
        m_link.send(end);
        told.emit(why + " " + end + " was sent.");
    }
}

void SharedLine::endTransmissions(const std::string& why) {
    while (!m_keyed.empty()) endTransmissionsOf(m_keyed.begin()->second, why);
}

void SharedLine::allowTransmit(bool allowed) {
    transmitAllowed = allowed;
    if (!allowed) endTransmissions("Other programs may not make the radio transmit any more;");
}

/// Nobody could end them any more. What is sent has to leave before the port closes.
void SharedLine::onClosing() {
    constexpr int stepMs = 20;
    constexpr int mostMs = 500;
    if (m_keyed.empty()) return;
    endTransmissions("The port closes while a program makes the radio transmit;");
    for (int waited = 0; m_link.port().OutBufferCount() > 0 && waited < mostMs; waited += stepMs)
        m_clock.letEventsRun(stepMs);
}

void SharedLine::forget(const void* from) {
    std::erase_if(m_waiting, [from](const ForeignCommand& command) { return command.from == from; });
    if (m_underWay && m_underWay->from == from) m_underWay->answered = [](std::string_view) {};
    endTransmissionsOf(from, "The program that made the radio transmit has left;");
}

/// Sent by Korvex itself.
void SharedLine::noteOurs(std::string_view wire) {
    if (m_sending || asks(wire)) return;
    m_oursHasSet = true;
    m_poll->setEnabled(true);
}

void SharedLine::goOn() {
    if (m_oursHasSet && m_link.isIdle()) {
        m_oursHasSet = false;
        m_answers.clear();
        changed.emit();
    }
    while (answerOneThatCanBe()) continue;
    if (!m_underWay && !m_waiting.empty() && m_link.isIdle()) sendNext();
    m_poll->setEnabled(!m_waiting.empty() || m_oursHasSet);
}

/// Answers of one program never overtake one another.
bool SharedLine::answerOneThatCanBe() {
    std::set<const void*> mustWait;
    if (m_underWay) mustWait.insert(m_underWay->from);
    for (auto command = m_waiting.begin(); command != m_waiting.end(); ++command) {
        if (mustWait.contains(command->from)) continue;
        if (const auto answer = answerWithoutRadio(*command)) {
            const auto answered = std::move(command->answered);
            m_waiting.erase(command);
            answered(*answer);
            return true;
        }
        mustWait.insert(command->from);
    }
    return false;
}

std::optional<std::string> SharedLine::answerWithoutRadio(const ForeignCommand& command) const {
    if (command.known) return command.known;
    if (!m_link.PortOpen()) return "";
    if (m_link.isIdle()) return std::nullopt;
    const std::string wire = inCapitals(command.wire);
    if (const auto before = m_answers.find(wire); before != m_answers.end()) return before->second;
    if (const auto asIs = m_answers.find(unaskedQuestion); asIs != m_answers.end() && asIs->second == wire) return "";
    if (m_clock.now() - command.cameAt >= longestWaitMs) return std::string(refused);
    return std::nullopt;
}

void SharedLine::sendNext() {
    m_underWay = std::move(m_waiting.front());
    m_waiting.pop_front();
    const std::string wire = inCapitals(m_underWay->wire);
    if (!asks(wire)) forgetAnswers(wire);
    noteKeying(wire, m_underWay->from);
    m_sentAt = m_clock.now();
    m_patience->setEnabled(false);
    m_patience->setInterval(patience());
    m_patience->setEnabled(true);
    m_sending = true;
    m_link.send(m_underWay->wire);
    m_sending = false;
}

/// What is set may change any of them; but for unasked messages, which hamlib switches off whenever it opens and
/// closes.
void SharedLine::forgetAnswers(const std::string& set) {
    if (set.starts_with("AI")) {
        m_answers.erase(unaskedQuestion);
    } else {
        m_answers.clear();
        changed.emit();
    }
}

int SharedLine::patience() const {
    if (asks(m_underWay->wire)) return answerMs;
    const auto seen = static_cast<int>(std::min<std::int64_t>(2 * m_longestDelay, longestRefusalMs));
    return std::max(refusalMs, seen);
}

bool SharedLine::take(std::string_view piece) {
    if (!m_underWay) {
        if (m_link.isIdle()) unasked.emit(piece);
        return false;
    }
    const std::string question = inCapitals(m_underWay->wire);
    // An adapter's echo is as long as the question, and no answer is.
    const auto answer = answerIn({question.substr(0, question.size() - 1), question.size() + 1}, piece);
    if (!answer) {
        if (m_link.isIdle()) unasked.emit(piece);
        return false;
    }
    if (asks(question)) m_longestDelay = std::max(m_longestDelay, m_clock.now() - m_sentAt);
    if (*answer != refused) remember(question, *answer);
    settle(*answer);
    return true;
}

void SharedLine::remember(const std::string& question, const std::string& answer) {
    if (m_answers.size() >= mostAnswers) m_answers.clear();
    m_answers[question] = answer;
}

void SharedLine::onPatience() {
    if (m_underWay) settle("");
}

void SharedLine::settle(const std::string& answer) {
    m_patience->setEnabled(false);
    const auto answered = std::move(m_underWay->answered);
    m_underWay.reset();
    answered(answer);
    goOn();
}

/// The port is closed: the radio is silent. What was keyed when it was pulled out is ended when it can be.
void SharedLine::keepQuiet() {
    m_oursHasSet = false;
    m_answers.clear();
    if (m_underWay) settle("");
    goOn();
}

}  // namespace korvex
