#include <algorithm>
#include <array>

#include "fuzz/Fuzz.h"
#include "fuzz/Judge.h"
#include "fuzz/Talk.h"
#include "trouble/TroubleBench.h"

namespace korvex {

namespace {

constexpr int managerColumn = 7;
constexpr int keyR = 82;

void readManagerCell(TroubleBench& bench) {
    auto& grid = bench.program.menuManager.grid;
    grid.setCurrent(19, managerColumn);
    bench.program.menuManager.FlexGrid1_KeyDown(keyR);
}

struct Start {
    char letter;
    std::string_view operation;      ///< by its name, so that an input means the same when there are more of them
    void (*gesture)(TroubleBench&);  ///< what is none
};

constexpr auto starts = std::to_array<Start>({
    {'a', "menu read", nullptr},
    {'b', "menu write", nullptr},
    {'c', "menu read into the Menu Manager", nullptr},
    {'d', "memory read into a file", nullptr},
    {'e', "memory write from a file", nullptr},
    {'f', "memory read into the list", nullptr},
    {'g', "memory write from the list", nullptr},
    {'h', "band stack read", nullptr},
    {'i', "band stack write", nullptr},
    {'j', "equalizer read", nullptr},
    {'k', "keyer write", nullptr},
    {'l', "keyer read", nullptr},
    {'m', "", [](TroubleBench& b) { b.program.memory.editor.cmd3_Click(); }},
    {'n', "one memory sent and read back", nullptr},
    {'o', "", readManagerCell},
    {'p', "one menu item sent and read back", nullptr},
    {'q', "",
     [](TroubleBench& b) { b.program.eqWindow.Command1_Click(b.program.eqWindow.exchange().processorOn ? 1 : 0); }},
    {'r', "equalizer write", nullptr},
    {'s', "backup of the whole radio", nullptr},
    {'t', "menu write from the Menu Manager", nullptr},
});

/// A new operation needs a letter of its own.
bool everyOperationHasItsLetter() {
    return std::all_of(operations().begin(), operations().end(), [](const TriedOperation& operation) {
        return std::any_of(starts.begin(), starts.end(),
                           [&](const Start& start) { return start.operation == operation.name; });
    });
}

void begin(TroubleBench& bench, const Start& start) {
    if (start.gesture != nullptr) start.gesture(bench);
    for (const auto& operation : operations()) {
        if (operation.name != start.operation) continue;
        operation.prepare(bench);
        operation.start(bench);
    }
}

/// Plays an input on the whole program. Besides what the radio says and suffers:
///
///     ~a..~z   an operation is started, or a gesture is made
///     ~C ~O    the port is closed, opened
///     ~.       the open dialog is answered (else they are when the input is used up)
class Play {
public:
    explicit Play(std::string_view input) : m_talk(m_bench.ports, m_bench.clock, input) {
        listenInDialogs(m_bench.fileDialog.whileShown);
        listenInDialogs(m_bench.msgBox.whileShown);
    }

    void run() {
        m_bench.openPort();
        while (!m_talk.isOver()) step();
        m_bench.closePorts();
        m_bench.clock.advance(100);
        const auto written = m_bench.ports.written.size();
        m_bench.clock.advance(5'000);
        EXPECT_EQ(m_bench.ports.written.size(), written) << "something was sent through a closed port";
        EXPECT_EQ(m_bench.whatIsWrong(), "");
        EXPECT_EQ(fuzz::keysTransmitterWith(m_bench.ports.written), "");
    }

private:
    void listenInDialogs(std::function<void()>& whileShown) {
        whileShown = [this, answer = whileShown] {
            answer();
            constexpr int deepest = 3;
            if (++m_dialogs <= deepest) {
                m_answered = false;
                while (!m_talk.isOver() && !m_answered) step();
            }
            --m_dialogs;
            m_answered = false;
        };
    }

    void step() {
        const auto action = m_talk.step();
        if (!action) return;
        if (*action == '.') m_answered = m_dialogs > 0;
        if (*action == 'C') m_bench.closePorts();
        // Nobody gets at the tools behind an open dialog.
        if (m_dialogs > 0) return;
        if (*action == 'O' && !m_bench.program.link.PortOpen()) m_bench.program.link.togglePort();
        for (const auto& start : starts) {
            if (start.letter == *action) begin(m_bench, start);
        }
    }

    TroubleBench m_bench;
    fuzz::Talk m_talk;
    int m_dialogs = 0;
    bool m_answered = false;
};

}  // namespace

/// A hostile radio on the line while anything at all is going on.
FUZZ_TARGET(receive) {
    ASSERT_TRUE(everyOperationHasItsLetter());
    Play(input).run();
}

}  // namespace korvex
