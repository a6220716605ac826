#include "cli/FileKinds.h"

#include "bandstack/BandStackFile.h"
#include "memory/MemoryFile.h"
#include "memory/MemoryListFile.h"
#include "menu/MenuFile.h"

namespace korvex::cli {

namespace {

using WriteText = std::function<void(const std::string& text)>;

/// The kind that a reading of the whole backup has a file of.
FileKind kindOf(const std::string& name, const BackupReading& reading, WriteText write,
                Signal<const Outcome&>& writeEnded) {
    const Transfer read = {reading.start, reading.ended, false, reading.objection, {}};
    Transfer readWhole = read;
    if (reading.gap) readWhole.objection = reading.gap;
    readWhole.remarks = reading.remarks;
    const auto text = [&reading, name] {
        for (auto& file : reading.files()) {
            if (file.kind == name) return file.content;
        }
        return std::string();
    };
    const auto writing = [write = std::move(write), &writeEnded](const std::string& content) {
        return Transfer{[write, content] { write(content); }, &writeEnded};
    };
    return {name, readWhole, read, text, writing};
}

void writeMenu(Program& program, const std::string& text) {
    if (const auto lines = menuFileLines(text)) program.menuWriter.write(apartFromCatLines(*lines).items);
}

void writeMemories(Program& program, const std::string& text) {
    if (const auto lines = parseMemoryFile(text)) program.memory.restorer.write(*lines);
}

void writeList(Program& program, const std::string& text) {
    const auto records = parseMemoryListFile(text);
    if (!records) return;
    program.memory.list.replaceAll(*records);
    program.memory.listWriter.mnu_MemRestoreTOFT2000_Click();
}

void writeBandStack(Program& program, const std::string& text) {
    if (const auto cells = parseBandStackText(text)) program.bandStackWindow.writer().write(*cells);
}

void writeKeyer(Program& program, const std::string& text) {
    const auto items = dataItems("keyer", text);
    if (!items) return;
    KeyerTexts texts;
    int memory = 0;
    for (const auto& item : *items) keyerText(texts, ++memory) = WireText(item.value);
    program.keyerWindow.writer().write(texts);
}

}  // namespace

std::vector<FileKind> fileKinds(Program& program) {
    const BackupReadings& readings = program.backup.readings();
    const auto writing = [&program](void (*write)(Program&, const std::string&)) {
        return [&program, write](const std::string& text) { write(program, text); };
    };
    return {
        kindOf("menu", readings.of("menu"), writing(writeMenu), program.menuWriter.ended),
        kindOf("memory", readings.of("memory"), writing(writeMemories), program.memory.restorer.ended),
        kindOf("list", readings.of("list"), writing(writeList), program.memory.listWriter.ended),
        kindOf("bandstack", readings.of("bandstack"), writing(writeBandStack), program.bandStackWindow.writer().ended),
        kindOf("keyer", readings.of("keyer"), writing(writeKeyer), program.keyerWindow.writer().ended)};
}

}  // namespace korvex::cli
