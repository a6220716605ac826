#pragma once

#include "cli/Job.h"

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
        bool radio = false;  ///< and no file
        DataItems items = {};
    };
    static Side makeSide(const std::string& word) { return {word, word == "radio"}; }
    const FileKind* chosenKind() const;
    /// Not two radios, and what can be read once is read once.
    bool areComparable() const;
    bool takeFile(Side& side);
    bool withRadio() const { return m_left.radio || m_right.radio; }

    Workshop m_workshop;
    const FileKind* m_kind = nullptr;
    Side m_left;
    Side m_right;
    std::string m_read;  // from the radio
};

}  // namespace korvex::cli
