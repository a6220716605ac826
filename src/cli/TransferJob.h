#pragma once

#include <set>

#include "cli/Job.h"
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

    Workshop m_workshop;
    ScratchFolder m_scratch;
    std::optional<DataItems> m_wanted;  // when there is a question of what took
    std::set<std::string> m_refused;
};

}  // namespace korvex::cli
