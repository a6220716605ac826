#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "backup/BackupJournal.h"
#include "backup/FileKind.h"
#include "backup/ModelReader.h"
#include "bandstack/BandStackReader.h"
#include "bandstack/BandStackWalk.h"
#include "bandstack/BandStackWriter.h"
#include "keyer/KeyerReader.h"
#include "keyer/KeyerWriter.h"
#include "memory/MemoryList.h"
#include "memory/MemoryReader.h"
#include "memory/MemoryRestorer.h"
#include "menu/MenuReader.h"
#include "menu/MenuWriter.h"

namespace korvex {

/// A data file as it will be written.
struct BackupFile {
    const FileKind* kind;
    std::string content;
    std::vector<std::string> missing = {};  ///< items that are not in it, and what nobody can see from it
};

/// One part of the radio that is read at a time.
struct KindReading {
    std::string name;                     ///< for the owner
    std::vector<std::string_view> kinds;  ///< that it has files of
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
    /// Answer by answer what was read.
    std::function<std::vector<BackupJournal::Told>()> told = {};
    /// Of what an unfinished backup has read: leaves out what has to be read again.
    void (*leaveOut)(ReadSoFar::Reading& reading) = [](ReadSoFar::Reading&) {};
};

/// How items of a kind get into the radio. What is not among those given keeps what the radio has.
struct KindWriting {
    std::function<void(const DataItems& items)> start;
    Signal<const Outcome&>* ended;
};

/// How each kind of file is read from the radio and written into it, in objects of their own: what the windows show and
/// what their owner has typed into them stays as it is. The readers and writers are those of the windows.
class KindTransfers {
public:
    KindTransfers(CatLink& link, OwnersFiles& files, Clock& clock);

    /// The model first, which has no file.
    const std::vector<KindReading>& readings() const { return m_readings; }
    /// The one that has a file of this kind.
    const KindReading& reading(const FileKind& kind) const;
    /// What the last reading has for a file of this kind.
    BackupFile file(const FileKind& kind) const;
    const KindWriting& writing(const FileKind& kind) const { return m_writings.at(kind.name); }
    const std::string& model() const { return m_modelReader.model(); }
    /// Where the radio stands otherwise than before the last walk through its band stack, UTF-8; else empty.
    const std::string& whyNotHome() const { return m_walk.whyNotHome(); }

private:
    KindReading modelReading();
    KindReading menuReading();
    KindReading memoryReading();
    KindReading scanLimitReading();
    KindReading bandStackReading();
    KindReading keyerReading();
    std::vector<BackupFile> memoryFiles();
    BackupFile scanLimitFile() const;
    BackupFile keyerFile() const;
    std::vector<BackupJournal::Told> toldOfMenu() const;
    std::vector<BackupJournal::Told> toldOfMemories() const;
    std::vector<BackupJournal::Told> toldOfScanLimits() const;
    std::vector<BackupJournal::Told> toldOfBandStack() const;
    std::vector<BackupJournal::Told> toldOfKeyer() const;
    void addWritings();

    ModelReader m_modelReader;
    MenuReader m_menuReader;
    MemoryList m_list;
    MemoryReader m_memoryReader;
    MemoryReader m_scanLimitReader;
    BandStackReader m_bandStackReader;
    KeyerReader m_keyerReader;
    MenuWriter m_menuWriter;
    MemoryTable m_unused;
    MemoryRestorer m_memoryWriter;
    BandStackWriter m_bandStackWriter;
    BandStackWalk m_walk;
    KeyerWriter m_keyerWriter;
    std::vector<KindReading> m_readings;
    std::map<std::string_view, KindWriting> m_writings;
};

}  // namespace korvex
