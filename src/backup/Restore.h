#pragma once

#include <optional>
#include <string>
#include <vector>

#include "backup/Backup.h"
#include "backup/RestorePart.h"

namespace korvex {

/// What of a restore is up to the person.
struct RestoreChoices {
    bool writesAll = false;                 ///< also what the radio has already
    bool withLineItems = false;             ///< what may cut the line, too: the radio's own CAT settings
    bool force = false;                     ///< into a radio that is none, or that tells values of another width
    std::optional<BackupOrder> safetyCopy;  ///< where what the radio has now is kept first
};

/// Files into the radio, one kind after the other, and nothing that the radio has already:
///
///     take the files -> read what the radio has, which is the safety copy -> planned, and somebody says go
///                    -> kind by kind: write what differs -> kind by kind: read it back
///                    -> what may cut the line -> ended, with a report
///
/// It ends early, and sends nothing more, as its transfers do: a closed port, Cancel, a radio that tries the
/// `Patience`. Begun again, it writes what is missing.
class Restore {
public:
    Restore(CatLink& link, Backup& backup, KindTransfers& transfers, Clock& clock);

    /// Begins anew, without any file.
    void clear();
    /// What a file of the kind says. Whether it is whole, and holds anything, the kind tells.
    Failure take(const FileKind& kind, DataItems items);
    /// The safety copy's folder is made here already, so that a disk that is full or locked is told before anything is
    /// sent.
    Failure prepare(const RestoreChoices& choices);
    void begin();
    /// It is known what differs: `go` or `stop`.
    Signal<> planned;
    void go();
    /// Nothing is written. For a restore that is planned or has not begun.
    void stop();
    bool running() const { return m_stage != Stage::Idle; }

    /// May come during `begin` and `go`.
    Signal<const Outcome&> ended;
    /// Why it did not come to its end, and what the radio holds now: UTF-8, a line each; empty after Done.
    const std::vector<std::string>& why() const { return m_why; }

    /// "menu: 3 of 146 items differ: 020, 042, 126", a line for each kind.
    std::vector<std::string> planLines() const;
    /// Item by item: what the radio has, and what the file.
    std::vector<std::string> planDetails(const ItemTitles& titles = {}) const;
    bool writesAnything() const;
    /// All that could be sent, in its order.
    DataItems commands() const;

    /// What has become of each item; whole after Done.
    const std::vector<RestoredItem>& report() const { return m_report; }
    /// The radio is as the files say.
    bool isAsTheFilesSay() const;
    /// Where the radio stands otherwise than before, UTF-8, a line each.
    std::vector<std::string> remarks() const;
    /// The folder of the safety copy; empty without one, and when nothing had to be written.
    const std::string& safetyCopy() const { return m_safetyCopy; }

private:
    enum class Stage { Idle, Reading, Planned, Writing, ReadingBack, LineItems };

    void onPresentRead(const Outcome& outcome);
    std::string whyNotThisRadio() const;
    void plan();
    void markSafetyCopy();
    void dropSafetyCopy();
    void next();
    bool hasWork() const;
    void work();
    void onStepEnded(const Outcome& outcome);
    bool takeReadBack();
    void onSilence();
    void conclude();
    void breakOff(const Outcome& outcome);
    std::vector<std::string> whatTheRadioHolds() const;
    void finish(const Outcome& outcome);
    RestorePart& part() { return m_parts[m_part]; }
    const RestorePart& part() const { return m_parts[m_part]; }

    CatLink& m_link;
    Backup& m_backup;
    KindTransfers& m_transfers;
    Patience m_patience;
    RestoreChoices m_choices;
    std::vector<RestorePart> m_parts;  // in the order of the kinds
    Stage m_stage = Stage::Idle;
    std::size_t m_part = 0;
    std::vector<std::string> m_why;
    std::vector<RestoredItem> m_report;
    std::string m_safetyCopy;
    Connection m_stepEnd;
};

/// In the folder of a safety copy, for as long as its restore goes on.
inline constexpr const char* unfinishedRestoreName = "restore-unfinished.txt";

}  // namespace korvex
