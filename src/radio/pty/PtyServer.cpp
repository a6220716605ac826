#include "radio/pty/PtyServer.h"

#include <algorithm>
#include <chrono>
#include <optional>

#include "platform/EndSignals.h"
#include "platform/TextFile.h"
#include "radio/Likeness.h"
#include "radio/pty/Messages.h"
#include "report/ReportText.h"

namespace korvex::pty {

namespace {

double steadyMs() {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace

PtyServer::PtyServer(const Options& options)
    : m_options(options), m_stateFile(m_radio, options.stateFile), m_startMs(steadyMs()) {
    m_line.faults = options.faults;
    m_line.turnaroundMs = options.turnaroundMs;
    if (options.line) m_line.characterTimeMs = options.line->characterTime();
}

double PtyServer::now() const {
    return steadyMs() - m_startMs;
}

/// The state file comes after it: what an owner keeps of a radio counts.
Failure PtyServer::loadReport() {
    const auto text = textfile::read(m_options.reportFile);
    if (!text) return text.error();
    const auto report = parseReport(*text);
    if (!report) return RuntimeError{report.error().number, m_options.reportFile + ": " + report.error().text};
    behaveLike(*report, m_radio, m_line);
    const auto line = parseLineSettings(report->line);
    if (!m_options.line && line) m_line.characterTimeMs = line->characterTime();
    return {};
}

Failure PtyServer::start() {
    if (!m_options.reportFile.empty()) {
        if (auto failure = loadReport()) return failure;
    }
    if (auto failure = m_stateFile.load()) return failure;
    if (!m_options.logFile.empty()) {
        if (auto failure = m_log.open(m_options.logFile)) return failure;
    }
    if (auto failure = m_pty.open()) return failure;
    if (!m_options.link.empty()) {
        if (auto failure = m_pty.makeLink(m_options.link)) return failure;
    }
    return {};
}

void PtyServer::serve() {
    while (endsignals::came() == 0 && !m_line.isUnplugged(now())) {
        waitForSomething();
        exchange();
        if (const auto failure = m_stateFile.writeIfDue(now())) complain(failure->text);
    }
    endsignals::endMayTakeLong();
}

void PtyServer::waitForSomething() {
    auto due = m_line.nextDue();
    if (!m_coming.empty()) due = due ? std::min(*due, m_coming.front().at) : m_coming.front().at;
    if (const auto save = m_stateFile.nextDue()) due = due ? std::min(*due, *save) : save;
    m_pty.wait(due ? std::optional(*due - now()) : std::nullopt, endsignals::descriptor());
}

/// A character has come when it has come altogether.
void PtyServer::hear() {
    const std::string heard = m_pty.read();
    m_log.write(now(), '<', heard);
    double at = std::max(now(), m_coming.empty() ? 0 : m_coming.back().at);
    for (const char c : heard) m_coming.push_back({at += m_line.characterTimeMs, c});
    for (; !m_coming.empty() && m_coming.front().at <= now(); m_coming.pop_front()) {
        m_line.hear(m_coming.front().at, std::string_view(&m_coming.front().character, 1));
    }
}

void PtyServer::exchange() {
    hear();
    // What a program has set before it left counts; answers to it must not reach the next program.
    if (m_pty.lastUserLeft()) m_line.clear();
    m_stateFile.lookForChanges(now());
    const std::string answers = m_line.takeDue(now());
    m_log.write(now(), '>', answers);
    m_pty.write(answers);
}

}  // namespace korvex::pty
