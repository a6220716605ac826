#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cat/CatLink.h"
#include "cat/PhaseFlag.h"

namespace korvex {

/// Writes lines to the radio as the Menu Manager does it: one every 100 ms, each followed by CR LF, and the port closed
/// at the end, when the last of them has left.
class ManagerWriter {
public:
    explicit ManagerWriter(CatLink& link) : m_link(link) {}

    /// Wire text without line ends. Another operation that has the line is asked about first.
    void write(std::vector<std::string> lines);

    bool running() const { return m_operation && m_operation->running(); }
    Signal<const Outcome&> ended;

private:
    void work();
    void sendNext();
    void finish();

    CatLink& m_link;
    std::unique_ptr<Operation> m_operation;
    PhaseFlag m_phase;
    std::vector<std::string> m_lines;
};

}  // namespace korvex
