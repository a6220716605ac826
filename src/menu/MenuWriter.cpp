#include "menu/MenuWriter.h"

#include <algorithm>
#include <utility>

#include "base/CodePage.h"
#include "base/Lines.h"
#include "menu/MenuCommandTable.h"
#include "menu/MenuFile.h"

namespace korvex {

namespace {

constexpr int intervalMs = 50;  // of which every second tick works

Exchange exchangeOf(const std::string& line, MenuNumbers numbers) {
    constexpr std::size_t headLength = 5;  // EX042
    const std::string head = line.substr(0, headLength);
    const CatSetting setting = catSetting(line, numbers);
    const std::string query = setting == CatSetting::Rate ? "" : head + ";";
    const auto confirms = [line](std::string_view answer) { return answer == line; };
    return {itemInLine(line), query, {head, headLength + 2}, line, setting == CatSetting::Rts, confirms};
}

}  // namespace

void MenuWriter::write(std::vector<std::string> lines) {
    m_closes = false;
    begin({ActiveOperation::MenuWrite, "Writing the menu", 0, menuItemsWritten, "Restore Menu to FT2000", 155},
          std::move(lines));
}

void MenuWriter::writeAndClose(std::vector<std::string> lines) {
    m_closes = true;
    begin({ActiveOperation::MenuWrite, "Writing the menu settings", 0, menuItemsWritten,
           "Restore Menu Settings to FT-2000", 155, 1},
          std::move(lines));
}

/// What the radio is known to refuse is named, and not sent.
void MenuWriter::begin(OperationPlan plan, std::vector<std::string> lines) {
    std::vector<std::string> leftOut;
    std::erase_if(lines, [&](const std::string& line) {
        const bool refused = !line.empty() && m_link.known().refuses(itemInLine(line));
        if (refused) leftOut.push_back(itemInLine(line));
        return refused;
    });
    plan.items = static_cast<int>(lines.size());
    auto operation = m_link.begin(std::move(plan));
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_lines = std::move(lines);
    for (auto& item : leftOut) m_operation->note(&Outcome::leftOut, std::move(item));
    m_link.clearTraffic();
    m_link.panels().Error = "";
    m_operation->expect({"EX"});
    m_operation->onEnd([this](const Outcome& outcome) { ended.emit(outcome); });
    if (m_link.pace == Pace::Answered) return converse();
    m_operation->every(intervalMs, m_closes ? m_closingPhase : m_phase, [this] { work(); });
}

void MenuWriter::work() {
    const auto allSent = [this] { return static_cast<std::size_t>(m_operation->item()) >= m_lines.size(); };
    if (!allSent()) {
        sendNext();
        if (!m_closes && allSent()) finish();
    } else if (!m_closes) {
        finish();
    } else if (m_link.port().OutBufferCount() == 0) {
        finishAndClose();  // closing drops what has not left yet, so it waits for that
    }
}

void MenuWriter::sendNext() {
    const std::string& line = m_lines[static_cast<std::size_t>(m_operation->item())];
    const std::string sent = line + std::string(crLf);
    m_operation->write(itemInLine(line), sent);
    show(line, sent);
}

void MenuWriter::show(const std::string& line, const std::string& sent) {
    if (!m_closes) m_link.lineWritten = utf8FromWire(line);
    m_link.panels().Error = "Writing Menu " + itemInLine(line);
    m_link.sent().append(sent);
    m_link.received().append(line + "  ");
    const int item = m_operation->item() + 1;
    m_operation->step(item, item + m_operation->plan().value);
}

void MenuWriter::converse() {
    const auto next = [this]() -> std::optional<Exchange> {
        while (static_cast<std::size_t>(m_operation->item()) < m_lines.size()) {
            const std::string& line = m_lines[static_cast<std::size_t>(m_operation->item())];
            show(line, line + std::string(crLf));
            if (!line.empty()) return exchangeOf(line, menuNumbersOf(m_link.known()));
        }
        return std::nullopt;
    };
    const auto done = [this](const Outcome& outcome) {
        if (outcome.wentThrough()) m_link.showTerminated();
        m_operation->end(outcome);
        if (m_closes && outcome.wentThrough()) m_link.closePort();
    };
    m_operation->converse({next, [](const Reply&) {}, done});
}

void MenuWriter::finish() {
    m_phase.invert();  // the next writing begins with the half step that works
    m_link.showTerminated();
    const auto empty = std::count(m_lines.begin(), m_lines.end(), "");
    m_operation->finish(static_cast<int>(m_lines.size()) - static_cast<int>(empty));
}

void MenuWriter::finishAndClose() {
    m_link.panels().Error = "Terminated";
    m_link.lineWritten = "Terminated";
    m_link.received().append(crLf);
    // Whoever is told begins nothing on a port that is about to go.
    const auto empty = std::count(m_lines.begin(), m_lines.end(), "");
    m_operation->finish(static_cast<int>(m_lines.size()) - static_cast<int>(empty));
    m_link.closePort();
}

}  // namespace korvex
