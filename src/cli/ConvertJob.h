#pragma once

#include <map>
#include <string>
#include <vector>

#include "cli/Job.h"

namespace korvex::cli {

/// convert FILE OTHER: data files to tables for spreadsheets and CHIRP, and back. Needs no radio.
class ConvertJob : public Job {
public:
    explicit ConvertJob(Workshop workshop) : m_workshop(std::move(workshop)) {}

    std::optional<ExitCode> prepare() override;
    std::vector<Step> steps() override { return {}; }

private:
    Result<std::string> converted(const std::string& content);
    Result<std::string> fromCsv(const std::string& kind, const std::string& csv);
    Result<std::string> toCsv(const std::string& kind, const std::string& content);
    Result<std::string> toOtherKind(const std::string& from, const std::string& to, const std::string& content);
    Result<std::string> toChirp(const std::string& kind, const std::string& content);

    Workshop m_workshop;
    std::vector<std::string> m_losses;
};

}  // namespace korvex::cli
