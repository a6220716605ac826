#pragma once

#include "cli/BackupFolder.h"
#include "cli/BackupText.h"
#include "cli/Job.h"
#include "cli/LineSender.h"

namespace korvex::cli {

/// backup DIR: every kind of file into a new folder, the equalizer by name, and a summary.
class BackupJob : public Job {
public:
    explicit BackupJob(Workshop workshop);

    std::optional<ExitCode> prepare() override;
    std::vector<Step> steps() override;
    ExitCode conclude() override;
    void abandon() override;

private:
    Step askForModel();
    bool takeParts();
    Failure writeTexts() const;
    ExitCode failed(const std::string& why);

    Workshop m_workshop;
    LineSender m_sender;
    BackupFolder m_folder;
    BackupSummary m_summary;
};

}  // namespace korvex::cli
