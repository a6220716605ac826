#pragma once

#include "cli/Job.h"

namespace korvex::cli {

/// share: other programs use the radio until a signal ends it.
class ShareJob : public Job {
public:
    explicit ShareJob(Workshop workshop);

    std::optional<ExitCode> prepare() override;
    std::vector<Step> steps() override;
    bool goesOnUntilInterrupted() const override { return true; }

private:
    Failure openDoors();

    Workshop m_workshop;
    Signal<const Outcome&> m_ended;
    Connections m_connections;
};

}  // namespace korvex::cli
