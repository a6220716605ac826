#pragma once

#include "cli/Job.h"

namespace korvex::cli {

/// restore KIND FILE and restore-all DIR. The list in a backup's folder is there for its remarks: its channels are
/// those of the memory file, which is written.
class RestoreJob : public Job {
public:
    explicit RestoreJob(Workshop workshop) : m_workshop(std::move(workshop)), m_restore(m_workshop.program.restore) {}

    std::optional<ExitCode> prepare() override;
    std::vector<Step> steps() override;
    ExitCode conclude() override;
    void abandon() override;

private:
    bool isWhole() const { return m_workshop.command.verb == Command::Verb::RestoreAll; }
    bool takeFiles();
    std::string safetyFolder() const;
    void tellOfUnfinished(const std::string& folder) const;
    void onPlanned();

    Workshop m_workshop;
    Restore& m_restore;
    Connection m_planned;
};

}  // namespace korvex::cli
