#include "memory/MemoryListFiles.h"

#include "cat/FileToRestore.h"
#include "memory/EmptyOverFull.h"
#include "memory/MemoryListFile.h"
#include "memory/UnsavedList.h"

namespace korvex {

namespace {

bool holdsChannels(const std::string& content) {
    const auto records = parseMemoryListFile(content);
    return records && !records->empty();
}

}  // namespace

Failure MemoryListFiles::take(const std::string& content) {
    const auto records = parseMemoryListFile(content);
    if (!records) return RuntimeError{records.error().number, records.error().text + ". The list stays as it is."};
    m_list.replaceAll(*records);
    return {};
}

Outcome::Kind MemoryListFiles::loadListFile() {
    if (!mayLoseEdits(m_list, files.msgBox())) return Outcome::Kind::Cancelled;
    const FileEnd end = files.read({"Load Memory File in to List", "mef"},
                                   [this](const std::string& content) { return take(content); });
    if (end.failure) tell(*end.failure);
    if (outcomeOf(end) == Outcome::Kind::Done) loaded.emit();
    return outcomeOf(end);
}

Outcome::Kind MemoryListFiles::saveListFile() {
    const auto content = memoryListFileText(m_list);
    if (!content) {
        tell(content.error());
        return Outcome::Kind::FileFailed;
    }
    const FileEnd end = files.write(
        {"Save Memory List in to File", "mef"}, *content, [this](const RuntimeError& error) { tell(error); },
        [&](const std::string& file) { return holdsChannels(*content) || mayBeEmptied(file, files.msgBox()); });
    if (outcomeOf(end) == Outcome::Kind::Done) m_list.noteSaved();
    return outcomeOf(end);
}

}  // namespace korvex
