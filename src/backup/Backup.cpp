#include "backup/Backup.h"

#include "backup/Patience.h"
#include "platform/TextFile.h"

namespace korvex {

namespace {

constexpr int stepMs = 20;

std::string portText(const MSComm& port) {
    return std::to_string(port.CommPort()) + ", " + port.Settings() + ", handshaking " +
           std::to_string(port.Handshaking());
}

}  // namespace

Backup::Backup(Terminal& terminal, Clock& clock)
    : m_link(terminal.link()),
      m_readings(terminal, clock),
      m_next(clock.makeTimer()),
      m_silence(clock.makeTimer()),
      m_standstill(clock.makeTimer()) {
    m_next->setInterval(stepMs);
    m_silence->setInterval(patience::silenceMs);
    m_standstill->setInterval(patience::standstillMs);
    m_connections += m_next->tick.connect([this] { beginStep(); });
    m_connections += m_silence->tick.connect([this] { onSilence(); });
    m_connections += m_standstill->tick.connect([this] { onSilence(); });
    m_connections += m_link.answers().claimed.connect([this](ActiveOperation operation) { onClaimed(operation); });
    m_connections += m_link.closed.connect([this] {
        if (m_running) fail(TransferEnd::PortClosed, "the port was closed");
    });
    m_connections += m_link.came.connect([this](std::string_view wire) {
        if (wire.find(';') != std::string_view::npos) startAnew(*m_silence);
    });
    m_connections += m_link.progress().value.changed.connect([this](int) { startAnew(*m_standstill); });
}

Failure Backup::makeFolder(const std::string& dir, const std::string& timeOfDay) {
    m_summary = {};
    m_summary.timeOfDay = timeOfDay;
    return m_folder.make(dir, timeOfDay);
}

void Backup::start(const std::string& dir, const std::string& timeOfDay) {
    if (m_running) return;
    if (const auto failure = makeFolder(dir, timeOfDay)) return finish(TransferEnd::FileFailed, failure->text);
    read();
}

void Backup::read() {
    if (!m_link.PortOpen()) return finish(TransferEnd::PortClosed, "the port is closed");
    m_running = true;
    m_step = 0;
    m_link.panels().Error = "";
    m_summary.port = portText(m_link.port());
    m_next->setEnabled(true);
}

void Backup::stop() {
    if (m_running) fail(TransferEnd::Cancelled, "it was stopped");
    m_folder.drop();
}

void Backup::startAnew(Timer& watch) const {
    if (!watch.Enabled()) return;
    watch.setEnabled(false);
    watch.setEnabled(true);
}

void Backup::stopWatching() {
    m_silence->setEnabled(false);
    m_standstill->setEnabled(false);
    m_readingEnd.end();
}

void Backup::beginStep() {
    if (m_link.testing()) return;  // its answer is not ours
    m_next->setEnabled(false);
    m_silence->setEnabled(true);
    m_standstill->setEnabled(true);
    m_readingEnd = reading().ended->connect([this](TransferEnd end) { onStepEnded(end); });
    reading().start();
    if (m_running) showProgress();
}

void Backup::showProgress() {
    const std::size_t last = m_readings.all().size() - 1;
    m_caption = "Backup " + std::to_string(m_step) + " of " + std::to_string(last) + ": " + reading().name;
    if (m_step > 0) m_link.progress().caption = m_caption;
}

void Backup::onStepEnded(TransferEnd end) {
    stopWatching();
    const std::string who = reading().name + ": ";
    if (end == TransferEnd::PortClosed) return fail(end, "the port was closed");
    if (end == TransferEnd::Cancelled) return fail(end, "it was stopped");
    const std::string objection = reading().objection();
    if (!objection.empty()) return fail(TransferEnd::NoAnswer, who + objection);
    const bool told = end == TransferEnd::Done || end == TransferEnd::Refused;  // the rest of it, then
    if (!told) return fail(end, who + "the radio's answers did not come in time");
    for (const auto& file : reading().files()) {
        if (!keep(file)) return;
    }
    if (m_step + 1 == m_readings.all().size()) return conclude();
    ++m_step;
    m_next->setEnabled(true);
}

bool Backup::keep(const BackupFile& file) {
    auto items = dataItems(file.kind, file.content);
    if (!items) {
        fail(TransferEnd::NoAnswer, reading().name + ": " + items.error().text);
        return false;
    }
    const std::string name = backupFileName(file.kind);
    if (const auto failure = textfile::write(m_folder.file(name), file.content)) {
        fail(TransferEnd::FileFailed, failure->text);
        return false;
    }
    m_summary.parts.push_back({file.kind, name, std::move(*items), file.missing});
    return true;
}

/// Whatever is started meanwhile gets the line, and the progress window.
void Backup::onClaimed(ActiveOperation operation) {
    if (!m_running || operation == ActiveOperation::Idle || operation == reading().code) return;
    reading().stop();
    if (m_link.progress().caption.get() == m_caption) m_link.progress().hide();
    finish(TransferEnd::NoAnswer, "another operation was started");
}

void Backup::onSilence() {
    fail(TransferEnd::NoAnswer, reading().name + ": the radio has stopped answering");
}

void Backup::conclude() {
    m_summary.radio = m_readings.model();
    if (const auto failure = writeTexts()) return fail(TransferEnd::FileFailed, failure->text);
    if (const auto failure = m_folder.keep()) return fail(TransferEnd::FileFailed, failure->text);
    m_link.panels().Error = missingLines(m_summary).empty() ? "Backup saved" : "Backup saved, not complete";
    finish(TransferEnd::Done, "");
}

Failure Backup::writeTexts() const {
    const auto text = equalizerText(m_summary.parts.front().items);
    if (auto failure = textfile::write(m_folder.file("equalizer.txt"), text)) return failure;
    return textfile::write(m_folder.file("summary.txt"), summaryText(m_summary));
}

void Backup::fail(TransferEnd end, const std::string& why) {
    reading().stop();
    m_link.progress().hide();
    m_link.setActiveOperation(ActiveOperation::Idle);
    m_link.panels().Error = "No backup was made";
    finish(end, why);
}

void Backup::finish(TransferEnd end, const std::string& why) {
    m_running = false;
    m_next->setEnabled(false);
    stopWatching();
    m_why = why;
    if (end != TransferEnd::Done) m_folder.drop();
    ended.emit(end);
}

}  // namespace korvex
