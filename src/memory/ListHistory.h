#pragma once

#include <optional>
#include <string>
#include <vector>

#include "memory/MemoryRow.h"

namespace korvex {

/// The steps in which the memory list has changed: what each was, and its rows before and after. Keeps the last 200.
class ListHistory {
public:
    struct Change {
        int row;
        MemoryRow before;
        MemoryRow after;
    };
    struct Step {
        std::string what;  ///< UTF-8, behind "Undo "
        std::vector<Change> changes;
    };

    /// A new step: what was undone cannot be made again.
    void note(Step step);
    /// The step that is to be taken back, or made again, now; nothing where there is none.
    std::optional<Step> undo();
    std::optional<Step> redo();

    /// What `undo` and `redo` would give; empty for nothing.
    std::string undoable() const { return m_made == 0 ? "" : m_steps[m_made - 1].what; }
    std::string redoable() const { return m_made == m_steps.size() ? "" : m_steps[m_made].what; }

private:
    std::vector<Step> m_steps;
    std::size_t m_made = 0;  // of the steps; those behind are undone
};

}  // namespace korvex
