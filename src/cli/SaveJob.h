#pragma once

#include "cli/Job.h"

namespace korvex::cli {

/// save KIND FILE.
class SaveJob : public Job {
public:
    explicit SaveJob(Workshop workshop) : m_workshop(std::move(workshop)) {}

    std::optional<ExitCode> prepare() override;
    std::vector<Step> steps() override;
    ExitCode conclude() override;

private:
    const KindReading& reading() const { return m_workshop.program.transfers.reading(*m_kind); }
    bool wouldEmptyTarget() const;

    Workshop m_workshop;
    const FileKind* m_kind = nullptr;
    std::string m_read;
};

}  // namespace korvex::cli
