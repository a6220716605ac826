#include "radio/pty/StateFile.h"

#include <filesystem>

#include "platform/TextFile.h"
#include "radio/StateText.h"
#include "radio/pty/Messages.h"

namespace korvex::pty {

namespace {

constexpr double writeDelayMs = 300;

}  // namespace

Failure StateFile::load() {
    if (m_path.empty()) return {};
    std::error_code ignored;
    if (std::filesystem::exists(m_path, ignored) && !std::filesystem::is_regular_file(m_path, ignored)) {
        return RuntimeError{errors::PathFileAccess, m_path + " is no file that a state could be kept in."};
    }
    const auto content = textfile::read(m_path);
    if (!content) {
        if (content.error().number == errors::FileNotFound) return writeNow();
        return content.error();
    }
    if (!isStateText(*content)) {
        return RuntimeError{errors::PathFileAccess, m_path + " is no state of a simulated radio; it stays as it is."};
    }
    for (const auto& complaint : loadState(m_radio.state, *content)) {
        complain(m_path + ": " + complaint);
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
