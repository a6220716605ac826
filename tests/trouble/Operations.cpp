#include <algorithm>

#include "TroubleBench.h"
#include "base/NumberText.h"
#include "fakes/WholeRestore.h"
#include "keyer/KeyerFile.h"
#include "memory/MemoryRecord.h"
#include "radio/StateText.h"

namespace korvex {

namespace {

constexpr int managerColumn = 7;

void changeRadio(TroubleBench& bench) {
    bench.ports.radio().state = unlikeRadio();
}

std::string radioState(TroubleBench& bench) {
    return fakes::asWalked(stateText(bench.ports.radio().state));
}

std::string targetFile(TroubleBench& bench) {
    return fakes::fileContent(bench.target);
}

/// What the operation saves from a healthy radio.
std::string savedBy(void (*start)(TroubleBench&)) {
    TroubleBench bench;
    bench.openPort();
    start(bench);
    bench.clock.advanceUntil([&] { return !bench.ends.empty(); }, 300'000);
    return targetFile(bench);
}

bool untold(TroubleBench&) {
    return false;
}

void nothing(TroubleBench&) {}

// --- the menu

void readMenu(TroubleBench& bench) {
    bench.program.menuSave.mnu_Store_Click();
}

void prepareMenuFile(TroubleBench& bench) {
    static const std::string file = savedBy(readMenu);
    fakes::writeFile(bench.source, file);
    changeRadio(bench);
}

bool toldInTheReceiveDisplay(TroubleBench& bench) {
    return bench.program.link.received().text().find("Attention") != std::string::npos;
}

/// The Menu Manager in sight, with an empty column selected.
void prepareManager(TroubleBench& bench) {
    bench.database.records.assign(menuItemCount + 1, std::vector<std::string>(15));
    for (int item = 1; item <= menuItemCount; ++item) {
        bench.database.records.at(static_cast<std::size_t>(item))[1] = zeroPadded(item, 3);
    }
    bench.program.windows.menuManager.show();
    bench.program.menuManager.Form_Load();
    bench.clock.advance(50);
    bench.program.menuManager.mnu_loadFlexgrid_Click();
    bench.program.menuManager.FlexGrid1_RightClick(managerColumn);
}

/// A column of the Menu Manager with the values of the healthy radio.
void prepareManagerColumn(TroubleBench& bench) {
    prepareManager(bench);
    auto& grid = bench.program.menuManager.grid;
    for (int row = 1; row < grid.Rows(); ++row) {
        const std::string number = grid.TextMatrix(row, 0);
        if (number.empty()) continue;
        const std::string answer = bench.ask("EX" + number);
        grid.setTextMatrix(row, managerColumn, answer.substr(5, answer.size() - 6));
    }
    changeRadio(bench);
}

/// Item 042 of that column is the current cell.
void prepareManagerItem(TroubleBench& bench) {
    prepareManagerColumn(bench);
    auto& grid = bench.program.menuManager.grid;
    int row = 1;
    while (row < grid.Rows() && grid.TextMatrix(row, 0) != "042") ++row;
    grid.setCurrent(row, managerColumn);
}

void sendManagerItem(TroubleBench& bench) {
    bench.program.menuManager.FlexGrid1_KeyDown('S');
}

std::string managerItem(TroubleBench& bench) {
    const auto& boxes = bench.msgBox.shown;
    return bench.ask("EX042") + "\n" + (boxes.empty() ? "" : boxes.back().title) + "\n";
}

std::string managerValues(TroubleBench& bench) {
    const auto& grid = bench.program.menuManager.grid;
    std::string text;
    for (int row = 1; row < grid.Rows(); ++row) {
        const std::string& number = grid.TextMatrix(row, 0);
        if (!number.empty()) text += number + " " + grid.TextMatrix(row, managerColumn) + "\n";
    }
    return text;
}

bool toldInTheManager(TroubleBench& bench) {
    return bench.program.menuManager.noticeWarns;
}

// --- the whole radio

void saveWholeRadio(TroubleBench& bench) {
    ++bench.timeOfDay.back();  // the folder's name
    bench.program.backupEntry.mnu_BackupRadio_Click();
}

bool toldInABox(TroubleBench& bench) {
    const auto& boxes = bench.msgBox.shown;
    return !boxes.empty() && boxes.back().text.find("refused to tell:") != std::string::npos;
}

// --- the memories

void readMemories(TroubleBench& bench) {
    bench.program.memory.saver.mnu_saveMem_Click();
}

void prepareMemoryFile(TroubleBench& bench) {
    static const std::string file = savedBy(readMemories);
    fakes::writeFile(bench.source, file);
    changeRadio(bench);
}

void prepareMemoryList(TroubleBench& bench) {
    const RadioState owners = ownersRadio();
    for (int channel = 1; channel <= MemoryList::rows; ++channel) {
        const auto& record = owners.memories.at(static_cast<std::size_t>(channel));
        const auto parsed = parseMemoryString("MW" + channelText(channel) + record.value_or("") + ";");
        if (parsed) bench.program.memory.list.place(channel, *parsed);
    }
    changeRadio(bench);
}

std::string memoryList(TroubleBench& bench) {
    std::string text;
    for (int row = 1; row <= MemoryList::rows; ++row) {
        text += memoryWriteCommand(bench.program.memory.list.channelFields(row)) + "\n";
    }
    return text;
}

std::string firstMemory() {
    return "MW001" + ownersRadio().memories.at(1).value_or("") + ";";
}

/// Channel 1 in the editor as the healthy radio has it.
void prepareMemoryEditor(TroubleBench& bench) {
    bench.program.memory.editor.Form_Load();
    bench.clock.advance(1'100);
    prepareMemoryList(bench);
    bench.program.memory.editor.chooseRow(1);
}

std::string memoryOne(TroubleBench& bench) {
    return bench.ask("MR001") + "\n" + memoryWriteCommand(bench.program.memory.list.channelFields(1)) + "\n";
}

/// What was read back is not what was sent.
bool toldInTheForm(TroubleBench& bench) {
    return memoryWriteCommand(bench.program.memory.list.channelFields(1)) != firstMemory();
}

// --- the band stack

void readBandStack(TroubleBench& bench) {
    bench.program.bandStackWindow.mnu_readBandStack_Click();
}

void prepareBandStack(TroubleBench& bench) {
    static const std::string file = savedBy(readBandStack);
    fakes::writeFile(bench.source, file);
    bench.program.bandStackWindow.loadBandStackFile();
    changeRadio(bench);
}

/// A register is known by its frequency: the radio walks the three of a band in a circle and does not tell where it
/// begins.
std::string bandStackGrid(TroubleBench& bench) {
    constexpr int frequencyRow = 10;
    const BandStackCells cells = bench.program.bandStackWindow.stack().cells();
    std::string text;
    for (int row = 1; row <= BandStackCells::lastQueried; ++row) {
        for (int column = 1; column < BandStackCells::columns; ++column) {
            text += cells.at(frequencyRow, column) + " " + std::to_string(row) + " " + cells.at(row, column) + "\n";
        }
    }
    return text;
}

// --- the equalizer

/// The set behind the shown one is known already: reading it is nobody's operation.
void readEqualizer(TroubleBench& bench) {
    bench.program.eqWindow.exchange().other().values = EqValues{};
    if (!bench.program.eqWindow.isPortOpen()) bench.program.eqWindow.toggleEqPort();
}

bool equalizerRuns(TroubleBench& bench) {
    return bench.program.eqWindow.isPortOpen() &&
           bench.program.eqWindow.exchange().phase() == EqExchange::Phase::Reading;
}

/// The port is open and the values are read.
void prepareEqualizer(TroubleBench& bench) {
    readEqualizer(bench);
    bench.clock.advanceUntil([&] { return !equalizerRuns(bench); }, 10'000);
}

/// The owner moves one slider after the other.
void moveSliders(TroubleBench& bench) {
    constexpr std::int64_t pause = 300;
    for (std::size_t item = 0; item < eqItemCount; ++item) {
        ++bench.slidersToMove;
        bench.clock.after(pause * static_cast<std::int64_t>(item), [&bench, item] {
            bench.program.eqWindow.exchange().applyValue(item, eqItems[item].highest);
            --bench.slidersToMove;
        });
    }
}

std::string equalizerItems(TroubleBench& bench) {
    std::string text;
    for (int item = 125; item < 134; ++item) text += bench.ask("EX" + std::to_string(item)) + "\n";
    return text;
}

std::string equalizerValues(TroubleBench& bench) {
    std::string text;
    for (std::size_t item = 0; item < eqItemCount; ++item) {
        text += std::string(eqItems[item].name) + " " + std::to_string(bench.program.eqWindow.exchange().value[item]) +
                "\n";
    }
    return text;
}

// --- the keyer

void prepareKeyerTexts(TroubleBench& bench) {
    for (int memory = 1; memory <= keyerMemories; ++memory) {
        bench.program.keyerWindow.table().setText(memory, WireText("DE K0RVX " + std::to_string(memory)));
    }
    changeRadio(bench);
}

std::string keyerTexts(TroubleBench& bench) {
    return keyerFileText(bench.program.keyerWindow.table().fileRows());
}

bool toldInThePanel(TroubleBench& bench) {
    return !bench.program.eqWindow.errorPanel.get().empty();
}

bool toldInTheKeyer(TroubleBench& bench) {
    return !bench.program.keyerWindow.hint.get().empty();
}

/// In the panel, the Menu Manager or the keyer window.
bool refusalsTold(TroubleBench& bench) {
    const std::string text = bench.program.link.panels().Error.get() + bench.program.menuManager.notice.get() +
                             bench.program.keyerWindow.hint.get();
    return text.find("refused") != std::string::npos;
}

}  // namespace

RadioState unlikeRadio() {
    RadioState state = fakes::radioUnlike(ownersRadio());
    for (std::size_t channel = 1; channel <= MemoryList::rows; ++channel) state.memories.at(channel).reset();
    return state;
}

const std::vector<TriedOperation>& operations() {
    static const std::vector<TriedOperation> all = {
        {"menu read", nothing, readMenu, [](TroubleBench& b) { return b.program.menuSave.running(); }, "menu reader",
         targetFile, toldInTheReceiveDisplay, "EX042"},
        {"menu write", prepareMenuFile, [](TroubleBench& b) { b.program.menuRestore.mnu_Restore_Click(); },
         [](TroubleBench& b) { return b.program.menuWriter.running(); }, "menu writer", radioState, refusalsTold,
         "EX042"},
        {"menu read into the Menu Manager", prepareManager,
         [](TroubleBench& b) { b.program.menuManager.mnu_readSettings_Click(); },
         [](TroubleBench& b) { return b.program.menuManager.reading(); }, "Menu Manager reader", managerValues,
         toldInTheManager, "EX042"},
        {"menu write from the Menu Manager", prepareManagerColumn,
         [](TroubleBench& b) { b.program.menuManager.mnuRestore_Click(); },
         [](TroubleBench& b) { return b.program.menuManager.writer().running(); }, "Menu Manager writer", radioState,
         refusalsTold, "EX042"},
        {"one menu item sent and read back", prepareManagerItem, sendManagerItem,
         [](TroubleBench& b) { return b.program.menuManager.exchange().running(); }, "menu item exchange", managerItem,
         toldInTheManager, "EX042"},
        {"memory read into a file", nothing, readMemories,
         [](TroubleBench& b) { return b.program.memory.saver.running(); }, "memory reader", targetFile,
         toldInTheReceiveDisplay, "MR001"},
        {"memory write from a file", prepareMemoryFile,
         [](TroubleBench& b) { b.program.memory.restorer.mnu_restMem_Click(); },
         [](TroubleBench& b) { return b.program.memory.restorer.running(); }, "memory restorer", radioState,
         refusalsTold, "MW001"},
        {"memory read into the list", nothing,
         [](TroubleBench& b) { b.program.memory.listReader.mnu_MemSaveFromFT2000_Click(); },
         [](TroubleBench& b) { return b.program.memory.listReader.running(); }, "memory list reader", memoryList,
         toldInTheReceiveDisplay, "MR001"},
        {"memory write from the list", prepareMemoryList,
         [](TroubleBench& b) { b.program.memory.listWriter.mnu_MemRestoreTOFT2000_Click(); },
         [](TroubleBench& b) { return b.program.memory.listWriter.running(); }, "memory list writer", radioState,
         refusalsTold, "MW001"},
        {"one memory sent and read back", prepareMemoryEditor,
         [](TroubleBench& b) { b.program.memory.editor.cmd2_Click(); },
         [](TroubleBench& b) { return b.program.memory.editor.isReading(); }, "memory editor", memoryOne, toldInTheForm,
         "MW001"},
        {"band stack read", nothing, readBandStack,
         [](TroubleBench& b) { return b.program.bandStackWindow.reader().running(); }, "band stack reader",
         bandStackGrid, toldInTheReceiveDisplay, "KR"},
        {"band stack write", prepareBandStack,
         [](TroubleBench& b) { b.program.bandStackWindow.mnu_writeBandStack_Click(); },
         [](TroubleBench& b) { return b.program.bandStackWindow.writer().running(); }, "band stack writer", radioState,
         toldInTheReceiveDisplay, "NB0"},
        {"equalizer read", nothing, readEqualizer, equalizerRuns, "equalizer", equalizerValues, toldInThePanel,
         "EX127"},
        {"equalizer write", prepareEqualizer, moveSliders, [](TroubleBench& b) { return b.slidersToMove > 0; },
         "equalizer", equalizerItems, untold, "EX127"},
        {"backup of the whole radio", nothing, saveWholeRadio,
         [](TroubleBench& b) { return b.program.backup.running(); }, "backup",
         [](TroubleBench& b) { return b.lastBackup(); }, toldInABox, "EX042"},
        {"keyer write", prepareKeyerTexts, [](TroubleBench& b) { b.program.keyerWindow.mnu_WriteKeyer_Click(); },
         [](TroubleBench& b) { return b.program.keyerWindow.writer().running(); }, "keyer writer", radioState,
         refusalsTold, "KM2"},
        {"keyer read", nothing, [](TroubleBench& b) { b.program.keyerWindow.mnu_readKeyer_Click(); },
         [](TroubleBench& b) { return b.program.keyerWindow.reader().running(); }, "keyer reader", keyerTexts,
         toldInTheKeyer, "KM2"},
    };
    return all;
}

const Healthy& healthy(const TriedOperation& operation, Pace pace) {
    static std::map<std::pair<std::string_view, Pace>, Healthy> known;
    const auto found = known.find({operation.name, pace});
    if (found != known.end()) return found->second;
    TroubleBench bench(pace);
    bench.openPort();
    operation.prepare(bench);
    const auto before = linesOf(operation.result(bench));
    const int heard = bench.heard();
    const auto begin = bench.clock.now();
    operation.start(bench);
    bench.clock.advanceUntil([&] { return !operation.running(bench) && !bench.program.link.operation(); }, 900'000);
    bench.settle();
    Healthy found2{bench.clock.now() - begin, bench.heard() - heard, {}, fakes::fileContent(bench.target)};
    for (const auto& line : linesOf(operation.result(bench))) {
        if (std::find(before.begin(), before.end(), line) == before.end()) found2.facts.push_back(line);
    }
    return known[{operation.name, pace}] = found2;
}

}  // namespace korvex
