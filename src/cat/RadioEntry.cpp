#include "cat/RadioEntry.h"

#include <utility>

namespace korvex {

RadioEntry::RadioEntry(OwnersFiles& folders, Clock& clock, std::string title, std::function<std::string()> whyNotNow)
    : m_folders(folders), m_title(std::move(title)), m_whyNotNow(std::move(whyNotNow)), m_timer(clock.makeTimer()) {
    m_tick = m_timer->tick.connect([this] { now(); });
}

bool RadioEntry::hasLine() {
    const std::string why = m_whyNotNow();
    if (!why.empty()) exclaim(why);
    return why.empty();
}

MsgAnswer RadioEntry::show(MsgBoxRequest request) {
    request.title = m_title;
    return m_folders.msgBox().show(request);
}

void RadioEntry::soon(std::function<void()> step) {
    m_step = std::move(step);
    m_timer->setEnabled(true);
}

void RadioEntry::now() {
    m_timer->setEnabled(false);
    if (const auto step = std::exchange(m_step, nullptr)) step();
}

}  // namespace korvex
