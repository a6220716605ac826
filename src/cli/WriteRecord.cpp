#include "cli/WriteRecord.h"

#include <utility>

namespace korvex::cli {

WriteRecord::WriteRecord(CatLink& link) {
    m_connections += link.went.connect([this](std::string_view wire) { onWent(wire); });
    m_connections += link.came.connect([this](std::string_view wire) { onCame(wire); });
}

void WriteRecord::clear() {
    m_last.clear();
    m_pending.clear();
    m_refused.clear();
    m_refusals = 0;
}

void WriteRecord::onWent(std::string_view wire) {
    const auto end = wire.find_last_not_of("\r\n");
    if (end != std::string_view::npos) m_last = wire.substr(0, end + 1);
}

void WriteRecord::onCame(std::string_view wire) {
    m_pending += wire;
    for (auto end = m_pending.find(';'); end != std::string::npos; end = m_pending.find(';')) {
        const bool error = end > 0 && m_pending[end - 1] == '?';
        m_pending.erase(0, end + 1);
        if (!error) continue;
        ++m_refusals;
        m_refused.insert(m_last);
    }
}

}  // namespace korvex::cli
