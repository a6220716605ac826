#include "cat/AnswerRouter.h"

#include <algorithm>
#include <array>

#include "base/Lines.h"

namespace korvex {

namespace {

/// How an operation shows the traffic that it owns. A code that is not listed drops what comes, unseen: while band
/// stack registers or keyer texts are written, the radio has nothing to say that anybody waits for.
struct Route {
    ActiveOperation code;
    bool shows;       ///< every character goes to the receive display
    bool breaksLine;  ///< a line end after each answer; others place their own
};

constexpr std::array<Route, 17> routes = {{
    {ActiveOperation::Idle, true, true},
    {ActiveOperation::MenuReadToFile, true, true},
    {ActiveOperation::MenuReadToManager, true, true},
    {ActiveOperation::MenuWrite, true, true},
    {ActiveOperation::ReadAllToFile, false, false},
    {ActiveOperation::RestoreFromFile, true, true},
    {ActiveOperation::ManagerItemSend, true, false},
    {ActiveOperation::ReadAllToList, false, false},
    {ActiveOperation::ReadOneChannel, true, true},
    {ActiveOperation::BandStackRead, true, true},
    {ActiveOperation::AntennaQuery, true, true},
    {ActiveOperation::KeyerRead, true, false},
    {ActiveOperation::BackupModel, true, true},
    {ActiveOperation::BackupMenu, true, true},
    {ActiveOperation::BackupMemories, false, false},
    {ActiveOperation::BackupBandStack, true, true},
    {ActiveOperation::BackupKeyer, true, false},
}};

}  // namespace

void AnswerRouter::take(std::string_view wire) {
    const ActiveOperation code = m_active;
    const auto* route = std::find_if(routes.begin(), routes.end(), [code](const Route& r) { return r.code == code; });
    if (route == routes.end()) return;
    while (!wire.empty()) {
        const auto end = wire.find(';');
        const auto piece = wire.substr(0, end == std::string_view::npos ? end : end + 1);
        wire.remove_prefix(piece.size());
        if (route->shows) m_received.append(piece);
        accumulate(piece);
        if (end == std::string_view::npos) break;
        if (route->breaksLine) m_received.append(crLf);
        if (runAnswerStep(code) == Rest::Discard) return;
    }
    const auto batch = m_batchSteps.find(code);
    if (batch != m_batchSteps.end()) batch->second();
}

Rest AnswerRouter::runAnswerStep(ActiveOperation code) {
    const auto step = m_answerSteps.find(code);
    return step == m_answerSteps.end() ? Rest::GoOn : step->second();
}

void AnswerRouter::accumulate(std::string_view wire) {
    m_accumulator += wire;
    if (m_accumulator.size() > 2 * keptCharacters) m_accumulator.erase(0, m_accumulator.size() - keptCharacters);
}

}  // namespace korvex
