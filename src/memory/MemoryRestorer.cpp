#include "memory/MemoryRestorer.h"

#include <algorithm>
#include <utility>

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/NumberText.h"
#include "cat/FileToRestore.h"
#include "memory/MemoryExchange.h"
#include "memory/MemoryFile.h"
#include "memory/MemoryList.h"
#include "memory/MemoryRecord.h"

namespace korvex {

namespace {

const std::string title = "Restore Memories to FT2000";
const ItemWords words = {"memory", "memories", true};

Result<std::vector<std::string>> linesToRestore(const std::string& content) {
    auto lines = parseMemoryFile(content);
    if (lines && lines->empty()) return RuntimeError{errors::TypeMismatch, "There is no memory in it"};
    return lines;
}

}  // namespace

MemoryRestorer::MemoryRestorer(CatLink& link, OwnersFiles& files, MemoryTable& table)
    : m_link(link), m_files(files), m_table(table) {}

void MemoryRestorer::mnu_restMem_Click() {
    auto chosen =
        askForLines(m_files, m_link.panels(), {{"Restore Memory to FT-2000", "mem"}, "memory", title, linesToRestore});
    if (chosen.kind == Outcome::Kind::Cancelled) m_link.panels().Error = "";
    if (chosen.kind != Outcome::Kind::Done) return ended.emit(chosen.kind);
    m_table = {};
    int slot = 0;
    for (const auto& line : chosen.lines) m_table.set(++slot, line);
    write(std::move(chosen.lines));
}

void MemoryRestorer::write(std::vector<std::string> lines) {
    const int count = static_cast<int>(lines.size());
    auto operation = m_link.begin({ActiveOperation::RestoreFromFile, "Writing the memories", count, words, title});
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_lines = std::move(lines);
    m_link.clearTraffic();
    m_operation->expect({"MR"});
    m_operation->onEnd([this](const Outcome& outcome) {
        m_link.report(outcome, words);
        tellWhatTheRadioHas(outcome);
        ended.emit(outcome);
    });
    if (m_link.pace == Pace::Answered) return converse();
    m_operation->every(50, m_phase, [this] { writeNext(); });
}

void MemoryRestorer::writeNext() {
    const std::string& line = m_lines.at(static_cast<std::size_t>(m_operation->item()));
    m_operation->write(std::string(memoryFieldIn(line, MemoryField::Channel)),
                       memoryWriteCommand(line) + std::string(crLf));
    show(line);
    if (static_cast<std::size_t>(m_operation->item()) == m_lines.size()) finish();
}

void MemoryRestorer::show(const std::string& line) {
    const std::string channel(memoryFieldIn(line, MemoryField::Channel));
    m_link.lineWritten = utf8FromWire(line);
    m_link.panels().Error = "Writing Memory " + channel;
    m_link.sent().append(memoryWriteCommand(line) + std::string(crLf));
    m_link.received().append(line + std::string(crLf));
    m_operation->step(m_operation->item() + 1, parseWhole(channel).value_or(0));
}

void MemoryRestorer::converse() {
    const auto next = [this]() -> std::optional<Exchange> {
        const auto done = static_cast<std::size_t>(m_operation->item());
        if (done == m_lines.size()) return std::nullopt;
        show(m_lines[done]);
        return memoryWriting(memoryWriteCommand(m_lines[done]));
    };
    const auto done = [this](const Outcome& outcome) {
        if (outcome.wentThrough()) m_link.showTerminated();
        m_operation->end(outcome);
    };
    m_operation->converse({next, [](const Reply&) {}, done});
}

void MemoryRestorer::tellWhatTheRadioHas(const Outcome& outcome) {
    const auto names = [](const std::vector<std::string>& items, const std::string& name) {
        return std::find(items.begin(), items.end(), name) != items.end();
    };
    std::map<int, std::optional<MemoryRecord>> has;
    const auto sent = std::min(static_cast<std::size_t>(m_operation->item()), m_lines.size());
    for (std::size_t i = 0; i < sent; ++i) {
        const auto record = parseMemoryString(m_lines[i]);
        const std::string name(memoryFieldIn(m_lines[i], MemoryField::Channel));
        const int row = memoryListRow(name);
        if (row == 0 || names(outcome.refused, name)) continue;
        const bool isUnderWay = i + 1 == sent && !outcome.wentThrough();
        const bool isCertain = !isUnderWay && !names(outcome.different, name) && !names(outcome.unconfirmed, name);
        has[row] = isCertain ? record : std::nullopt;
    }
    wrote.emit(has);
}

void MemoryRestorer::finish() {
    m_phase.invert();  // the next writing begins with the half step that works
    m_link.showTerminated();
    m_operation->finish(static_cast<int>(m_lines.size()));
}

}  // namespace korvex
