#include "cli/FileKinds.h"

#include "menu/MenuFile.h"

namespace korvex::cli {

namespace {

std::string menuObjection(const MenuCommandTable& table) {
    const int inPlace = answersInPlace(table);
    if (inPlace == menuItemCount) return {};
    return "only " + std::to_string(inPlace) + " of " + std::to_string(menuItemCount) +
           " menu items were answered in time and in order";
}

/// A firmware without one of the items refuses it; the others are in place all the same.
std::string menuGap(const MenuCommandTable& table) {
    int told = answersInPlace(table);
    for (int item = 1; item <= menuItemCount; ++item) told += table.answer(item) == "?;" ? 1 : 0;
    return told == menuItemCount ? "" : menuObjection(table);
}

FileKind menuKind(Program& program) {
    return {"menu",
            "mnu",
            {[&program] {
                 program.menuReader.mnu_Store_Click();
                 return std::nullopt;
             },
             &program.menuReader.ended,
             [&program] { return menuObjection(program.menuCommandTable); },
             {},
             [&program] { return menuGap(program.menuCommandTable); }},
            {[&program] {
                 program.menuWriter.mnu_Restore_Click();
                 return std::nullopt;
             },
             &program.menuWriter.ended,
             {},
             {}}};
}

/// Noise on the line makes answers that no radio gives.
std::string memoryObjection(const MemoryReader& reader) {
    if (reader.damaged() == 0) return {};
    return std::to_string(reader.damaged()) + " memories came through damaged";
}

std::string bandStackObjection(const BandStack& stack) {
    int strange = 0;
    for (int column = 1; column < BandStack::pastLastColumn; ++column) {
        if (stack.wireText(1, column) == "?;") continue;  // a band that the radio does not have
        for (int row = 1; row <= BandStack::lastQueried; ++row) strange += stack.answersItsQuery(row, column) ? 0 : 1;
    }
    return strange == 0 ? "" : std::to_string(strange) + " band stack values came through damaged or out of order";
}

FileKind memoryKind(Program& program) {
    return {"memory",
            "mem",
            {[&program] {
                 program.memory.reader.mnu_saveMem_Click();
                 return std::nullopt;
             },
             &program.memory.reader.ended,
             [&program] { return memoryObjection(program.memory.reader); },
             {}},
            {[&program] {
                 program.memory.restorer.mnu_restMem_Click();
                 return std::nullopt;
             },
             &program.memory.restorer.ended,
             {},
             {}}};
}

FileKind memoryListKind(Program& program) {
    MemoryManager& memory = program.memory;
    return {"list",
            "mef",
            {[&memory] {
                 memory.list.replaceAll({});  // what the window shows as a sample is no channel
                 memory.reader.mnu_MemSaveFromFT2000_Click();
                 return std::nullopt;
             },
             &memory.reader.ended, [&memory] { return memoryObjection(memory.reader); },
             [&memory] { return memory.listFiles.saveListFile(); }},
            {[&memory]() -> std::optional<TransferEnd> {
                 const TransferEnd loaded = memory.listFiles.loadListFile();
                 if (loaded != TransferEnd::Done) return loaded;
                 memory.listWriter.mnu_MemRestoreTOFT2000_Click();
                 return std::nullopt;
             },
             &memory.listWriter.ended,
             {},
             {}}};
}

FileKind bandStackKind(Program& program) {
    BandStackWindow& window = program.bandStackWindow;
    return {"bandstack",
            "bsr",
            {[&window] {
                 window.mnu_readBandStack_Click();
                 return std::nullopt;
             },
             &window.reader().ended,
             [&window] { return bandStackObjection(window.stack()); },
             {}},
            {[&window]() -> std::optional<TransferEnd> {
                 const TransferEnd loaded = window.loadBandStackFile();
                 if (loaded != TransferEnd::Done) return loaded;
                 window.mnu_writeBandStack_Click();
                 return std::nullopt;
             },
             &window.writer().ended,
             {},
             {}}};
}

FileKind keyerKind(Program& program) {
    KeyerWindow& window = program.keyerWindow;
    const auto objection = [&window]() -> std::string {
        const int answered = window.reader().answered();
        if (answered == KeyerTable::memories) return {};
        return "only " + std::to_string(answered) + " of " + std::to_string(KeyerTable::memories) +
               " keyer texts were answered in time";
    };
    return {"keyer",
            "kem",
            {[&window] {
                 window.readKeyer();
                 return std::nullopt;
             },
             &window.reader().ended, objection, [&window] { return window.saveKeyerFile(); }},
            {[&window]() -> std::optional<TransferEnd> {
                 const TransferEnd loaded = window.loadKeyerFile();
                 if (loaded != TransferEnd::Done) return loaded;
                 window.writeKeyer();
                 if (!window.writer().running()) return TransferEnd::FileFailed;
                 return std::nullopt;
             },
             &window.writer().ended,
             {},
             {}}};
}

}  // namespace

std::vector<FileKind> fileKinds(Program& program) {
    return {menuKind(program), memoryKind(program), memoryListKind(program), bandStackKind(program),
            keyerKind(program)};
}

}  // namespace korvex::cli
