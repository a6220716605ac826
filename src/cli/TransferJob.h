#pragma once

#include "cli/Job.h"
#include "cli/MenuRestoreSteps.h"

namespace korvex::cli {

/// save and restore of one kind of file, the latter with its --verify and --dry-run.
class TransferJob : public Job {
public:
    explicit TransferJob(Workshop workshop) : m_workshop(std::move(workshop)) {}

    std::optional<ExitCode> prepare() override;
    std::vector<Step> steps() override;
    ExitCode conclude() override;

private:
    bool restores() const { return m_workshop.command.verb == Command::Verb::Restore; }

    std::optional<ExitCode> checkTarget();
    std::optional<ExitCode> takeFile();
    bool isMenu() const { return m_workshop.command.kind == "menu"; }
    std::string whyNotTaken(const FileContent& content);
    bool wouldEmptyTarget() const;
    ExitCode save();
    ExitCode report();

    Workshop m_workshop;
    FileContent m_wanted;  // to restore
    MenuRestoreSteps m_menu;
    std::vector<std::string> m_refused;
    std::string m_read;  // from the radio: what is saved, or verified
};

}  // namespace korvex::cli
