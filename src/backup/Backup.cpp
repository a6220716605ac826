#include "backup/Backup.h"

#include <algorithm>
#include <utility>

#include "platform/TextFile.h"

namespace korvex {

namespace {

std::string portText(const MSComm& port) {
    const std::string device = port.deviceText();
    return (device.empty() ? "number " + std::to_string(port.CommPort()) : device) + ", " + port.Settings() +
           ", handshaking " + std::to_string(port.Handshaking());
}

/// To the end, refusals among the answers or not.
bool wasTold(const Outcome& outcome) {
    return outcome.isDone() || outcome.kind == Outcome::Kind::Refused;
}

}  // namespace

Backup::Backup(CatLink& link, KindTransfers& transfers, Clock& clock, Checksum checksum)
    : m_link(link),
      m_transfers(transfers),
      m_checksum(std::move(checksum)),
      m_patience(link, clock, [this] { onSilence(); }) {}

Failure Backup::makeFolder(const BackupOrder& order) {
    m_summary = {};
    m_summary.timeOfDay = order.timeOfDay;
    return m_folder.make(order.dir, order.timeOfDay, order.suffix);
}

void Backup::start(const BackupOrder& order) {
    if (m_running) return;
    if (const auto failure = makeFolder(order)) return finish(Outcome::Kind::FileFailed, failure->text);
    read(order.kinds);
}

bool Backup::isWanted(std::string_view kind) const {
    return m_kinds.empty() ||
           std::any_of(m_kinds.begin(), m_kinds.end(), [&](const FileKind* one) { return one->name == kind; });
}

void Backup::read(const std::vector<const FileKind*>& kinds) {
    m_running = true;
    m_kinds = kinds;
    m_queue.clear();
    for (const auto& one : m_transfers.readings()) {
        const bool wanted =
            std::any_of(one.kinds.begin(), one.kinds.end(), [this](auto kind) { return isWanted(kind); });
        if (wanted || one.kinds.empty()) m_queue.push_back(&one);
    }
    m_step = 0;
    m_link.panels().Error = "";
    m_summary.port = portText(m_link.port());
    m_summary.parts.clear();
    m_checksums.clear();
    beginStep();
}

void Backup::stop() {
    if (m_running) fail(Outcome::Kind::Cancelled, "it was stopped");
    m_folder.drop();
}

void Backup::beginStep() {
    m_patience.begin();
    m_readingEnd = reading().ended->connect([this](const Outcome& outcome) { onStepEnded(outcome); });
    reading().start();
    if (!m_running) return;
    m_link.workFor("Backup of the radio");
    showProgress();
}

void Backup::showProgress() {
    const std::size_t last = m_queue.size() - 1;
    if (m_step == 0) return;
    m_link.progress().caption =
        "Backup " + std::to_string(m_step) + " of " + std::to_string(last) + ": " + reading().name;
}

/// The next reading gets the line before anybody else can.
void Backup::onStepEnded(const Outcome& outcome) {
    m_readingEnd.end();
    if (const std::string why = whyNotKept(outcome); !why.empty()) {
        return fail(wasTold(outcome) ? Outcome::Kind::NoAnswer : outcome.kind, why);
    }
    for (const auto& file : reading().files()) {
        if (!keep(file)) return;
    }
    if (m_step + 1 == m_queue.size()) return conclude();
    ++m_step;
    beginStep();
}

/// What a reading has brought is weighed by its objection, and not by what the radio has refused.
std::string Backup::whyNotKept(const Outcome& outcome) const {
    const std::string who = reading().name + ": ";
    switch (outcome.kind) {
        case Outcome::Kind::PortClosed: return "the port was closed";
        case Outcome::Kind::Cancelled: return outcome.reason.empty() ? "it was stopped" : outcome.reason;
        default: break;
    }
    const std::string objection = reading().ruin ? reading().ruin() : reading().objection();
    if (!objection.empty()) return who + objection;
    return wasTold(outcome) ? "" : who + "the radio's answers did not come in time";
}

bool Backup::keep(const BackupFile& file) {
    if (!isWanted(file.kind->name)) return true;
    auto items = file.kind->items(file.content);
    if (!items) {
        fail(Outcome::Kind::NoAnswer, reading().name + ": " + items.error().text);
        return false;
    }
    const std::string name = backupFileName(*file.kind);
    if (const auto failure = write(name, file.content)) {
        fail(Outcome::Kind::FileFailed, failure->text);
        return false;
    }
    m_summary.parts.push_back({file.kind, name, std::move(*items), file.missing});
    return true;
}

Failure Backup::write(const std::string& name, const std::string& content) {
    if (!m_folder.isMade()) return {};
    if (m_checksum) m_checksums += m_checksum(content) + "  " + name + "\n";
    return textfile::write(m_folder.file(name), content);
}

void Backup::onSilence() {
    fail(Outcome::Kind::NoAnswer, reading().name + ": the radio has stopped answering");
}

void Backup::conclude() {
    m_summary.radio = m_transfers.model();
    if (!m_folder.isMade()) return finish(Outcome::Kind::Done, "");
    if (const auto failure = writeTexts()) return fail(Outcome::Kind::FileFailed, failure->text);
    if (const auto failure = m_folder.keep()) return fail(Outcome::Kind::FileFailed, failure->text);
    m_link.panels().Error = missingLines(m_summary).empty() ? "Backup saved" : "Backup saved, not complete";
    finish(Outcome::Kind::Done, "");
}

Failure Backup::writeTexts() {
    for (const auto& part : m_summary.parts) {
        if (part.kind->name != "menu") continue;
        if (auto failure = write("equalizer.txt", equalizerText(part.items))) return failure;
    }
    if (auto failure = write("summary.txt", summaryText(m_summary))) return failure;
    return m_checksum ? textfile::write(m_folder.file(checksumFileName), m_checksums) : Failure();
}

void Backup::fail(Outcome::Kind kind, const std::string& why) {
    reading().stop();
    m_link.panels().Error = "No backup was made";
    finish(kind, why);
}

void Backup::finish(Outcome::Kind kind, const std::string& why) {
    m_running = false;
    m_link.workFor({});
    m_patience.end();
    m_readingEnd.end();
    m_why = why;
    if (kind != Outcome::Kind::Done) m_folder.drop();
    ended.emit(kind);
}

}  // namespace korvex
