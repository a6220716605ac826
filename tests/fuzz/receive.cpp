#include <array>
#include <filesystem>

#include "fuzz/Fuzz.h"
#include "fuzz/Judge.h"
#include "fuzz/Talk.h"
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
constexpr std::array<void (*)(TroubleBench&), 7> gestures = {
    [](TroubleBench& b) { b.program.memory.editor.cmd3_Click(); },
    [](TroubleBench& b) { b.program.memory.editor.cmd2_Click(); },
    [](TroubleBench& b) { useManagerCell(b, keyR); },
    [](TroubleBench& b) { useManagerCell(b, keyS); },
    [](TroubleBench& b) { b.program.eqWindow.Command1_Click(b.program.eqWindow.processorOn ? 1 : 0); },
    [](TroubleBench& b) { b.program.eqWindow.exchange().applyValue(3, 900); },
    [](TroubleBench& b) { b.program.backupEntry.mnu_BackupRadio_Click(); },
};

/// Plays an input on the whole program. Besides what the radio says and suffers:
///
///     ~a..~z   an operation is started, or a gesture is made
///     ~C ~O    the port is closed, opened
///     ~.       the open dialog is answered (else they are when the input is used up)
class Play {
public:
    explicit Play(std::string_view input) : m_talk(m_bench.ports, m_bench.clock, input) {
        m_bench.fileDialog.whileShown = [this, answer = m_bench.fileDialog.whileShown] {
            const bool asksForFolder = m_bench.fileDialog.shown.back().mode == FileDialogRequest::Mode::Folder;
            if (asksForFolder) return m_bench.fileDialog.choose(m_backups.path());
            answer();
        };
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
        for (const auto& backup : std::filesystem::directory_iterator(m_backups.path())) {
            EXPECT_NE(backup.path().extension(), ".incomplete");
        }
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
        if (*action >= 'a' && *action <= 'z') start(static_cast<std::size_t>(*action - 'a'));
        if (*action == '.') m_answered = m_dialogs > 0;
        if (*action == 'C') m_bench.closePorts();
        if (*action == 'O') open();
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

    fakes::TemporaryFolder m_backups;
    TroubleBench m_bench;
    fuzz::Talk m_talk;
    int m_dialogs = 0;
    bool m_answered = false;
};

}  // namespace

/// A hostile radio on the line while anything at all is going on.
FUZZ_TARGET(receive) {
    Play(input).run();
}

}  // namespace korvex
