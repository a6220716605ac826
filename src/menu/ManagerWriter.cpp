#include "menu/ManagerWriter.h"

#include <utility>

#include "base/Lines.h"
#include "menu/MenuCommandTable.h"

namespace korvex {

void ManagerWriter::write(std::vector<std::string> lines) {
    auto operation = m_link.begin({ActiveOperation::MenuWrite,
                                   "Writing the menu settings",
                                   static_cast<int>(lines.size()),
                                   {"line", "lines", true},
                                   "Restore Menu Settings to FT-2000",
                                   155,
                                   1});
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_lines = std::move(lines);
    m_link.panels().Error = "";
    m_link.clearTraffic();
    m_operation->onEnd([this](const Outcome& outcome) { ended.emit(outcome); });
    m_operation->every(50, m_phase, [this] { work(); });
}

void ManagerWriter::work() {
    if (static_cast<std::size_t>(m_operation->item()) < m_lines.size()) {
        sendNext();
    } else if (m_link.port().OutBufferCount() == 0) {
        finish();  // closing drops what has not left yet, so it waits for that
    }
}

void ManagerWriter::sendNext() {
    const int done = m_operation->item();
    const std::string& line = m_lines[static_cast<std::size_t>(done)];
    const std::string sent = line + std::string(crLf);
    m_operation->send(sent);
    m_link.panels().Error = "Writing Menu " + itemInLine(line);
    m_link.sent().append(sent);
    m_link.received().append(line + "  ");
    m_operation->step(done + 1, m_link.progress().value + 1);
}

void ManagerWriter::finish() {
    m_link.panels().Error = "Terminated";
    m_link.lineWritten = "Terminated";
    m_link.received().append(crLf);
    // Ended after the port is closed: whoever is told begins nothing on a port that is about to go.
    auto operation = std::exchange(m_operation, nullptr);
    const int count = static_cast<int>(m_lines.size());
    operation->onEnd(nullptr);
    operation->end({});
    m_link.closePort();
    ended.emit({Outcome::Kind::Done, count, count, {}, {}});
}

}  // namespace korvex
