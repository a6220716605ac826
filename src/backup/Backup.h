#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "backup/BackupFolder.h"
#include "backup/BackupJournal.h"
#include "backup/BackupText.h"
#include "backup/KindTransfers.h"
#include "backup/Patience.h"
#include "backup/SameRadio.h"

namespace korvex {

/// What a backup reads, and where it keeps that.
struct BackupOrder {
    std::string dir;        ///< the folder for the backup's own folder, UTF-8
    std::string timeOfDay;  ///< "2026-11-22 23:42:54", which the folder is named after
    /// Behind that name; such a copy is no backup of its own, and nothing is left of one that is not whole.
    std::string suffix = {};
    std::vector<const FileKind*> kinds = {};  ///< empty: all
};

/// The whole radio into a new folder, or some kinds of it: the model, then one reading after the other, each file
/// written as soon as it is read; a summary at the end. For the windows and for korvexctl.
///
///     folder "....incomplete" -> reading -> its files -> next reading ...
///                             -> equalizer, summary, checksums -> folder without that ending -> ended: Done
///
/// What the radio refuses to tell, and a memory that came damaged, is left out and named in the summary
/// (`missingLines`).
///
/// It ends early with a radio that tries the `Patience`, answers that no radio gives (NoAnswer), a closed port
/// (PortClosed), Cancel (Cancelled), a file or folder that cannot be written (FileFailed). What was read stays in the
/// folder with that ending (`unfinished`), also when the program is killed, and another backup may go on there: it
/// looks whether it is the same radio, and asks only for the rest.
///
///     folder "....incomplete" -> model -> a few answers asked for again -> the readings that are not whole -> as above
class Backup {
public:
    /// The SHA-256 of what a file holds, in hexadecimal digits. Without it no checksums are kept.
    using Checksum = std::function<std::string(std::string_view)>;

    Backup(CatLink& link, KindTransfers& transfers, Clock& clock, Checksum checksum);

    /// Makes the folder for `read`. Without this one `read` keeps what it has read in `summary` alone.
    Failure makeFolder(const BackupOrder& order);
    void read(const std::vector<const FileKind*>& kinds = {});
    /// Both. Nothing happens while a backup is going on.
    void start(const BackupOrder& order);
    /// In place of `makeFolder`: "....incomplete", which an earlier backup has left.
    Failure takeUp(const std::string& incomplete, const std::string& timeOfDay);
    /// Both. Nothing happens while a backup is going on.
    void resume(const std::string& incomplete, const std::string& timeOfDay);
    /// Ends as Cancelled if it was running. Of the folder stays what is worth going on with.
    void stop();
    bool running() const { return m_running; }

    /// `ended` may come during `start` and `read`.
    Signal<const Outcome&> ended;
    /// Why there is no backup, UTF-8, for the owner; empty after Done.
    const std::string& why() const { return m_why; }
    /// The folder of the last backup that was begun.
    const std::string& path() const { return m_folder.path(); }
    /// The folder with what the last backup has read, when it did not come to its end; empty when nothing is left.
    const std::string& unfinished() const { return m_unfinished; }
    /// What is in it; whole after Done.
    const BackupSummary& summary() const { return m_summary; }

private:
    const KindReading& reading() const { return *m_queue[m_step]; }
    bool isWanted(std::string_view kind) const;
    KindReading lookAtRadio();
    std::string whyOtherRadio() const;
    void makeQueue();
    void beginStep();
    void recollect();
    void showProgress();
    void onStepEnded(const Outcome& outcome);
    std::string whyNotKept(const Outcome& outcome) const;
    bool keepReading();
    bool keep(const BackupFile& file);
    Failure write(const std::string& name, const std::string& content);
    void onSilence();
    void conclude();
    Failure writeTexts();
    void fail(Outcome::Kind kind, const std::string& why);
    void finish(Outcome::Kind kind, const std::string& why);
    void letGo();

    CatLink& m_link;
    KindTransfers& m_transfers;
    Checksum m_checksum;
    BackupFolder m_folder;
    BackupJournal m_journal;
    SameRadio m_sameRadio;
    KindReading m_look;
    BackupSummary m_summary;
    std::string m_checksums;  // a line for each file
    Patience m_patience;
    bool m_running = false;
    std::vector<const FileKind*> m_kinds;
    std::vector<const KindReading*> m_queue;
    std::size_t m_step = 0;
    Pace m_pace{};  // of the readings
    std::string m_unfinished;
    std::string m_why;
    Connection m_readingEnd;
};

/// In a backup's folder: a line for each file, as sha256sum writes and checks it.
inline constexpr const char* checksumFileName = "SHA256SUMS";

/// The folders in `folder` with which a backup could go on, the earliest first.
std::vector<std::string> unfinishedBackups(const std::string& folder);

}  // namespace korvex
