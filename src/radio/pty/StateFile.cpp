#include "radio/pty/StateFile.h"

#include <cstdio>

#include "platform/TextFile.h"
#include "radio/StateText.h"

namespace korvex::pty {

namespace {

constexpr double writeDelayMs = 300;

}  // namespace

Failure StateFile::load() {
    if (m_path.empty()) return {};
    const auto content = textfile::read(m_path);
    if (!content) {
        if (content.error().number == errors::FileNotFound) return writeNow();
        return content.error();
    }
    for (const auto& complaint : loadState(m_radio.state, *content)) {
        std::fprintf(stderr, "ft2000sim: %s: %s\n", m_path.c_str(), complaint.c_str());
    }
    m_written = stateText(m_radio.state);  // an untouched file keeps its comments
    return {};
}

void StateFile::lookForChanges(double nowMs) {
    if (m_path.empty() || m_radio.timesSet == m_timesSet) return;
    m_timesSet = m_radio.timesSet;
    if (!m_writeAt) m_writeAt = nowMs + writeDelayMs;
}

Failure StateFile::writeIfDue(double nowMs) {
    if (!m_writeAt || nowMs < *m_writeAt) return {};
    return writeNow();
}

Failure StateFile::writeNow() {
    m_writeAt.reset();
    if (m_path.empty()) return {};
    std::string text = stateText(m_radio.state);
    if (text == m_written) return {};
    auto failure = textfile::write(m_path, text);
    if (!failure) m_written = std::move(text);
    return failure;
}

}  // namespace korvex::pty
