#include "cat/AnswerRouter.h"

#include "base/Lines.h"

namespace korvex {

namespace {

/// How an operation shows the traffic that it owns.
struct Route {
    bool takes;  ///< else what comes is dropped, unseen: while band stack registers or keyer texts are written, the
                 ///< radio has nothing to say that anybody waits for
    bool shows;  ///< every character goes to the receive display
    bool breaksLine;  ///< a line end after each answer; others place their own
};

constexpr Route routeOf(ActiveOperation code) {
    switch (code) {
        case ActiveOperation::Idle:
        case ActiveOperation::MenuReadToFile:
        case ActiveOperation::MenuReadToManager:
        case ActiveOperation::MenuWrite:
        case ActiveOperation::RestoreFromFile:
        case ActiveOperation::ReadOneChannel:
        case ActiveOperation::BandStackRead:
        case ActiveOperation::AntennaQuery:
        case ActiveOperation::BackupModel:
        case ActiveOperation::BackupMenu:
        case ActiveOperation::BackupBandStack: return {true, true, true};
        case ActiveOperation::ManagerItemSend:
        case ActiveOperation::KeyerRead: return {true, true, false};
        case ActiveOperation::ReadAllToFile:
        case ActiveOperation::ReadAllToList:
        case ActiveOperation::BackupMemories: return {true, false, false};
        case ActiveOperation::BandStackWrite:
        case ActiveOperation::KeyerWrite: break;
    }
    return {false, false, false};
}

}  // namespace

void AnswerRouter::take(std::string_view wire) {
    const ActiveOperation code = m_active;
    const Route route = routeOf(code);
    if (!route.takes) return;
    while (!wire.empty()) {
        const auto end = wire.find(';');
        const auto piece = wire.substr(0, end == std::string_view::npos ? end : end + 1);
        wire.remove_prefix(piece.size());
        if (route.shows) m_received.append(piece);
        accumulate(piece);
        if (end == std::string_view::npos) break;
        if (route.breaksLine) m_received.append(crLf);
        if (runAnswerStep(code) == Rest::Discard) return;
    }
}

void AnswerRouter::own(ActiveOperation code, PieceStep step) {
    setActive(code);
    m_accumulator.clear();
    m_owner = std::move(step);
}

void AnswerRouter::release() {
    m_owner = nullptr;
    setActive(ActiveOperation::Idle);
}

Rest AnswerRouter::runAnswerStep(ActiveOperation code) {
    if (m_owner) {
        const auto owner = m_owner;  // a copy: the step may end the operation
        return owner(takeAnswer());
    }
    const auto step = m_answerSteps.find(code);
    return step == m_answerSteps.end() ? Rest::GoOn : step->second();
}

void AnswerRouter::accumulate(std::string_view wire) {
    m_accumulator += wire;
    if (m_accumulator.size() > 2 * keptCharacters) m_accumulator.erase(0, m_accumulator.size() - keptCharacters);
}

}  // namespace korvex
