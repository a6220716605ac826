#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>

#include "TroubleBench.h"

namespace korvex {
namespace {

std::string nameOf(std::optional<TransferEnd> end) {
    if (!end) return "";
    switch (*end) {
        case TransferEnd::Done: return "done";
        case TransferEnd::Refused: return "refused";
        case TransferEnd::NoAnswer: return "no answer";
        case TransferEnd::PortClosed: return "port closed";
        case TransferEnd::Cancelled: return "cancelled";
        case TransferEnd::FileFailed: break;
    }
    return "file failed";
}

/// One operation under one trouble, and everything that must hold whatever the trouble is.
class Cell {
public:
    Cell(const TriedOperation& operation, const Trouble& trouble) : m_operation(operation), m_trouble(trouble) {}

    std::string outcome() {
        m_bench.openPort();
        m_operation.prepare(m_bench);
        m_trouble.arrange(m_bench, m_operation, m_usual);
        m_bench.ends.clear();
        m_operation.start(m_bench);
        const bool started = m_operation.running(m_bench);
        std::string text = ending();
        if (text.empty()) text = started ? "gave way" : "not started";
        const bool isDone = text == "done";
        text += share(isDone);
        if (m_operation.told(m_bench) && (text != "done") && (isDone || text.starts_with("waits"))) text += ", told";
        comeToRest();
        expectWholeFile(isDone);
        worksAgain();
        return text;
    }

private:
    /// The operation and whatever else was started come to an end, by themselves or with the port.
    std::string ending() {
        const auto quiet = [this] { return !m_bench.anythingRuns(); };
        m_bench.clock.advance(m_usual.duration / 2 + 10);
        const bool endsByItself = m_bench.clock.advanceUntil(quiet, 6 * m_usual.duration + 60'000);
        if (!endsByItself) m_bench.closePorts();
        m_bench.settle();
        return endsByItself ? nameOf(m_bench.endOf(m_operation)) : "waits";
    }

    /// How much of what the operation is for has come through, when that is not all or nothing.
    std::string share(bool isDone) {
        const auto now = linesOf(m_operation.result(m_bench));
        const auto there = std::count_if(m_usual.facts.begin(), m_usual.facts.end(), [&](const std::string& fact) {
            return std::find(now.begin(), now.end(), fact) != now.end();
        });
        const auto all = static_cast<std::ptrdiff_t>(m_usual.facts.size());
        if (there == (isDone ? all : 0)) return "";
        return " " + std::to_string(there) + "/" + std::to_string(all);
    }

    void comeToRest() {
        expectSilence();
        EXPECT_LE(m_bench.msgBox.shown.size(), 2U);
        m_bench.closePorts();
        expectSilence();
    }

    void expectSilence() {
        const int heard = m_bench.heard();
        m_bench.clock.advance(5'000);
        EXPECT_EQ(m_bench.heard(), heard) << "sends though nothing goes on";
        EXPECT_EQ(m_bench.whatIsWrong(), "");
    }

    void expectWholeFile(bool isDone) {
        const std::string content = fakes::fileContent(m_bench.target);
        if (content == TroubleBench::oldContent) return;
        EXPECT_TRUE(isDone || m_trouble.name == "a second operation");  // which may have written it
        EXPECT_TRUE(content.empty() || content.ends_with("\r\n"));
        if (m_operation.name == "menu read") {
            EXPECT_EQ(linesOf(content).size(), 149U);
        }
    }

    /// The trouble is over: the same operation does what it always does.
    void worksAgain() {
        m_bench.fileDialog.whileShown = m_answersDialogs;
        m_bench.ports.plugIn();
        m_bench.ports.faults() = {};
        m_bench.ports.radio().state = ownersRadio();
        const bool waitsForPort = m_bench.program.bandStackWindow.writer().running();
        m_bench.openPort();
        EXPECT_NE(m_bench.program.link.received().text().find("Communication OK"), std::string::npos);
        if (!waitsForPort) expectSilence();  // nothing goes on where it was cut short
        m_operation.prepare(m_bench);
        m_bench.ends.clear();
        m_operation.start(m_bench);
        EXPECT_TRUE(m_bench.clock.advanceUntil([this] { return !m_bench.anythingRuns(); }, m_usual.duration + 500));
        m_bench.settle();
        EXPECT_EQ(nameOf(m_bench.endOf(m_operation)) + share(true), "done");
        EXPECT_EQ(m_bench.whatIsWrong(), "");
    }

    const TriedOperation& m_operation;
    const Trouble& m_trouble;
    const Healthy& m_usual = healthy(m_operation);
    TroubleBench m_bench;
    std::function<void()> m_answersDialogs = m_bench.fileDialog.whileShown;
};

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size()), ' ');
    return text;
}

/// Rows of cells as a Markdown table whose columns stand below one another.
std::string markdown(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths(rows.front().size());
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
    }
    std::string text;
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) text += "| " + padded(row[i], widths[i]) + " ";
        text += "|\n";
        if (&row != &rows.front()) continue;
        for (const auto width : widths) text += "|" + std::string(width + 2, '-');
        text += "|\n";
    }
    return text;
}

std::string tableFound() {
    std::vector<std::vector<std::string>> rows(1, {"trouble"});
    for (const auto& operation : operations()) rows.front().emplace_back(operation.name);
    for (const auto& trouble : troubles()) {
        rows.push_back({std::string(trouble.name)});
        for (const auto& operation : operations()) {
            SCOPED_TRACE(std::string(operation.name) + ", " + std::string(trouble.name));
            rows.back().push_back(Cell(operation, trouble).outcome());
        }
    }
    return markdown(rows);
}

/// The page that tells owners what to expect holds the table that this test finds; KORVEX_WRITE_RELIABILITY=1 writes
/// it.
TEST(Reliability, EveryOperationUnderEveryTrouble) {
    const std::string found = tableFound();
    std::cout << found;
    const std::string page = std::string(SOURCE_DIR) + "/docs/RELIABILITY.md";
    std::string text = fakes::fileContent(page);
    const auto start = text.find("| trouble");
    ASSERT_NE(start, std::string::npos);
    const auto end = text.find("\n\n", start) + 1;
    if (std::getenv("KORVEX_WRITE_RELIABILITY") != nullptr) {
        fakes::writeFile(page, text.replace(start, end - start, found));
        return;
    }
    EXPECT_EQ(text.substr(start, end - start), found)
        << "docs/RELIABILITY.md tells something else; KORVEX_WRITE_RELIABILITY=1 writes it anew";
}

/// Whatever is started while whatever else runs, both come to an end and each works afterwards. The program may also go
/// away altogether at that moment.
TEST(Reliability, AnyOperationMayBeStartedInTheMiddleOfAnyOther) {
    for (const auto& first : operations()) {
        for (const auto& second : operations()) {
            SCOPED_TRACE(std::string(first.name) + ", then " + std::string(second.name));
            TroubleBench bench;
            bench.openPort();
            first.prepare(bench);
            second.prepare(bench);
            first.start(bench);
            bench.clock.advance(healthy(first).duration / 2 + 17);
            second.start(bench);
            bench.clock.advance(healthy(second).duration / 2);
            TroubleBench leaves;
            leaves.openPort();
            first.start(leaves);
            leaves.clock.advance(healthy(first).duration / 2 + 17);
            if (!bench.clock.advanceUntil([&] { return !bench.anythingRuns(); }, 200'000)) bench.closePorts();
            const int heard = bench.heard();
            bench.clock.advance(5'000);
            EXPECT_LE(bench.heard(), heard + 2);  // the last that was sent may still have been on the line
            EXPECT_EQ(bench.whatIsWrong(), "");
        }
    }
}

}  // namespace
}  // namespace korvex
