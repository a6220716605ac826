// Every operation with a logger at the shared port that talks in between.

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <set>

#include "TroubleBench.h"
#include "fakes/WholeRestore.h"
#include "radio/StateText.h"
#include "share/ForeignText.h"
#include "share/ReadForms.h"

namespace korvex {
namespace {

/// A program at the shared port: what it says, one after the other and then anew.
struct Logger {
    std::string_view name;
    int everyMs;
    std::vector<std::string> words;
    bool tunes = false;     ///< it changes what the radio stands on
    bool vanishes = false;  ///< at every fifth turn, in the middle of a command
};

std::vector<std::string> noise() {
    std::mt19937 random(2'000);
    std::vector<std::string> all;
    for (int turn = 0; turn < 100; ++turn) {
        std::string& text = all.emplace_back();
        for (int i = 0; i < 64; ++i) text += i % 12 == 11 ? ';' : static_cast<char>(random() % 256);
    }
    return all;
}

const std::vector<std::string> sets = {"FA;", "FA14249990;", "BS05;", "MD03;", "FA014250000;", "EX04200;", "SV;"};

const std::vector<Logger>& loggers() {
    static const std::vector<Logger> all = {
        {"asks now and then", 200, {"IF;", "FA;", "ID;"}},
        {"asks without end", 20, {"FA;ID;MD0;SM0;FB;IF;VS;EX042;MR001;KM2;NB0;AN0;"}},
        {"sends noise", 50, noise()},
        {"tunes and changes bands", 130, sets, true},
        {"tries to transmit", 100, {"TX1;", "KY6;", "MX1;", "FA;", "TX2;", "VX1;", "AC002;"}},
        {"goes away and comes back", 150, {"AI;VS;FA;ID;"}, false, true},
    };
    return all;
}

/// One operation beside one logger.
class Beside {
public:
    Beside(const TriedOperation& operation, const Logger& logger, Pace pace,
           const LineTrouble& trouble = lineTroubles().front())
        : m_operation(operation),
          m_logger(logger),
          m_trouble(trouble),
          m_usual(healthy(operation, pace)),
          m_bench(pace) {
        m_bench.openPort();
        EXPECT_FALSE(m_bench.program.share.openTerminal(""));
        m_bench.clock.advance(2'000);
        m_operation.prepare(m_bench);
        m_found = radioText();
        m_turns = m_bench.clock.makeTimer();
        m_turns->setInterval(logger.everyMs);
        m_connections += m_turns->tick.connect([this] { takeTurn(); });
        m_connections += m_bench.program.link.went.connect([this](std::string_view wire) { watch(wire); });
    }

    std::string outcome() {
        const int heard = m_bench.heard();
        m_turns->setEnabled(!m_logger.tunes);
        m_bench.clock.advance(1'000);
        m_turns->setEnabled(true);
        takeTurn();
        arrangeTrouble(m_went + heard - m_bench.heard());
        m_operation.start(m_bench);
        const auto quiet = [this] { return !m_bench.anythingRuns(); };
        const bool ends = m_bench.clock.advanceUntil(quiet, 6 * m_usual.duration + 60'000);
        if (!ends) m_bench.closePorts();
        if (m_bench.program.eqWindow.isPortOpen()) m_bench.settle();
        const auto result = linesOf(m_operation.result(m_bench));
        std::string text = ends ? std::string(nameOf(m_bench.endOf(m_operation))) : "waits";
        text += shareOf(m_usual.facts, result, text == "done");
        if (&m_trouble != &lineTroubles().front()) return text;
        if (!m_logger.tunes && reads() && !leavesTheBand()) {
            EXPECT_EQ(fakes::whatDiffers(radioText(), m_found), std::set<std::string>()) << "not as it was found";
        }
        m_bench.clock.advance(3'000);
        m_turns->setEnabled(false);
        m_bench.clock.advance(3'000);
        expectItWorksAgain();
        return text;
    }
    /// What became of what the logger asked.
    std::string answered() const {
        if (m_answers == 0) return m_asked == 0 ? "nothing asked" : "silence";
        return m_answers == m_asked ? "answers" : "some answers";
    }

private:
    static std::string_view nameOf(std::optional<Outcome::Kind> end) {
        if (!end) return "no end";
        return *end == Outcome::Kind::Done ? "done" : "broken off";
    }
    std::string radioText() { return stateText(m_bench.ports.radio().state); }
    bool reads() const {
        const auto& name = m_operation.name;
        return name.find(" read") != std::string_view::npos && name.find("sent") == std::string_view::npos;
    }
    /// Faults count the commands that the radio hears; those of the logger's that are on their way do not count.
    void arrangeTrouble(int onTheirWay) {
        Faults& faults = m_bench.ports.faults();
        m_trouble.arrange(faults, m_usual.commands, m_operation.oneItem);
        if (m_operation.endedBy == "equalizer") return;  // whose port takes the line from it
        if (faults.deafOnce) *faults.deafOnce += onTheirWay;
        if (faults.deafAfter) *faults.deafAfter += onTheirWay;
        if (faults.unplugged) *faults.unplugged += onTheirWay;
    }

    /// At 100 ms the windows' own walk through the band stack sends nothing behind its last register.
    bool leavesTheBand() {
        return m_operation.name == "band stack read" && m_bench.program.link.pace == Pace::Every100Ms;
    }

    void takeTurn() {
        auto& program = m_bench.doors.atDevice;
        hear(program.takeHeard());
        const std::string& words = m_logger.words[m_turn++ % m_logger.words.size()];
        for (const auto& command : ForeignText().take(words)) {
            if (!asks(command.wire)) continue;
            ++m_asked;
            m_heads.insert(command.wire.substr(0, command.wire.size() - 1));
        }
        program.say(words);
        if (!m_logger.vanishes || m_turn % 5 != 0) return;
        program.say("FA1424");
        program.leave();
    }

    /// Everything that it hears answers something that it has asked.
    void hear(const std::string& heard) {
        for (const auto& piece : ForeignText().take(heard)) {
            if (!piece.sound()) continue;  // refused
            ++m_answers;
            EXPECT_TRUE(std::any_of(m_heads.begin(), m_heads.end(), [&](const auto& head) {
                return piece.wire.starts_with(head);
            })) << piece.wire;
        }
    }

    /// Nothing of the logger's goes out while an operation has the line, nor between two steps of one.
    void watch(std::string_view wire) {
        ++m_went;
        if (!m_logger.tunes || std::find(sets.begin() + 1, sets.end(), wire) == sets.end()) return;
        const bool ofBandStack = m_operation.name.starts_with("band") || m_operation.name.starts_with("backup");
        if (ofBandStack && m_bench.program.link.operation() != nullptr) return;  // its own
        EXPECT_FALSE(m_operation.running(m_bench)) << wire;
    }

    void expectItWorksAgain() {
        auto& program = m_bench.doors.atDevice;
        hear(program.takeHeard());
        EXPECT_EQ(m_bench.whatIsWrong(), "");
        m_bench.closePorts();
        m_bench.openPort();
        m_bench.clock.advance(5'000);
        program.say(";");
        m_bench.clock.advance(100);
        program.takeHeard();
        program.say("ID;");
        m_bench.clock.advance(300);
        EXPECT_EQ(program.takeHeard(), "ID0251;");
        const int heard = m_bench.heard();
        m_bench.clock.advance(5'000);
        EXPECT_EQ(m_bench.heard(), heard) << "sends though nobody asks";
    }

    const TriedOperation& m_operation;
    const Logger& m_logger;
    const LineTrouble& m_trouble;
    const Healthy& m_usual;
    TroubleBench m_bench;
    std::unique_ptr<Timer> m_turns;
    std::string m_found;
    std::set<std::string> m_heads;
    std::size_t m_turn = 0;
    int m_went = 0;
    int m_asked = 0;
    int m_answers = 0;
    Connections m_connections;
};

std::vector<std::vector<std::string>> tableBeside(const std::string& head, Pace pace) {
    std::vector<std::vector<std::string>> rows(1, {head});
    for (const auto& operation : operations()) rows.front().emplace_back(operation.name);
    for (const auto& logger : loggers()) {
        std::vector<std::string> row = {std::string(logger.name)};
        std::vector<std::string> heard = {"... and what it hears"};
        for (const auto& operation : operations()) {
            SCOPED_TRACE(std::string(operation.name) + ", a logger that " + std::string(logger.name));
            Beside beside(operation, logger, pace);
            row.push_back(beside.outcome());
            heard.push_back(beside.answered());
        }
        rows.push_back(row);
        rows.push_back(heard);
    }
    return rows;
}

TEST(Reliability, EveryOperationBesideALoggerThatTalksInBetween) {
    const auto usual = tableBeside("a logger that", Pace::Every100Ms);
    const auto fast = tableBeside("a logger, fast transfers, that", Pace::Answered);
    expectOnThePage("| a logger that", markdown(usual));
    expectOnThePage("| a logger, fast", markdown(fast));
}

/// A radio or a line with a fault is no worse for an operation when a logger talks in between.
TEST(Reliability, EveryOperationUnderEveryTroubleBesideALogger) {
    static const Logger silent = {"says nothing", 1'000, {""}};
    std::string worse;
    for (const Pace pace : {Pace::Every100Ms, Pace::Answered}) {
        for (const auto& trouble : lineTroubles()) {
            for (const auto& operation : operations()) {
                const std::string alone = Beside(operation, silent, pace, trouble).outcome();
                for (const std::size_t which : {0U, 3U}) {
                    const auto& logger = loggers()[which];
                    const std::string found = Beside(operation, logger, pace, trouble).outcome();
                    if (found == alone) continue;
                    worse += std::string(operation.name) + ", " + std::string(trouble.name) + ", " +
                             std::string(logger.name) + ": " + found + " instead of " + alone + "\n";
                }
            }
        }
    }
    EXPECT_EQ(worse, "");
}

}  // namespace
}  // namespace korvex
