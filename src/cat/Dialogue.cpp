#include "cat/Dialogue.h"

#include <algorithm>
#include <utility>

#include "cat/Operation.h"

namespace korvex {

namespace {

constexpr int mostTries = 4;
constexpr int mostTriesOnACutLine = 2;
constexpr int mostSets = 2;
constexpr int blindMs = 100;  // between commands that nothing is asked about

}  // namespace

Dialogue::Dialogue(Operation& operation, Conversation conversation, Tempo tempo)
    : m_operation(operation), m_conversation(std::move(conversation)), m_tempo(tempo) {}

void Dialogue::begin() {
    m_operation.onAnswer([self = shared_from_this()](std::string_view answer) {
        self->take(answer);
        return Rest::GoOn;
    });
    m_operation.onStrange([self = shared_from_this()](std::string_view) {
        self->m_talks = true;
        return Rest::GoOn;
    });
    next();
}

void Dialogue::later(int ms, void (Dialogue::*step)()) {
    m_operation.after(ms, [self = shared_from_this(), step] { std::invoke(step, *self); });
}

void Dialogue::next() {
    auto exchange = m_conversation.next();
    if (!exchange) return finish();
    m_exchange = std::move(*exchange);
    if (m_blind && sets()) m_exchange.query.clear();
    m_timesSet = 0;
    m_operation.expect(m_exchange.answer);
    start();
}

/// Command and query leave in one go, or apart where the radio has shown that it needs room.
void Dialogue::start() {
    m_startsAgain = false;
    m_queries = m_refusals = 0;
    if (sets()) ++m_timesSet;
    if (!sets() || (m_tempo.spacing() == 0 && !m_exchange.query.empty())) return ask(m_exchange.command);
    m_state = State::Asking;
    m_operation.send(m_exchange.command);
    if (m_exchange.query.empty()) return later(blindMs, &Dialogue::onPatience);
    later(m_tempo.lineMs(m_exchange.command.size()) + m_tempo.spacing(), &Dialogue::askAlone);
}

void Dialogue::ask(const std::string& command) {
    const std::string wire = command + m_exchange.query;
    m_state = State::Asking;
    m_onLine = wire.size();
    m_lastAsked = m_operation.now();
    if (++m_queries == 1) m_firstAsked = m_lastAsked;
    m_operation.send(wire);
    later(m_tempo.patience(wire.size(), m_queries), &Dialogue::onPatience);
}

void Dialogue::take(std::string_view answer) {
    if (m_state == State::Draining) return takeLate();
    if (m_state == State::Pausing) return;
    m_answeredAt = m_operation.now();
    answer == "?;" ? takeRefusal() : takeAnswer(std::string(answer));
}

/// The command's refusal comes in front of what the query brings; one more than there were queries can only be its own.
void Dialogue::takeRefusal() {
    ++m_refusals;
    if (!sets() || m_refusals > m_queries) return settle({Reply::Kind::Refused, "?;"});
    later(m_tempo.patience(m_onLine, m_queries), &Dialogue::onPatience);
}

void Dialogue::takeAnswer(const std::string& answer) {
    using Kind = Reply::Kind;
    m_onLine += answer.size();
    const bool compares = sets() && m_exchange.confirms;
    if (compares && m_exchange.confirms(answer)) return settle({Kind::Answer, answer});
    if (m_refusals > 0) return settle({Kind::Refused, answer});
    if (!compares) return settle({Kind::Answer, answer});
    takeOther(answer);
}

/// The command did not take, and nothing was said against it: it may have been lost.
void Dialogue::takeOther(const std::string& answer) {
    if (m_timesSet == mostSets) return settle({Reply::Kind::Different, answer});
    m_startsAgain = true;
    drain(answer == "?;" ? 0 : 1);
}

void Dialogue::onPatience() {
    using Kind = Reply::Kind;
    const bool onlyQueryRefused = m_refusals > 0 && m_queries > 1 && m_refusals >= m_queries;
    if (onlyQueryRefused && m_exchange.refusedIfEmpty) return takeOther("?;");
    if (m_exchange.query.empty() || onlyQueryRefused) return settle({Kind::Unconfirmed});
    if (m_queries < (m_exchange.mayCutLine ? mostTriesOnACutLine : mostTries)) {
        if (m_refusals == 0) m_tempo.lost();
        return ask();
    }
    settle({m_exchange.mayCutLine || m_refusals > 0 ? Kind::Unconfirmed : Kind::None});
}

void Dialogue::settle(const Reply& reply) {
    const bool silent = reply.kind == Reply::Kind::None;
    const bool silentBefore = m_unanswered.has_value();
    if (!silent) notePassedOver();
    note(reply.kind);
    m_conversation.told(reply);
    if (silent && silentBefore && !goesOnBlind()) return giveUp();
    if (silent && !silentBefore) onUnanswered();
    drain(reply.answer.empty() || reply.answer == "?;" ? 0 : 1);
}

void Dialogue::onUnanswered() {
    m_unansweredAt = m_operation.item();
    m_unanswered = m_exchange;
}

/// Whether the radio talks, in words that say nothing, and something can be set all the same.
bool Dialogue::goesOnBlind() {
    if (!m_talks || !sets() || m_unanswered->command.empty()) return false;
    m_blind = true;
    for (const auto& item : {m_unanswered->item, m_exchange.item}) m_operation.note(&Outcome::unconfirmed, item);
    m_unanswered.reset();
    return true;
}

/// An exchange without an answer, and the radio has answered after it.
void Dialogue::notePassedOver() {
    if (!m_unanswered) return;
    m_missing = true;
    if (!m_unanswered->command.empty()) m_operation.note(&Outcome::unconfirmed, m_unanswered->item);
    m_unanswered.reset();
}

void Dialogue::note(Reply::Kind kind) {
    using Kind = Reply::Kind;
    if (kind == Kind::Answer) ++m_confirmed;
    if (!sets()) return;
    if (kind == Kind::Refused) m_operation.note(&Outcome::refused, m_exchange.item);
    if (kind == Kind::Different) m_operation.note(&Outcome::different, m_exchange.item);
    if (kind == Kind::Unconfirmed) m_operation.note(&Outcome::unconfirmed, m_exchange.item);
}

/// Every question brings an answer or a refusal, be it late, and the first refusal of an exchange that sets is the
/// command's.
void Dialogue::drain(int answers) {
    m_owed = m_queries - answers - std::max(0, m_refusals - (sets() ? 1 : 0));
    if (m_owed <= 0) return goOn();
    m_state = State::Draining;
    later(m_tempo.patience(m_onLine, 1), &Dialogue::goOn);
}

void Dialogue::takeLate() {
    if (--m_owed == 0) return goOn();
    later(m_tempo.patience(m_onLine, 1), &Dialogue::goOn);
}

/// All answers to a repeated question have come: the radio is slow. One is missing: the first question was lost.
void Dialogue::goOn() {
    const bool heard = m_answeredAt >= m_firstAsked;
    const std::int64_t asked = m_owed <= 0 ? m_firstAsked : m_lastAsked;
    if (heard) m_tempo.answered(m_answeredAt - asked - m_tempo.lineMs(m_onLine), m_queries == 1);
    m_state = State::Pausing;
    if (m_tempo.spacing() == 0) return proceed();
    later(m_tempo.spacing(), &Dialogue::proceed);
}

void Dialogue::proceed() {
    m_startsAgain ? start() : next();
}

void Dialogue::finish() {
    notePassedOver();
    end(m_missing ? Outcome::Kind::NoAnswer : Outcome::Kind::Done, m_confirmed);
}

/// Two in a row: the radio has gone. What came before them is done.
void Dialogue::giveUp() {
    end(Outcome::Kind::NoAnswer, std::max(m_unansweredAt - 1, 0));
}

void Dialogue::end(Outcome::Kind kind, int done) {
    Outcome outcome = m_operation.noted();
    outcome.kind = kind;
    outcome.done = done;
    outcome.of = m_operation.plan().items;
    m_conversation.done(std::move(outcome));
}

}  // namespace korvex
