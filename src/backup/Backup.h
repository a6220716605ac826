#pragma once

#include <string>

#include "backup/BackupFolder.h"
#include "backup/BackupReadings.h"
#include "backup/BackupText.h"
#include "backup/Patience.h"

namespace korvex {

/// The whole radio into a new folder: the model, then menu, memories, band stack and keyer, one reading after the
/// other, each file written as soon as it is read; a summary at the end. For the windows and for korvexctl.
///
///     folder "....incomplete" -> reading -> its files -> next reading ...
///                             -> equalizer and summary -> folder without that ending -> ended: Done
///
/// What the radio refuses to tell, and a memory that came damaged, is left out and named in the summary
/// (`missingLines`).
///
/// Without a folder that stays end: a radio that tries the `Patience`, answers that no radio gives (NoAnswer), a closed
/// port (PortClosed), Cancel (Cancelled), a file or folder that cannot be written (FileFailed).
class Backup {
public:
    Backup(CatLink& link, Clock& clock);

    /// Makes the folder for `read` in `dir`, named after the time of day, "2026-11-22 23:42:54".
    Failure makeFolder(const std::string& dir, const std::string& timeOfDay);
    void read();
    /// Both. Nothing happens while a backup is going on.
    void start(const std::string& dir, const std::string& timeOfDay);
    /// Nothing is left of the folder. Ends as Cancelled if it was running.
    void stop();
    bool running() const { return m_running; }

    /// `ended` may come during `start`.
    Signal<const Outcome&> ended;
    /// Why there is no backup, UTF-8, for the owner; empty after Done.
    const std::string& why() const { return m_why; }
    /// The folder of the last backup that was begun.
    const std::string& path() const { return m_folder.path(); }
    /// What is in it; whole after Done.
    const BackupSummary& summary() const { return m_summary; }
    /// What the backup reads, for those who want one of them by itself.
    const BackupReadings& readings() const { return m_readings; }

private:
    const BackupReading& reading() const { return m_readings.all()[m_step]; }
    void beginStep();
    void showProgress();
    void onStepEnded(const Outcome& outcome);
    std::string whyNotKept(const Outcome& outcome) const;
    bool keep(const BackupFile& file);
    void onSilence();
    void conclude();
    Failure writeTexts() const;
    void fail(Outcome::Kind kind, const std::string& why);
    void finish(Outcome::Kind kind, const std::string& why);

    CatLink& m_link;
    BackupReadings m_readings;
    BackupFolder m_folder;
    BackupSummary m_summary;
    Patience m_patience;
    bool m_running = false;
    std::size_t m_step = 0;
    std::string m_why;
    Connection m_readingEnd;
};

}  // namespace korvex
