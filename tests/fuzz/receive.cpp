#include <array>

#include "fuzz/Fuzz.h"
#include "fuzz/Judge.h"
#include "trouble/TroubleBench.h"

namespace korvex {

namespace {

constexpr int managerColumn = 7;
constexpr int keyR = 82;
constexpr int keyS = 83;

void useManagerCell(TroubleBench& bench, int key) {
    auto& grid = bench.program.menuManager.FlexGrid1;
    if (grid.Rows() < 2) operations()[2].prepare(bench);
    grid.setCurrent(19, managerColumn);
    bench.program.menuManager.FlexGrid1_KeyDown(key);
}

/// What a user can start beside the operations proper.
constexpr std::array<void (*)(TroubleBench&), 6> gestures = {
    [](TroubleBench& b) { b.program.memory.editor.cmd3_Click(); },
    [](TroubleBench& b) { b.program.memory.editor.cmd2_Click(); },
    [](TroubleBench& b) { useManagerCell(b, keyR); },
    [](TroubleBench& b) { useManagerCell(b, keyS); },
    [](TroubleBench& b) { b.program.eqWindow.Command1_Click(b.program.eqWindow.processorOn ? 1 : 0); },
    [](TroubleBench& b) { b.program.eqWindow.exchange().applyValue(3, 900); },
};

/// Plays an input: characters are what the radio says; "~" and another character is something that happens.
///
///     ~~       the radio says "~"
///     ~0..~9   time passes
///     ~a..~z   an operation is started, or a gesture is made
///     ~C ~O    the port is closed, opened
///     ~U ~P    the device is unplugged, plugged in
///     ~D ~H    the radio turns deaf, and healthy again
///     ~S ~G    its answers come in pieces, several at once
///     ~L       a modem line changes
///     ~.       the open dialog is answered (else they are when the input is used up)
class Play {
public:
    explicit Play(std::string_view input) : m_rest(input) {
        listenInDialogs(m_bench.fileDialog.whileShown);
        listenInDialogs(m_bench.msgBox.whileShown);
    }

    void run() {
        m_bench.openPort();
        while (!m_rest.empty()) step();
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
                while (!m_rest.empty() && !m_answered) step();
            }
            --m_dialogs;
            m_answered = false;
        };
    }

    void step() {
        if (m_rest.front() != '~') return say(m_rest.substr(0, m_rest.find('~')));
        m_rest.remove_prefix(1);
        const char action = m_rest.empty() ? ' ' : m_rest.front();
        if (action == '~') return say("~");
        if (!m_rest.empty()) m_rest.remove_prefix(1);
        act(action);
    }

    void say(std::string_view wire) {
        m_rest.remove_prefix(wire.size());
        m_bench.ports.say(wire);
    }

    void act(char action) {
        constexpr std::array<int, 10> times = {10, 50, 100, 200, 500, 1'000, 2'000, 5'000, 15'000, 60'000};
        if (action >= '0' && action <= '9') return pass(times.at(static_cast<std::size_t>(action - '0')));
        if (action >= 'a' && action <= 'z') return start(static_cast<std::size_t>(action - 'a'));
        auto& faults = m_bench.ports.faults();
        switch (action) {
            case '.': m_answered = m_dialogs > 0; break;
            case 'C': m_bench.closePorts(); break;
            case 'O': open(); break;
            case 'U': m_bench.ports.unplug(); break;
            case 'P': m_bench.ports.plugIn(); break;
            case 'D': faults.deaf = true; break;
            case 'H': faults = {}; break;
            case 'S': faults.split = true; break;
            case 'G': faults.glued = 3; break;
            case 'L': m_bench.ports.changeLine(ModemLine::Dsr); break;
            default: break;
        }
    }

    void pass(int ms) {
        constexpr int longest = 300'000;
        m_passed += ms;
        if (m_passed < longest) m_bench.clock.advance(ms);
    }

    /// Nobody gets at the tools behind an open dialog.
    void start(std::size_t which) {
        if (m_dialogs > 0) return;
        const auto& all = operations();
        if (which < all.size()) {
            all[which].prepare(m_bench);
            all[which].start(m_bench);
        } else if (which - all.size() < gestures.size()) {
            gestures.at(which - all.size())(m_bench);
        }
    }

    void open() {
        if (m_dialogs == 0 && !m_bench.program.link.PortOpen()) m_bench.program.link.togglePort();
    }

    std::string_view m_rest;
    TroubleBench m_bench;
    int m_dialogs = 0;
    bool m_answered = false;
    int m_passed = 0;
};

}  // namespace

/// A hostile radio on the line while anything at all is going on.
FUZZ_TARGET(receive) {
    Play(input).run();
}

}  // namespace korvex
