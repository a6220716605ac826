#include "memory/MemoryListWriter.h"

#include <algorithm>

#include "base/Lines.h"
#include "base/NumberText.h"
#include "memory/KeptCaption.h"
#include "memory/MemoryExchange.h"
#include "memory/MemoryRecord.h"

namespace korvex {

namespace {

const ItemWords rowWords = {"row", "rows", true};

}  // namespace

std::optional<std::string> memoryListCommand(const MemoryList& list, int row) {
    MemoryRecord record = list.channelFields(row);
    if (memoryListRow(record[MemoryField::Channel]) != row) return std::nullopt;
    if (parseWhole(record[MemoryField::Frequency]).value_or(0) <= 0) return std::nullopt;
    record[MemoryField::Channel] = channelText(row);
    std::string command = memoryWriteCommand(record);
    // A field that came damaged would make some other command of it.
    if (!hasMemoryShape(command)) return std::nullopt;
    return command;
}

void MemoryListWriter::mnu_MemRestoreTOFT2000_Click() {
    if (!m_link.PortOpen()) return;
    auto operation = m_link.begin({ActiveOperation::WriteListToRadio, "Writing the memory list", MemoryList::rows,
                                   rowWords, keptCaption(m_link.progress(), "Load Memory List in to FT-2000")});
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_link.received().clear();
    m_commands.clear();
    for (int row = 1; row <= MemoryList::rows; ++row) m_commands.push_back(memoryListCommand(m_list, row).value_or(""));
    m_operation->expect({"MR"});
    m_operation->onEnd([this](const Outcome& outcome) { onEnd(outcome); });
    if (m_link.pace == Pace::Answered) return converse();
    m_operation->every(250, m_phase, [this] { writeNext(); });
}

void MemoryListWriter::writeNext() {
    const int row = m_operation->item() + 1;
    const std::string& command = m_commands.at(static_cast<std::size_t>(row - 1));
    if (!command.empty()) m_operation->write(channelText(row), command + std::string(crLf));
    show(row);
    if (row == MemoryList::rows) finish();
}

void MemoryListWriter::show(int row) {
    const std::string& command = m_commands.at(static_cast<std::size_t>(row - 1));
    if (!command.empty()) {
        m_link.received().append(command + std::string(crLf));
        m_link.sent().append(command + std::string(crLf));
    }
    m_link.panels().Error = "Writing Memory " + std::to_string(row);
    m_operation->step(row);
}

void MemoryListWriter::converse() {
    const auto next = [this]() -> std::optional<Exchange> {
        while (m_operation->item() < MemoryList::rows) {
            show(m_operation->item() + 1);
            const std::string& command = m_commands.at(static_cast<std::size_t>(m_operation->item() - 1));
            if (!command.empty()) return memoryWriting(command);
        }
        return std::nullopt;
    };
    const auto done = [this](const Outcome& outcome) {
        if (outcome.wentThrough()) m_link.showTerminated();
        m_operation->end(outcome);
    };
    m_operation->converse({next, [](const Reply&) {}, done});
}

void MemoryListWriter::finish() {
    m_phase.invert();  // the next writing begins with the half step that works
    m_link.showTerminated();
    const auto unsent = std::count(m_commands.begin(), m_commands.end(), "");
    m_operation->finish(MemoryList::rows - static_cast<int>(unsent));
}

std::map<int, MemoryRecord> MemoryListWriter::taken(const Outcome& outcome) const {
    std::map<int, MemoryRecord> taken;
    const int last = !m_operation ? 0 : outcome.wentThrough() ? MemoryList::rows : m_operation->item() - 1;
    const auto names = [](const std::vector<std::string>& items, int row) {
        return std::find(items.begin(), items.end(), channelText(row)) != items.end();
    };
    for (int row = 1; row <= last; ++row) {
        const auto record = parseMemoryString(m_commands.at(static_cast<std::size_t>(row - 1)));
        const bool failed =
            names(outcome.refused, row) || names(outcome.different, row) || names(outcome.unconfirmed, row);
        if (record && !failed) taken[row] = *record;
    }
    return taken;
}

void MemoryListWriter::onEnd(const Outcome& outcome) {
    if (outcome.kind == Outcome::Kind::PortClosed) {
        constexpr std::string_view failure = "Failure Port ";
        m_link.sent().append(std::string(failure) + std::string(crLf));
        m_link.panels().Error = std::string(failure);
    } else {
        m_link.report(outcome, outcome.wentThrough() ? ItemWords{"memory", "memories", true} : rowWords);
    }
    ended.emit(outcome);
}

}  // namespace korvex
