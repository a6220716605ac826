#pragma once

#include <functional>
#include <string>

#include "backup/Backup.h"
#include "cat/RadioEntry.h"

namespace korvex {

/// What the entry needs of the rest.
struct BackupEntryNeeds {
    Backup& backup;
    Clock& clock;
    const OwnersDesk& desk;
    std::function<std::string()> timeOfDay;
    std::function<std::string()> whyNotNow;  ///< why there is no line, for the owner; empty when there is one
    std::function<bool()> freeLine;          ///< another operation is stopped for it, or the person wants it to go on
    /// A look at the radio comes first, and then what is handed in.
    std::function<bool(std::function<void()> afterwards)> looksFirst = {};
};

/// "Backup whole Radio...": asks for a folder, lets the backup run and tells in a box what has become of it.
class BackupEntry {
public:
    explicit BackupEntry(BackupEntryNeeds needs);

    void mnu_BackupRadio_Click();
    /// The end of a backup is told from the event loop; this tells it now, if it has not been told.
    void tellNow() { m_entry.now(); }

private:
    void askAndStart();
    static std::string unfinishedIn(const std::string& folder);
    bool mayGoOn(const std::string& unfinished);
    std::string brokenOffText() const;
    std::string savedText() const;
    void onEnded(const Outcome& outcome);

    BackupEntryNeeds m_needs;
    OwnersFiles m_folders;
    RadioEntry m_entry;
    bool m_started = false;  // from here, and not yet ended
    Connections m_connections;
};

}  // namespace korvex
