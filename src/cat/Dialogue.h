#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "cat/Exchange.h"
#include "cat/Tempo.h"

namespace korvex {

class Operation;

/// Has a conversation with the radio: one exchange is on its way at a time, and the next leaves when the answer has
/// come. An answer counts only if it begins as its query wants it, so nothing that comes late, twice or unasked moves
/// anything. A refusal names nothing: it belongs to the exchange under way, and after a question that was asked more
/// than once all its answers are waited for, or quiet, before the next.
///
///     EX0421;EX042;      ->  EX0421;       confirmed
///     EX0421;EX042;      ->  ?;  EX0420;   refused
///     EX0421;EX042;      ->  EX0420;       not taken: both once more, then "different"
///     EX0421;EX042;      ->  (patience)    EX042; alone: the command may have been heard
///
/// A question without an answer is asked up to four times, with more patience and more room in front of each next one.
/// Two exchanges in a row without one end the conversation, unless the radio talks, and only in words that say nothing:
/// what sets goes on every 100 ms then, not confirmed.
class Dialogue : public std::enable_shared_from_this<Dialogue> {
public:
    Dialogue(Operation& operation, Conversation conversation, Tempo tempo);

    /// The operation's answers and its time keep the dialogue alive.
    void begin();

private:
    enum class State {
        Asking,
        Draining,  ///< the exchange is over, and answers to its repeated question may still come
        Pausing,
    };

    bool sets() const { return !m_exchange.command.empty(); }
    void next();
    void start();
    void ask(const std::string& command = {});
    void askAlone() { ask(); }
    void take(std::string_view answer);
    void takeRefusal();
    void takeAnswer(const std::string& answer);
    void takeOther(const std::string& answer);
    void takeLate();
    void onPatience();
    void settle(const Reply& reply);
    void note(Reply::Kind kind);
    void notePassedOver();
    void onUnanswered();
    bool goesOnBlind();
    void drain(int answers);
    void goOn();
    void proceed();
    void finish();
    void giveUp();
    void end(Outcome::Kind kind, int done);
    void later(int ms, void (Dialogue::*step)());

    Operation& m_operation;
    Conversation m_conversation;
    Tempo m_tempo;
    Exchange m_exchange;
    State m_state = State::Pausing;
    int m_timesSet = 0;
    bool m_startsAgain = false;
    int m_queries = 0;         // that have gone out since the exchange was started
    int m_refusals = 0;        // that have come since
    int m_owed = 0;            // answers that may still come
    std::size_t m_onLine = 0;  // characters of the last question and its answer
    std::int64_t m_firstAsked = 0;
    std::int64_t m_lastAsked = 0;
    std::int64_t m_answeredAt = 0;
    int m_confirmed = 0;                   // exchanges
    std::optional<Exchange> m_unanswered;  // the last exchange, if it had no answer
    int m_unansweredAt = 0;                // the operation's item then
    bool m_talks = false;                  // something has come since that was no answer
    bool m_blind = false;                  // nothing is asked any more where something is set
    bool m_missing = false;                // an exchange before it had none
};

}  // namespace korvex
