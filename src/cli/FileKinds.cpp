#include "cli/FileKinds.h"

#include "app/Objections.h"

namespace korvex::cli {

namespace {

FileKind menuKind(Program& program) {
    return {"menu",
            {[&program] {
                 program.menuReader.mnu_Store_Click();
                 return std::nullopt;
             },
             &program.menuReader.ended,
             [&program] { return objections::toMenu(program.menuCommandTable); },
             {},
             [&program] { return objections::toMenuWithRefusals(program.menuCommandTable); }},
            {[&program] {
                 program.menuRestore.mnu_Restore_Click();
                 return std::nullopt;
             },
             &program.menuRestore.ended,
             {},
             {}}};
}

FileKind memoryKind(Program& program) {
    return {"memory",
            {[&program] {
                 program.memory.reader.mnu_saveMem_Click();
                 return std::nullopt;
             },
             &program.memory.reader.ended,
             [&program] { return objections::toMemories(program.memory.reader); },
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
            {[&memory] {
                 memory.list.replaceAll({});  // what the window shows as a sample is no channel
                 memory.reader.mnu_MemSaveFromFT2000_Click();
                 return std::nullopt;
             },
             &memory.reader.ended, [&memory] { return objections::toMemories(memory.reader); },
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
            {[&window] {
                 window.mnu_readBandStack_Click();
                 return std::nullopt;
             },
             &window.reader().ended,
             [&window] { return objections::toBandStack(window.stack()); },
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
    return {"keyer",
            {[&window] {
                 window.readKeyer();
                 return std::nullopt;
             },
             &window.reader().ended, [&window] { return objections::toKeyerTexts(window.reader()); },
             [&window] { return window.saveKeyerFile(); }},
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
