#include "backup/ModelReader.h"

#include "base/CodePage.h"

namespace korvex {

namespace {

constexpr int patienceMs = 600;  // a slow radio answers within half a second

}  // namespace

ModelReader::ModelReader(CatLink& link, Clock& clock) : m_link(link), m_timer(clock.makeTimer()) {
    m_timer->setInterval(patienceMs);
    m_connections += m_timer->tick.connect([this] { finish(TransferEnd::Done); });
    m_connections += link.closed.connect([this] {
        if (m_timer->Enabled()) finish(TransferEnd::PortClosed);
    });
    link.answers().onAnswer(ActiveOperation::BackupModel, [this] { return takeAnswer(); });
}

void ModelReader::read() {
    m_model.clear();
    m_link.setActiveOperation(ActiveOperation::BackupModel);
    m_link.clearTraffic();
    m_timer->setEnabled(true);
    m_link.send("ID;");
}

Rest ModelReader::takeAnswer() {
    const std::string answer = m_link.answers().takeAnswer();
    if (!m_timer->Enabled()) return Rest::GoOn;
    const auto begin = answer.find("ID");
    if (begin == std::string::npos) return Rest::GoOn;  // news of the dial, which nobody asked for
    m_model = utf8FromWire(answer.substr(begin));
    finish(TransferEnd::Done);
    return Rest::Discard;
}

void ModelReader::finish(TransferEnd end) {
    stop();
    ended.emit(end);
}

}  // namespace korvex
