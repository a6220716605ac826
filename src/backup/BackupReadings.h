#pragma once

#include <functional>
#include <string>
#include <vector>

#include "backup/ModelReader.h"
#include "bandstack/BandStackReader.h"
#include "keyer/KeyerReader.h"
#include "memory/MemoryList.h"
#include "memory/MemoryReader.h"
#include "menu/MenuReader.h"

namespace korvex {

/// A data file as it will be written.
struct BackupFile {
    std::string kind;  ///< "menu"
    std::string content;
    std::vector<std::string> missing = {};  ///< items that are not in it, and what nobody can see from it
};

/// One part of the radio that is read at a time.
struct BackupReading {
    std::string name;  ///< for the owner
    std::function<void()> start;
    std::function<void()> stop;  ///< sends nothing more; does not tell an end
    Signal<const Outcome&>* ended;
    std::function<std::string()> objection;  ///< why what was read is not worth a file
    std::function<std::vector<BackupFile>()> files;
    /// As `objection`, and also when something is missing in the files. Without it `objection` holds.
    std::function<std::string()> gap = {};
    /// Why not even a part of it is worth a backup, which names what is missing. Without it `objection` holds.
    std::function<std::string()> ruin = {};
    /// What the owner should know of the files all the same, a line each.
    std::function<std::vector<std::string>()> remarks = {};
};

/// Everything that a backup and korvexctl read, in objects of its own: what the windows show and what their owner has
/// typed into them stays as it is. The readers are those of the windows; what they read is given away as texts.
class BackupReadings {
public:
    BackupReadings(CatLink& link, Clock& clock);

    const std::vector<BackupReading>& all() const { return m_all; }
    /// The one that has a file of this kind.
    const BackupReading& of(const std::string& kind) const;
    const std::string& model() const { return m_modelReader.model(); }

private:
    BackupReading modelReading();
    BackupReading menuReading();
    BackupReading memoryReading();
    BackupReading bandStackReading();
    BackupReading keyerReading();
    std::vector<BackupFile> memoryFiles();
    BackupFile keyerFile() const;

    ModelReader m_modelReader;
    MenuReader m_menuReader;
    MemoryList m_list;
    MemoryReader m_memoryReader;
    BandStackReader m_bandStackReader;
    KeyerReader m_keyerReader;
    std::vector<BackupReading> m_all;
};

}  // namespace korvex
