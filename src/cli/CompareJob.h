#pragma once

#include "cli/Job.h"
#include "cli/ScratchFolder.h"

namespace korvex::cli {

/// compare A B: two files of a kind, or a file and the radio.
class CompareJob : public Job {
public:
    explicit CompareJob(Workshop workshop) : m_workshop(std::move(workshop)) {}

    std::optional<ExitCode> prepare() override;
    std::vector<Step> steps() override;
    ExitCode conclude() override;

private:
    struct Side {
        std::string file;
        bool radio = false;
        DataItems items;
    };
    Side makeSide(const std::string& word) const;
    const FileKind* chosenKind() const;
    /// The items of the sides that are files, or that the radio has been read into.
    bool takeSides(bool ofRadio);

    Workshop m_workshop;
    ScratchFolder m_scratch;
    const FileKind* m_kind = nullptr;
    Side m_left;
    Side m_right;
};

}  // namespace korvex::cli
