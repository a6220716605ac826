#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cat/CatLink.h"
#include "cat/PhaseFlag.h"

namespace korvex {

inline const ItemWords menuItemsWritten = {"item", "items", true};

/// Writes lines into the radio's menu: one every 100 ms, each followed by CR LF, without waiting for anything; the
/// radio says nothing to a set that it takes. An empty line is CR LF alone, which the radio passes over.
///
/// At the answered pace (CatLink) each line is sent with the question for its item behind it, and the answer confirms
/// it:
///
///     EX0421;EX042;  ->  EX0421;
///
/// Behind the item that sets the line's speed nothing is asked. Items that the radio is known to refuse (CatLink) are
/// left out, and named in the outcome.
class MenuWriter {
public:
    explicit MenuWriter(CatLink& link) : m_link(link) {}

    /// Wire text without line ends. Another operation that has the line is asked about first.
    void write(std::vector<std::string> lines);
    /// The same as the Menu Manager does it: the port is closed at the end, when the last line has left.
    void writeAndClose(std::vector<std::string> lines);

    bool running() const { return m_operation && m_operation->running() && !m_operation->finished(); }
    Signal<const Outcome&> ended;

private:
    void begin(OperationPlan plan, std::vector<std::string> lines);
    void work();
    void sendNext();
    void show(const std::string& line, const std::string& sent);
    void converse();
    void finish();
    void finishAndClose();

    CatLink& m_link;
    std::unique_ptr<Operation> m_operation;
    PhaseFlag m_phase;
    PhaseFlag m_closingPhase;
    bool m_closes = false;
    std::vector<std::string> m_lines;
};

}  // namespace korvex
