#include "backup/BackupEntry.h"

#include <algorithm>
#include <utility>

namespace korvex {

namespace {

constexpr const char* title = "Backup";  // short: a small box cuts its title
constexpr std::size_t mostLines = 12;    // a box must fit the screen

}  // namespace

BackupEntry::BackupEntry(BackupEntryNeeds needs)
    : m_needs(std::move(needs)), m_folders(m_needs.desk, keys::backupPath), m_tell(m_needs.clock.makeTimer()) {
    m_connections += m_tell->tick.connect([this] { tellNow(); });
    m_connections += m_needs.backup.ended.connect([this](const Outcome& outcome) { onEnded(outcome); });
}

void BackupEntry::mnu_BackupRadio_Click() {
    if (!hasLine()) return;
    const auto folder = m_folders.askForFolder("Folder for the Backup of the Radio");
    if (!folder) return;
    m_folders.remember(*folder);
    if (!hasLine() || !m_needs.freeLine()) return;
    m_started = true;
    m_needs.backup.start({*folder, m_needs.timeOfDay()});
}

bool BackupEntry::hasLine() {
    const std::string why = m_needs.whyNotNow();
    if (!why.empty()) m_folders.msgBox().exclamation(why, title);
    return why.empty();
}

void BackupEntry::onEnded(const Outcome& outcome) {
    if (!std::exchange(m_started, false)) return;
    const bool complete = outcome.isDone() && missingLines(m_needs.backup.summary()).empty();
    m_untold = {outcome.isDone() ? savedText() : "No backup was made.\r\n\r\n" + m_needs.backup.why(), title,
                complete ? MsgIcon::Information : MsgIcon::Exclamation, MsgButtons::Ok};
    m_tell->setEnabled(true);
}

std::string BackupEntry::savedText() const {
    std::string text = "The backup is in\r\n" + m_needs.backup.path() + "\r\n\r\n";
    for (const auto& line : savedLines(m_needs.backup.summary())) text += line + "\r\n";
    const auto refused = refusedLines(m_needs.backup.summary());
    if (!missingLines(m_needs.backup.summary()).empty()) text += "\r\nIt is not complete.";
    text += "\r\nThe radio refused to tell" + std::string(refused.empty() ? " nothing." : ":");
    for (std::size_t i = 0; i < std::min(refused.size(), mostLines); ++i) text += "\r\n" + refused[i];
    if (refused.size() > mostLines) {
        text += "\r\nand " + std::to_string(refused.size() - mostLines) + " more, which are in summary.txt";
    }
    return text;
}

void BackupEntry::tellNow() {
    m_tell->setEnabled(false);
    const MsgBoxRequest request = std::exchange(m_untold, {});
    if (!request.text.empty()) m_folders.msgBox().show(request);
}

}  // namespace korvex
