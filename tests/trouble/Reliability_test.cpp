#include <algorithm>
#include <gtest/gtest.h>

#include "TroubleBench.h"
#include "doctor/Beliefs.h"

namespace korvex {
namespace {

std::string nameOf(std::optional<Outcome::Kind> end) {
    if (!end) return "";
    switch (*end) {
        case Outcome::Kind::Done: return "done";
        case Outcome::Kind::Refused: return "refused";
        case Outcome::Kind::NoAnswer: return "no answer";
        case Outcome::Kind::PortClosed: return "port closed";
        case Outcome::Kind::Cancelled: return "cancelled";
        case Outcome::Kind::FileFailed: break;
    }
    return "file failed";
}

/// One operation under one trouble, and everything that must hold whatever the trouble is.
class Cell {
public:
    Cell(const TriedOperation& operation, const Trouble& trouble, Pace pace)
        : m_operation(operation), m_trouble(trouble), m_usual(healthy(operation, pace)), m_bench(pace) {}

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
        m_second = secondOutcome();
        comeToRest();
        expectWholeFile(isDone);
        worksAgain();
        return text;
    }

    /// How the operation that was started in the middle of this one ended; after `outcome`.
    const std::string& second() const { return m_second; }

private:
    /// Done is what ended so and brought about what it does on a quiet line.
    std::string secondOutcome() {
        if (m_trouble.name != secondOperationTrouble) return "";
        const auto& second = secondOperation(m_operation);
        const std::string end = nameOf(m_bench.endOf(second));
        const auto found = linesOf(second.result(m_bench));
        m_bench.openPort();
        second.start(m_bench);
        m_bench.clock.advanceUntil([this] { return !m_bench.anythingRuns(); }, m_patience);
        return end == "done" ? end + shareOf(linesOf(second.result(m_bench)), found, true) : end;
    }

    /// The operation and whatever else was started come to an end, by themselves or with the port.
    std::string ending() {
        const auto quiet = [this] { return !m_bench.anythingRuns(); };
        m_bench.clock.advance(m_usual.duration / 2 + 10);
        const bool endsByItself = m_bench.clock.advanceUntil(quiet, m_patience);
        if (!endsByItself) m_bench.closePorts();
        m_bench.settle();
        return endsByItself ? nameOf(m_bench.endOf(m_operation)) : "waits";
    }

    /// How much of what the operation is for has come through, when that is not all or nothing.
    std::string share(bool isDone) { return shareOf(m_usual.facts, linesOf(m_operation.result(m_bench)), isDone); }

    void comeToRest() {
        expectSilence();
        EXPECT_LE(m_bench.msgBox.shown.size(), 4U);
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
        // A second operation may have written it, or the person has kept what was read.
        EXPECT_TRUE(isDone || m_trouble.name == "a second operation" || keptIncomplete());
        EXPECT_TRUE(content.empty() || content.ends_with("\r\n"));
        if (m_operation.name == "menu read") {
            EXPECT_EQ(linesOf(content).size(), 149U);
        }
    }

    bool keptIncomplete() const {
        const auto& boxes = m_bench.msgBox.shown;
        return std::any_of(boxes.begin(), boxes.end(), [](const MsgBoxRequest& box) {
            return box.text.find("marked as incomplete?") != std::string::npos;
        });
    }

    /// The trouble is over: the same operation does what it always does.
    void worksAgain() {
        m_bench.fileDialog.whileShown = m_answersDialogs;
        m_bench.ports.plugIn();
        m_bench.ports.faults() = {};
        m_bench.ports.radio().quirks = {};
        m_bench.ports.cable.line.fixedAnswers.clear();
        m_bench.ports.radio().state = ownersRadio();
        m_bench.openPort();
        EXPECT_NE(m_bench.program.link.received().text().find("Communication OK"), std::string::npos);
        expectSilence();  // nothing goes on where it was cut short
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
    const Healthy& m_usual;
    const std::int64_t m_patience = 6 * healthy(m_operation).duration + 60'000;
    TroubleBench m_bench;
    std::string m_second;
    std::function<void()> m_answersDialogs = m_bench.fileDialog.whileShown;
};

/// What became of every operation, and behind it the row of those that were started in the middle of another.
using Rows = std::vector<std::vector<std::string>>;

Rows tableFound(const std::string& head, Pace pace, const std::vector<Trouble>& all = troubles()) {
    Rows rows(1, {head});
    for (const auto& operation : operations()) rows.front().emplace_back(operation.name);
    for (const auto& trouble : all) {
        std::vector<std::string> row = {std::string(trouble.name)};
        std::vector<std::string> secondRow = {"... and how that one ends"};
        for (const auto& operation : operations()) {
            SCOPED_TRACE(std::string(operation.name) + ", " + std::string(trouble.name));
            Cell cell(operation, trouble, pace);
            row.push_back(cell.outcome());
            secondRow.push_back(cell.second());
        }
        rows.push_back(row);
        if (trouble.name == secondOperationTrouble) rows.push_back(secondRow);
    }
    return rows;
}

/// The better an outcome, the higher; what is broken off from outside says nothing.
double worth(const std::string& outcome) {
    if (outcome.starts_with("port closed") || outcome.starts_with("cancelled")) return 0;
    const auto slash = outcome.find('/');
    const auto begin = outcome.rfind(' ', slash);
    const double share = slash == std::string::npos || begin == std::string::npos
                             ? 1
                             : std::stod(outcome.substr(begin)) / std::stod(outcome.substr(slash + 1));
    const double told = outcome.ends_with(", told") ? 0.001 : 0;
    if (outcome.starts_with("done")) return share == 1 ? 2 : share + told;
    return outcome.starts_with("waits") ? 0 : 0.5;  // it ends, and says why
}

TEST(Reliability, EveryOperationUnderEveryTrouble) {
    const Rows usual = tableFound("trouble", Pace::Every100Ms);
    const Rows fast = tableFound("fast transfers", Pace::Answered);
    expectOnThePage("| trouble", markdown(usual));
    expectOnThePage("| fast transfers", markdown(fast));
    for (std::size_t row = 1; row < usual.size(); ++row) {
        for (std::size_t i = 1; i < usual[row].size(); ++i) {
            // It is put back to where it stood when it was begun anew: in the middle of the first walk.
            if (usual[row][0] == "started again" && usual[0][i] == "band stack write") continue;
            constexpr double oneItem = 0.12;  // where half of the commands are, a question may stand
            EXPECT_GE(worth(fast[row][i]) + oneItem, worth(usual[row][i]))
                << usual[0][i] << ", " << usual[row][0] << ": " << fast[row][i] << " instead of " << usual[row][i];
        }
    }
}

/// The table is what an owner of such a radio has to know: nothing that is not told may be missing in it.
TEST(Reliability, EveryOperationWithARadioOtherwiseThanBelieved) {
    const Rows usual = tableFound("otherwise than believed", Pace::Every100Ms, reversedBeliefs());
    const Rows fast = tableFound("otherwise, fast transfers", Pace::Answered, reversedBeliefs());
    expectOnThePage("| otherwise than believed", markdown(usual));
    expectOnThePage("| otherwise, fast transfers", markdown(fast));
}

TEST(Reliability, WhatIsBelievedStandsOnThePage) {
    Rows rows = {{"Korvex believes", "because of", "asked with", "what stands on it"}};
    for (const auto& belief : beliefs()) {
        rows.push_back({std::string(belief.sentence), std::string(belief.source),
                        std::string(belief.test.empty() ? "nothing but setting something" : belief.test),
                        std::string(belief.depends)});
    }
    expectOnThePage("| Korvex believes", markdown(rows));
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
            const auto atRest = [&bench] {
                return !bench.anythingRuns() && !bench.program.eqWindow.exchange().other().reading();
            };
            if (!bench.clock.advanceUntil(atRest, 200'000)) bench.closePorts();
            const int heard = bench.heard();
            bench.clock.advance(5'000);
            EXPECT_LE(bench.heard(), heard + 2);  // the last that was sent may still have been on the line
            EXPECT_EQ(bench.whatIsWrong(), "");
        }
    }
}

}  // namespace
}  // namespace korvex
