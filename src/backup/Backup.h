#pragma once

#include <memory>
#include <string>

#include "backup/BackupFolder.h"
#include "backup/BackupReadings.h"
#include "backup/BackupText.h"

namespace korvex {

/// The whole radio into a new folder: the model, then menu, memories, band stack and keyer, one reading after the
/// other, each file written as soon as it is read; a summary at the end. For the windows and for korvexctl.
///
///     folder "....incomplete" -> wait for the end of the communication test
///                             -> reading -> its files -> next reading ...
///                             -> equalizer and summary -> folder without that ending -> ended: Done
///
/// What the radio refuses to tell is left out and named in the summary (`missingLines`).
///
/// Without a folder that stays end: 5 s without an answer, 30 s without a step forward, answers that no radio gives and
/// another operation (NoAnswer), a closed port (PortClosed), a file or folder that cannot be written (FileFailed).
class Backup {
public:
    Backup(Terminal& terminal, Clock& clock);

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
    void startAnew(Timer& watch) const;
    void stopWatching();
    void onStepEnded(TransferEnd end);
    bool keep(const BackupFile& file);
    void onClaimed(ActiveOperation operation);
    void onSilence();
    void conclude();
    Failure writeTexts() const;
    void fail(TransferEnd end, const std::string& why);
    void finish(TransferEnd end, const std::string& why);

    CatLink& m_link;
    BackupReadings m_readings;
    BackupFolder m_folder;
    BackupSummary m_summary;
    std::unique_ptr<Timer> m_next;        // not from inside the end of the reading before
    std::unique_ptr<Timer> m_silence;     // since the last answer
    std::unique_ptr<Timer> m_standstill;  // since the last step forward
    bool m_running = false;
    std::size_t m_step = 0;
    std::string m_caption;  // of the progress window, while it is ours
    std::string m_why;
    Connection m_readingEnd;
    Connections m_connections;
};

}  // namespace korvex
