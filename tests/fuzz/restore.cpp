#include "fuzz/Fuzz.h"
#include "fuzz/Judge.h"
#include "trouble/TroubleBench.h"

namespace korvex {

namespace {

/// What an owner can do with a file that he was given, each in a tool that loads it and then writes to the radio.
struct Way {
    char letter;
    void (*start)(TroubleBench&);
    bool (*running)(TroubleBench&);
};

constexpr int longestMs = 600'000;

void writeList(TroubleBench& bench) {
    auto& memory = bench.program.memory;
    memory.editor.Form_Load();
    bench.clock.advance(1'100);
    if (memory.listFiles.loadListFile() != TransferEnd::Done) return;
    for (int row = 1; row <= MemoryList::rows; row += 7) {
        memory.editor.chooseRow(row);
        memory.editor.cmd2_Click();
    }
    memory.listWriter.mnu_MemRestoreTOFT2000_Click();
}

constexpr Way ways[] = {
    {'m', [](TroubleBench& b) { b.program.menuRestore.mnu_Restore_Click(); },
     [](TroubleBench& b) { return b.program.menuWriter.running(); }},
    {'e', [](TroubleBench& b) { b.program.memory.restorer.mnu_restMem_Click(); },
     [](TroubleBench& b) { return b.program.memory.restorer.running(); }},
    {'l', writeList, [](TroubleBench& b) { return b.program.memory.listWriter.running(); }},
    {'b',
     [](TroubleBench& b) {
         if (b.program.bandStackWindow.loadBandStackFile() == TransferEnd::Done)
             b.program.bandStackWindow.mnu_writeBandStack_Click();
     },
     [](TroubleBench& b) { return b.program.bandStackWindow.writer().running(); }},
    {'k',
     [](TroubleBench& b) {
         if (b.program.keyerWindow.loadKeyerFile() == TransferEnd::Done) b.program.keyerWindow.mnu_WriteKeyer_Click();
     },
     [](TroubleBench& b) { return b.program.keyerWindow.writer().running(); }},
};

}  // namespace

/// A file of any kind (the first character says which) through its tool into a healthy radio: the writing ends, the
/// program comes to rest, and nothing that was sent keys the transmitter.
FUZZ_TARGET(restore) {
    for (const Way& way : ways) {
        if (!input.starts_with(way.letter)) continue;
        TroubleBench bench;
        fakes::writeFile(bench.source, std::string(input.substr(1)));
        bench.openPort();
        way.start(bench);
        const bool ended = bench.clock.advanceUntil([&] { return !way.running(bench); }, longestMs);
        // Only a band stack may wait, for an antenna that a piece of a command in front of the question has spoiled.
        EXPECT_TRUE(ended || way.letter == 'b');
        if (!ended) bench.closePorts();
        bench.settle();
        EXPECT_EQ(bench.whatIsWrong(), "");
        EXPECT_EQ(fuzz::keysTransmitterWith(bench.ports.written), "");
    }
}

}  // namespace korvex
