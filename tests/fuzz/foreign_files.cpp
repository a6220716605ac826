#include <sstream>

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
    if (memory.listFiles.loadListFile() != Outcome::Kind::Done) return;
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
         if (b.program.bandStackWindow.loadBandStackFile() == Outcome::Kind::Done)
             b.program.bandStackWindow.mnu_writeBandStack_Click();
     },
     [](TroubleBench& b) { return b.program.bandStackWindow.writer().running(); }},
    {'k',
     [](TroubleBench& b) {
         if (b.program.keyerWindow.loadKeyerFile() == Outcome::Kind::Done) b.program.keyerWindow.mnu_WriteKeyer_Click();
     },
     [](TroubleBench& b) { return b.program.keyerWindow.writer().running(); }},
};

constexpr int firstSettings = 7;
constexpr int keyR = 82;
constexpr int keyS = 83;

/// A line a record, tabs between the fields.
fakes::FakeDatabase::Records recordsIn(std::string_view text) {
    constexpr std::size_t fields = 15;
    fakes::FakeDatabase::Records records;
    std::istringstream lines{std::string(text)};
    for (std::string line; records.size() < 200 && std::getline(lines, line);) {
        std::istringstream cells(line);
        auto& record = records.emplace_back();
        for (std::string cell; record.size() < fields && std::getline(cells, cell, '\t');) record.push_back(cell);
        record.resize(fields);
    }
    return records;
}

/// The Menu Manager with this table: every settings column goes to the radio, single cells by key.
void useInManager(TroubleBench& bench) {
    auto& manager = bench.program.menuManager;
    bench.program.windows.menuManager.show();
    manager.Form_Load();
    bench.clock.advance(50);
    for (int row = 1; row < manager.grid.Rows(); row += 20) {
        manager.grid.setCurrent(row, firstSettings + row % 4);
        manager.FlexGrid1_KeyDown(row % 3 == 0 ? keyR : keyS);
        bench.clock.advance(600);
    }
    manager.FlexGrid1_RightClick(firstSettings);
    manager.mnuRestore_Click();
    bench.clock.advance(20'000);
    manager.Flexgrid_toGrid_Click();
    bench.closePorts();
    EXPECT_EQ(bench.whatIsWrong(), "");
    EXPECT_EQ(fuzz::keysTransmitterWith(bench.ports.written), "");
}

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

/// A description database that somebody else has written: whatever its records are, nothing keys the transmitter, and
/// saving keeps them in their shape.
FUZZ_TARGET(description_grid) {
    TroubleBench bench;
    bench.database.records = recordsIn(input);
    const auto before = bench.database.records;
    bench.openPort();
    useInManager(bench);
    ASSERT_EQ(bench.database.records.size(), before.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
        for (std::size_t field = 0; field < firstSettings + 1; ++field) {
            EXPECT_EQ(bench.database.records[i][field], before[i][field]) << i;
        }
    }
}

}  // namespace korvex
