#include "backup/RestoreEntry.h"

#include <utility>

#include "backup/RestoreText.h"

namespace korvex {

namespace {

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text += line + "\r\n";
    return text;
}

}  // namespace

RestoreEntry::RestoreEntry(RestoreEntryNeeds needs)
    : m_needs(std::move(needs)),
      m_folders(m_needs.desk, keys::backupPath),
      m_entry(m_folders, m_needs.clock, "Restore", m_needs.whyNotNow) {
    m_connections += m_needs.restore.planned.connect([this] {
        if (m_started) m_entry.soon([this] { askToGo(); });
    });
    m_connections += m_needs.restore.ended.connect([this](const Outcome&) {
        if (m_started) m_entry.soon([this] { tellEnd(); });
    });
}

void RestoreEntry::mnu_RestoreRadio_Click() {
    if (!m_entry.hasLine()) return;
    const auto folder = m_folders.askForFolder("Backup to restore into the Radio");
    if (!folder || !takeFiles(*folder)) return;
    m_folders.remember(*folder);
    if (m_entry.hasLine() && m_needs.link.freeLine()) begin(*folder);
}

bool RestoreEntry::takeFiles(const std::string& folder) {
    m_needs.restore.clear();
    const FilesTaken taken = takeFolder(m_needs.restore, folder, m_needs.checksum);
    if (!taken.refusal.empty()) {
        m_entry.exclaim(taken.refusal + "\r\n\r\nNothing was sent.");
        return false;
    }
    return taken.doubts.empty() || m_entry.confirm(joined(taken.doubts) + "\r\nRestore what is there all the same?");
}

void RestoreEntry::begin(const std::string& folder) {
    m_earlier.clear();
    for (const auto& copy : unfinishedRestores(folderBeside(folder))) {
        m_earlier +=
            "An earlier restore did not come to its end; what the radio had before it is in\r\n" + copy + "\r\n\r\n";
    }
    RestoreChoices choices;
    choices.safetyCopy = BackupOrder{folderBeside(folder), m_needs.timeOfDay(), "-before-restore"};
    if (const auto failure = m_needs.restore.prepare(choices)) {
        return m_entry.exclaim("What the radio has now cannot be kept:\r\n" + failure->text +
                               "\r\n\r\nNothing was sent.");
    }
    m_started = true;
    m_paceBefore = m_needs.link.pace;
    m_needs.link.pace = Pace::Answered;
    m_needs.restore.begin();
}

void RestoreEntry::askToGo() {
    Restore& restore = m_needs.restore;
    if (!restore.writesAnything()) return restore.go();
    const std::string text = m_earlier + joined(restore.planLines()) + "\r\nWhat the radio has now is kept in\r\n" +
                             restore.safetyCopy() + "\r\n\r\nWrite this into the radio?";
    const auto answer = m_entry.show(
        {text, {}, MsgIcon::Question, MsgButtons::YesNoCareful, joined(restore.planDetails(m_needs.titles()))});
    // The port may have been closed while the box stood, which is for the restore to tell.
    if (answer == MsgAnswer::Yes) return restore.go();
    giveBack();
    restore.stop();
}

void RestoreEntry::giveBack() {
    m_started = false;
    m_needs.link.pace = m_paceBefore;
}

void RestoreEntry::tellEnd() {
    giveBack();
    const Restore& restore = m_needs.restore;
    const bool whole = restore.why().empty();
    const bool fine = whole && restore.isAsTheFilesSay();
    const std::string head = fine    ? "The radio is as the backup says."
                             : whole ? "The radio is not in everything as the backup says."
                                     : "The restore did not come to its end.";
    const auto& lines = whole ? countLines(restore.report()) : restore.why();
    std::string text = head + "\r\n\r\n" + joined(lines);
    if (const auto remarks = restore.remarks(); !remarks.empty()) text += "\r\n" + joined(remarks);
    if (whole && !restore.safetyCopy().empty())
        text += "\r\nWhat the radio had before is in\r\n" + restore.safetyCopy();
    m_entry.show({text,
                  {},
                  fine ? MsgIcon::Information : MsgIcon::Exclamation,
                  MsgButtons::Ok,
                  joined(itemLines(restore.report(), m_needs.titles(), false))});
}

}  // namespace korvex
