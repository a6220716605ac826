#include "cat/AnswerRouter.h"

#include "base/Lines.h"

namespace korvex {

namespace {

/// How an operation shows the traffic that it owns.
struct Route {
    bool shows;       ///< every character goes to the receive display
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
        case ActiveOperation::AntennaQuery: return {true, true};
        case ActiveOperation::ManagerItemSend:
        case ActiveOperation::KeyerRead: return {true, false};
        case ActiveOperation::ReadAllToFile:
        case ActiveOperation::ReadAllToList:
        case ActiveOperation::BandStackWrite:
        case ActiveOperation::KeyerWrite: break;
    }
    return {false, false};
}

}  // namespace

void AnswerRouter::take(std::string_view wire) {
    const Route route = routeOf(m_active);
    while (!wire.empty()) {
        const auto end = wire.find(';');
        const auto piece = wire.substr(0, end == std::string_view::npos ? end : end + 1);
        wire.remove_prefix(piece.size());
        if (route.shows) m_received.append(piece);
        accumulate(piece);
        if (end == std::string_view::npos) break;
        if (route.breaksLine) m_received.append(crLf);
        if (give() == Rest::Discard) return;
    }
}

void AnswerRouter::own(ActiveOperation code, PieceStep step) {
    m_active = code;
    m_pending.clear();
    m_owner = std::move(step);
}

void AnswerRouter::release() {
    m_owner = nullptr;
    m_active = ActiveOperation::Idle;
}

Rest AnswerRouter::give() {
    const std::string piece = std::exchange(m_pending, {});
    if (m_isNone && m_isNone(piece)) return Rest::GoOn;
    if (m_firstLook && m_firstLook(piece)) return Rest::GoOn;
    const auto owner = m_owner;  // a copy: the step may end the operation
    return owner ? owner(piece) : Rest::GoOn;
}

void AnswerRouter::accumulate(std::string_view wire) {
    m_pending += wire;
    if (m_pending.size() > 2 * keptCharacters) m_pending.erase(0, m_pending.size() - keptCharacters);
}

}  // namespace korvex
