#include "menu/MenuWriter.h"

#include <utility>

#include "base/CodePage.h"
#include "base/Lines.h"
#include "menu/MenuCommandTable.h"

namespace korvex {

void MenuWriter::write(std::vector<std::string> lines) {
    const int count = static_cast<int>(lines.size());
    auto operation = m_link.begin({ActiveOperation::MenuWrite,
                                   "Writing the menu",
                                   count,
                                   {"line", "lines", true},
                                   "Restore Menu to FT2000",
                                   155});
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_lines = std::move(lines);
    m_link.clearTraffic();
    m_link.panels().Error = "";
    m_operation->onEnd([this](const Outcome& outcome) { ended.emit(outcome); });
    m_operation->every(50, m_phase, [this] { writeNext(); });
}

void MenuWriter::writeNext() {
    const int done = m_operation->item();
    if (static_cast<std::size_t>(done) >= m_lines.size()) return finish();
    const std::string& line = m_lines[static_cast<std::size_t>(done)];
    const std::string sent = line + std::string(crLf);
    m_link.lineWritten = utf8FromWire(line);
    m_operation->send(sent);
    m_link.panels().Error = "Writing Menu " + itemInLine(line);
    m_link.sent().append(sent);
    m_link.received().append(line + "  ");
    m_operation->step(done + 1);
    if (static_cast<std::size_t>(done) + 1 == m_lines.size()) finish();
}

void MenuWriter::finish() {
    m_phase.invert();  // the next writing begins with the half step that works
    m_link.panels().Error = "Terminated";
    m_link.lineWritten = "Terminated";
    m_link.sent().append("Terminated\r\n");
    const int count = static_cast<int>(m_lines.size());
    m_operation->end({Outcome::Kind::Done, count, count, {}, {}});
}

}  // namespace korvex
