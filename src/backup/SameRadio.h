#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "backup/BackupJournal.h"
#include "cat/CatLink.h"

namespace korvex {

/// Asks a radio once more for a few of the answers that an unfinished backup has, to see whether it is the same. The
/// band stack is left alone: no question brings back one of its registers.
class SameRadio {
public:
    explicit SameRadio(CatLink& link) : m_link(link) {}

    /// `ended` tells the end, at once when there is nothing to ask, or no line.
    void look(const ReadSoFar& before);
    /// Gives the line back without a word.
    void stop() { m_operation.reset(); }
    /// The answers that are other ones now: "menu 042".
    const std::vector<std::string>& different() const { return m_different; }

    Signal<const Outcome&> ended;

private:
    struct Sample {
        std::string name;
        ReadSoFar::Answer before;
    };
    void choose(const ReadSoFar& before);
    void compare(const Sample& sample, const Reply& reply);

    CatLink& m_link;
    std::vector<Sample> m_samples;
    std::size_t m_asked = 0;
    std::vector<std::string> m_different;
    std::unique_ptr<Operation> m_operation;
};

}  // namespace korvex
