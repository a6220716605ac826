#include "backup/BackupEntry.h"

#include <algorithm>
#include <utility>

namespace korvex {

namespace {

constexpr std::size_t mostLines = 12;  // a box must fit the screen

}  // namespace

BackupEntry::BackupEntry(BackupEntryNeeds needs)
    : m_needs(std::move(needs)),
      m_folders(m_needs.desk, keys::backupPath),
      m_entry(m_folders, m_needs.clock, "Backup", m_needs.whyNotNow) {  // short: a small box cuts its title
    m_connections += m_needs.backup.ended.connect([this](const Outcome& outcome) { onEnded(outcome); });
}

void BackupEntry::mnu_BackupRadio_Click() {
    if (!m_entry.hasLine()) return;
    if (m_needs.looksFirst && m_needs.looksFirst([this] { askAndStart(); })) return;
    askAndStart();
}

void BackupEntry::askAndStart() {
    if (!m_entry.hasLine()) return;  // it may have been closed meanwhile
    const auto folder = m_folders.askForFolder("Folder for the Backup of the Radio");
    if (!folder) return;
    m_folders.remember(*folder);
    if (!m_entry.hasLine() || !m_needs.freeLine()) return;
    const std::string unfinished = unfinishedIn(*folder);
    const bool goesOn = !unfinished.empty() && mayGoOn(unfinished);
    if (!m_entry.hasLine()) return;  // it may have been closed beside the question
    m_started = true;
    if (goesOn) return m_needs.backup.resume(unfinished, m_needs.timeOfDay());
    m_needs.backup.start({*folder, m_needs.timeOfDay()});
}

/// The folder may be that of the unfinished backup itself.
std::string BackupEntry::unfinishedIn(const std::string& folder) {
    const auto found = unfinishedBackups(folder);
    if (!found.empty()) return found.back();
    return folder.ends_with(incompleteEnding) ? folder : "";
}

bool BackupEntry::mayGoOn(const std::string& unfinished) {
    return m_entry.confirm("An earlier backup was cut off:\r\n" + unfinished +
                           "\r\n\r\nGo on with it? What it has read is not read again. \"No\" makes a new backup.");
}

void BackupEntry::onEnded(const Outcome& outcome) {
    if (!std::exchange(m_started, false)) return;
    const bool complete = outcome.isDone() && missingLines(m_needs.backup.summary()).empty();
    const MsgBoxRequest box = {outcome.isDone() ? savedText() : brokenOffText(),
                               {},
                               complete ? MsgIcon::Information : MsgIcon::Exclamation,
                               MsgButtons::Ok};
    m_entry.soon([this, box] { m_entry.show(box); });
}

std::string BackupEntry::brokenOffText() const {
    const std::string& unfinished = m_needs.backup.unfinished();
    if (unfinished.empty()) return "No backup was made.\r\n\r\n" + m_needs.backup.why();
    return "The backup is not finished.\r\n\r\n" + m_needs.backup.why() + "\r\n\r\nWhat was read is kept in\r\n" +
           unfinished + "\r\nThe next backup into the same folder can go on with it.";
}

std::string BackupEntry::savedText() const {
    std::string text = "The backup is in\r\n" + m_needs.backup.path() + "\r\n\r\n";
    for (const auto& line : savedLines(m_needs.backup.summary())) text += line + "\r\n";
    for (const auto& line : m_needs.backup.summary().remarks) text += "\r\n" + line + "\r\n";
    const auto refused = refusedLines(m_needs.backup.summary());
    if (!missingLines(m_needs.backup.summary()).empty()) text += "\r\nIt is not complete.";
    text += "\r\nThe radio refused to tell" + std::string(refused.empty() ? " nothing." : ":");
    for (std::size_t i = 0; i < std::min(refused.size(), mostLines); ++i) text += "\r\n" + refused[i];
    if (refused.size() > mostLines) {
        text += "\r\nand " + std::to_string(refused.size() - mostLines) + " more, which are in summary.txt";
    }
    return text;
}

}  // namespace korvex
