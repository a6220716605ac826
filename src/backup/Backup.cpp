#include "backup/Backup.h"

#include <algorithm>
#include <filesystem>
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
      m_sameRadio(link),
      m_look(lookAtRadio()),
      m_patience(link, clock, [this] { onSilence(); }) {}

Failure Backup::makeFolder(const BackupOrder& order) {
    m_summary = {};
    m_summary.timeOfDay = order.timeOfDay;
    m_journal.close();
    m_unfinished.clear();
    const auto failure = m_folder.make(order.dir, order.timeOfDay, order.suffix);
    if (!failure && order.suffix.empty()) m_journal.begin(m_folder.file(journalName), order.timeOfDay);
    return failure;
}

Failure Backup::takeUp(const std::string& incomplete, const std::string& timeOfDay) {
    const std::string file = incomplete + "/" + journalName;
    const auto text = textfile::read(file);
    if (!text) return RuntimeError{errors::PathNotFound, incomplete + " is no backup that could be gone on with"};
    auto soFar = parseReadSoFar(*text);
    if (!soFar) return RuntimeError{soFar.error().number, file + ": " + soFar.error().text};
    if (auto failure = m_folder.adopt(incomplete)) return failure;
    m_unfinished.clear();
    for (const auto& one : m_transfers.readings()) one.leaveOut(soFar->readings[one.name]);
    m_summary = {};
    m_summary.timeOfDay = soFar->sessions.empty() ? timeOfDay : soFar->sessions.front();
    m_journal.begin(file, timeOfDay, std::move(*soFar));
    return {};
}

void Backup::start(const BackupOrder& order) {
    if (m_running) return;
    if (const auto failure = makeFolder(order)) return finish(Outcome::Kind::FileFailed, failure->text);
    read(order.kinds);
}

void Backup::resume(const std::string& incomplete, const std::string& timeOfDay) {
    if (m_running) return;
    if (const auto failure = takeUp(incomplete, timeOfDay)) return finish(Outcome::Kind::FileFailed, failure->text);
    read();
}

bool Backup::isWanted(std::string_view kind) const {
    return m_kinds.empty() ||
           std::any_of(m_kinds.begin(), m_kinds.end(), [&](const FileKind* one) { return one->name == kind; });
}

void Backup::read(const std::vector<const FileKind*>& kinds) {
    m_running = true;
    m_kinds = kinds;
    makeQueue();
    m_step = 0;
    m_link.panels().Error = "";
    m_summary.port = portText(m_link.port());
    m_summary.parts.clear();
    m_summary.leftOut.clear();
    m_summary.remarks.clear();
    m_checksums.clear();
    beginStep();
}

/// What is wanted, behind the radio's model and a look whether it is the one that has been read before.
void Backup::makeQueue() {
    m_queue.clear();
    for (const auto& one : m_transfers.readings()) {
        const bool wanted =
            std::any_of(one.kinds.begin(), one.kinds.end(), [this](auto kind) { return isWanted(kind); });
        if (wanted || one.kinds.empty()) m_queue.push_back(&one);
        if (one.kinds.empty() && !m_journal.soFar().isEmpty()) m_queue.push_back(&m_look);
    }
}

KindReading Backup::lookAtRadio() {
    return {"the radio",
            {},
            [this] { m_sameRadio.look(m_journal.soFar()); },
            [this] { m_sameRadio.stop(); },
            &m_sameRadio.ended,
            [this] { return whyOtherRadio(); },
            [] { return std::vector<BackupFile>(); }};
}

std::string Backup::whyOtherRadio() const {
    const std::string end = "; it is another radio, or has been changed since. A new backup reads everything.";
    const std::string& before = m_journal.soFar().model;
    const std::string& now = m_transfers.model();
    if (!before.empty() && !now.empty() && before != now) return "it says " + now + " and not " + before + end;
    std::string names;
    for (const auto& name : m_sameRadio.different()) names += (names.empty() ? "" : ", ") + name;
    return names.empty() ? "" : names + ": not as read before" + end;
}

void Backup::stop() {
    if (m_running) return fail(Outcome::Kind::Cancelled, "it was stopped");
    letGo();
}

void Backup::beginStep() {
    m_patience.begin();
    m_readingEnd = reading().ended->connect([this](const Outcome& outcome) { onStepEnded(outcome); });
    recollect();
    const std::size_t step = m_step;
    reading().start();
    if (!m_running || m_step != step) return;
    m_link.workFor("Backup of the radio");
    showProgress();
}

/// A reading that is known as a whole goes as a conversation in which nothing is asked.
void Backup::recollect() {
    m_link.recollection.reset();
    m_pace = m_link.pace;
    if (m_journal.isWhole(reading().name)) m_link.pace = Pace::Answered;
    if (m_journal.isOpen() && reading().told) m_link.recollection = m_journal.recollectionOf(reading().name);
}

void Backup::showProgress() {
    const auto counts = [](const KindReading* one) { return one->kinds.empty() ? 0 : 1; };
    int all = 0;
    int number = 0;
    for (std::size_t i = 0; i < m_queue.size(); ++i) {
        all += counts(m_queue[i]);
        if (i <= m_step) number += counts(m_queue[i]);
    }
    if (number == 0) return;
    m_link.progress().caption =
        "Backup " + std::to_string(number) + " of " + std::to_string(all) + ": " + reading().name;
}

/// The next reading gets the line before anybody else can.
void Backup::onStepEnded(const Outcome& outcome) {
    m_readingEnd.end();
    if (m_journal.isWhole(reading().name)) m_link.pace = m_pace;
    if (const std::string why = whyNotKept(outcome); !why.empty()) {
        if (wasTold(outcome)) m_journal.forget(reading().name);
        return fail(wasTold(outcome) ? Outcome::Kind::NoAnswer : outcome.kind, why);
    }
    if (!keepReading()) return;
    if (m_step + 1 == m_queue.size()) return conclude();
    ++m_step;
    beginStep();
}

bool Backup::keepReading() {
    for (const auto& file : reading().files()) {
        if (!keep(file)) return false;
    }
    if (!reading().told) {
        m_journal.noteModel(m_transfers.model());
        return true;
    }
    const auto failure = m_journal.noteWhole(reading().name, reading().told());
    if (failure) fail(Outcome::Kind::FileFailed, failure->text);
    return !failure;
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
    if (items->empty() && file.missing.empty() && !file.kind->leftOut.empty()) {
        m_summary.leftOut.emplace_back(file.kind->leftOut);
        return true;
    }
    const std::string name = backupFileName(*file.kind);
    if (const auto failure = write(name, file.content)) {
        fail(Outcome::Kind::FileFailed, failure->text);
        return false;
    }
    m_summary.parts.push_back({file.kind, name, std::move(*items), file.missing, reading().name});
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
    if (!m_transfers.whyNotHome().empty() && isWanted("bandstack")) m_summary.remarks = {m_transfers.whyNotHome()};
    m_summary.resumed = m_journal.soFar().sessions;
    if (!m_summary.resumed.empty()) m_summary.resumed.erase(m_summary.resumed.begin());
    for (auto& part : m_summary.parts) part.times = m_journal.timesOf(part.reading);
    if (!m_folder.isMade()) return finish(Outcome::Kind::Done, "");
    if (const auto failure = writeTexts()) return fail(Outcome::Kind::FileFailed, failure->text);
    if (const auto failure = m_folder.keep()) return fail(Outcome::Kind::FileFailed, failure->text);
    m_journal.close();
    std::error_code ignored;
    std::filesystem::remove(m_folder.path() + "/" + journalName, ignored);
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
    if (m_journal.isWhole(reading().name)) m_link.pace = m_pace;
    m_link.panels().Error = m_journal.soFar().isEmpty() ? "No backup was made" : "The backup is not finished";
    finish(kind, why);
}

void Backup::finish(Outcome::Kind kind, const std::string& why) {
    m_link.workFor({});
    m_link.recollection.reset();
    m_running = false;
    m_patience.end();
    m_readingEnd.end();
    m_why = why;
    letGo();
    ended.emit(kind);
}

/// Nothing is left of a folder in which there is nothing.
void Backup::letGo() {
    if (m_folder.isMade() && m_journal.isOpen() && !m_journal.soFar().isEmpty()) {
        m_unfinished = m_folder.incomplete();
        m_folder.leave();
    }
    m_folder.drop();
    m_journal.close();
}

std::vector<std::string> unfinishedBackups(const std::string& folder) {
    namespace fs = std::filesystem;
    std::vector<std::string> found;
    std::error_code ignored;
    for (fs::directory_iterator entry(folder, ignored), end; entry != end; entry.increment(ignored)) {
        const std::string path = entry->path().string();
        if (path.ends_with(incompleteEnding) && fs::exists(path + "/" + journalName, ignored)) found.push_back(path);
    }
    std::sort(found.begin(), found.end());
    return found;
}

}  // namespace korvex
