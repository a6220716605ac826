#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "base/Signal.h"
#include "cat/ActiveOperation.h"
#include "cat/Expectation.h"
#include "cat/TrafficDisplay.h"

namespace korvex {

/// Cuts what the radio sends into answers at each ";" and hands them to the operation that owns them. It knows no
/// consumer: each registers the step for its own code.
class AnswerRouter {
public:
    using AnswerStep = std::function<Rest()>;
    using PieceStep = std::function<Rest(std::string_view piece)>;

    explicit AnswerRouter(TrafficDisplay& received) : m_received(received) {}

    ActiveOperation active() const { return m_active; }
    void setActive(ActiveOperation operation) {
        m_active = operation;
        claimed.emit(operation);
    }
    /// An operation has just taken the answers, or given them back (Idle).
    Signal<ActiveOperation> claimed;

    /// Runs after each ";" while `code` owns the answers; the accumulator holds the answer. The step clears it.
    void onAnswer(ActiveOperation code, AnswerStep step) { m_answerSteps[code] = std::move(step); }

    /// Gives everything that comes from now on, cut behind each ";", to one owner; nothing of what came before.
    void own(ActiveOperation code, PieceStep step);
    /// Nobody's any more: shown, and given to nobody.
    void release();

    /// Everything since it was last cleared, an answer with its ";" last. Bounded: of an endless stream that nobody
    /// clears, the last `keptCharacters` at least stay.
    const std::string& accumulator() const { return m_accumulator; }
    void clearAccumulator() { m_accumulator.clear(); }
    std::string takeAnswer() { return std::exchange(m_accumulator, {}); }

    /// One read of the port.
    void take(std::string_view wire);

    static constexpr std::size_t keptCharacters = 65'536;  // the longest answer of the radio has 54

private:
    Rest runAnswerStep(ActiveOperation code);
    void accumulate(std::string_view wire);

    TrafficDisplay& m_received;
    ActiveOperation m_active = ActiveOperation::Idle;
    std::string m_accumulator;
    std::map<ActiveOperation, AnswerStep> m_answerSteps;
    PieceStep m_owner;
};

}  // namespace korvex
