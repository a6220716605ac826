#pragma once

#include "cli/Job.h"
#include "cli/MenuRestoreSteps.h"

namespace korvex::cli {

/// restore-all DIR: what a backup has saved goes back into the radio. The radio's own CAT settings are left out, or
/// come last of all, so that no item can cut the line that the others need. The list is in the folder for its remarks:
/// its channels are those of the memory file, which is written.
class RestoreAllJob : public Job {
public:
    explicit RestoreAllJob(Workshop workshop) : m_workshop(std::move(workshop)) {}

    std::optional<ExitCode> prepare() override;
    std::vector<Step> steps() override;
    ExitCode conclude() override;
    void abandon() override;

private:
    struct Part {
        const FileKind* kind;
        FileContent wanted;
        std::vector<std::string> refused;
        std::string found;  ///< read back
    };
    std::optional<ExitCode> takeParts();
    bool takePart(const std::string& name);
    bool takeMenu(const std::string& file, const DataItems& items);
    void addSteps(std::vector<Step>& steps, Part& part);

    Workshop m_workshop;
    MenuRestoreSteps m_menu;
    std::vector<Part> m_parts;
    std::vector<std::string> m_finished;
};

}  // namespace korvex::cli
