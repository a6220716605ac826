#include "cli/LineSender.h"

#include <utility>

namespace korvex::cli {

namespace {

constexpr int intervalMs = 100;
constexpr std::size_t patience = 5;  // intervals

}  // namespace

LineSender::LineSender(CatLink& link, Clock& clock) : m_link(link), m_timer(clock.makeTimer()) {
    m_timer->setInterval(intervalMs);
    m_connections += m_timer->tick.connect([this] { onTimer(); });
    m_connections += link.closed.connect([this] {
        if (m_timer->Enabled()) finish(TransferEnd::PortClosed);
    });
}

void LineSender::send(std::vector<std::string> commands) {
    m_link.setActiveOperation(ActiveOperation::Idle);
    m_link.clearTraffic();
    m_commands = std::move(commands);
    m_next = 0;
    m_timer->setEnabled(true);
}

void LineSender::onTimer() {
    if (m_next < m_commands.size()) m_link.send(m_commands[m_next]);
    if (++m_next > m_commands.size() + patience) finish(TransferEnd::Done);
}

void LineSender::finish(TransferEnd end) {
    m_timer->setEnabled(false);
    ended.emit(end);
}

}  // namespace korvex::cli
