#pragma once

#include <functional>
#include <string>

#include "backup/RestoreFiles.h"
#include "cat/RadioEntry.h"

namespace korvex {

/// What the entry needs of the rest.
struct RestoreEntryNeeds {
    CatLink& link;
    Restore& restore;
    Clock& clock;
    const OwnersDesk& desk;
    Backup::Checksum checksum;
    std::function<std::string()> timeOfDay;
    std::function<std::string()> whyNotNow;  ///< why there is no line, for the owner; empty when there is one
    std::function<ItemTitles()> titles;      ///< what the owner calls the items now
};

/// "Restore whole Radio...": asks for the folder of a backup, shows what would be written, and writes it when the
/// person says so; a box tells what has become of it. Quick and verified, whatever pace the windows have.
class RestoreEntry {
public:
    explicit RestoreEntry(RestoreEntryNeeds needs);

    void mnu_RestoreRadio_Click();

private:
    bool takeFiles(const std::string& folder);
    void begin(const std::string& folder);
    void askToGo();
    void giveBack();
    void tellEnd();

    RestoreEntryNeeds m_needs;
    OwnersFiles m_folders;
    RadioEntry m_entry;
    bool m_started = false;  // from here, and not yet ended
    Pace m_paceBefore{};
    std::string m_earlier;  // restores that have not come to their end, for the person
    Connections m_connections;
};

}  // namespace korvex
