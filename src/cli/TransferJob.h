#pragma once

#include <set>

#include "cli/Job.h"
#include "cli/MenuRestoreSteps.h"
#include "cli/ScratchFolder.h"

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
    Failure keepStream();
    bool isMenu() const { return m_workshop.command.kind == "menu"; }
    std::string whyNotTaken(const DataItems& items);

    Workshop m_workshop;
    ScratchFolder m_scratch;
    std::string m_file;  // to restore
    DataItems m_wanted;
    MenuRestoreSteps m_menu;
    std::set<std::string> m_refused;
};

}  // namespace korvex::cli
