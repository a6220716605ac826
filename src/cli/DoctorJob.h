#pragma once

#include "cli/Job.h"

namespace korvex::cli {

/// doctor: a report about the radio, on standard output; what follows from it, on standard error.
class DoctorJob : public Job {
public:
    explicit DoctorJob(Workshop workshop) : m_workshop(std::move(workshop)) {}

    std::optional<ExitCode> prepare() override { return std::nullopt; }
    std::vector<Step> steps() override;
    ExitCode conclude() override;
    void abandon() override;
    bool looksForRadio() const override { return true; }

private:
    Step walkStep();
    RadioCheck& check() const { return m_workshop.program.radioCheck; }

    Workshop m_workshop;
};

}  // namespace korvex::cli
