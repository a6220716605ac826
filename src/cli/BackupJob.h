#pragma once

#include "cli/Job.h"

namespace korvex::cli {

/// backup DIR: every kind of file into a new folder, the equalizer by name, and a summary; with --resume into the one
/// that an earlier backup has left there.
class BackupJob : public Job {
public:
    explicit BackupJob(Workshop workshop) : m_workshop(std::move(workshop)), m_backup(m_workshop.program.backup) {}

    std::optional<ExitCode> prepare() override;
    std::vector<Step> steps() override;
    ExitCode conclude() override;
    void abandon() override;

private:
    Failure takeUp(const std::string& timeOfDay);

    Workshop m_workshop;
    Backup& m_backup;
};

}  // namespace korvex::cli
