#include "memory/MemoryListFiles.h"

#include "cat/SaveOutcome.h"
#include "memory/EmptyOverFull.h"
#include "memory/MemoryListFile.h"
#include "memory/UnsavedList.h"
#include "platform/Settings.h"
#include "platform/TextFile.h"

namespace korvex {

namespace {

constexpr std::string_view filter = "Flat File (*.mef)|*.mef|All Files (*.*)|*.*";
constexpr std::string_view extension = "mef";

bool holdsChannels(const std::string& content) {
    const auto records = parseMemoryListFile(content);
    return records && !records->empty();
}

}  // namespace

MemoryListFiles::MemoryListFiles(MemoryList& list, Terminal& terminal, SettingsStore& settings, FileDialog& fileDialog,
                                 const std::string& programFolder)
    : txtPath(readSetting(settings, keys::memoryListPath, programFolder)),
      m_list(list),
      m_terminal(terminal),
      m_settings(settings),
      m_fileDialog(fileDialog) {}

void MemoryListFiles::storePath() {
    writeSetting(m_settings, keys::memoryListPath, txtPath);
}

FileDialogRequest MemoryListFiles::request(FileDialogRequest::Mode mode) const {
    const bool opens = mode == FileDialogRequest::Mode::Open;
    return {mode, opens ? "Load Memory File in to List" : "Save Memory List in to File", std::string(filter), txtPath,
            std::string(extension)};
}

void MemoryListFiles::remember(const std::string& file) {
    txtPath = file;
    storePath();
}

Outcome::Kind MemoryListFiles::tell(const RuntimeError& error) {
    m_terminal.tellFileError(error, {.pathNotFound = "Path wrong "});
    return Outcome::Kind::FileFailed;
}

Outcome::Kind MemoryListFiles::loadListFile() {
    if (!mayLoseEdits(m_list, m_terminal.msgBox())) return Outcome::Kind::Cancelled;
    const auto file = m_fileDialog.show(request(FileDialogRequest::Mode::Open));
    if (!file) return Outcome::Kind::Cancelled;
    const auto content = textfile::read(*file);
    if (!content) return tell(content.error());
    const auto records = parseMemoryListFile(*content);
    if (!records) return tell({records.error().number, records.error().text + ". The list stays as it is."});
    remember(*file);
    m_list.replaceAll(*records);
    loaded.emit();
    return Outcome::Kind::Done;
}

Outcome::Kind MemoryListFiles::saveListFile() {
    const auto content = memoryListFileText(m_list);
    if (!content) return tell(content.error());
    const Saved saved = saveByDialog(
        m_fileDialog, request(FileDialogRequest::Mode::Save), *content,
        [this](const RuntimeError& error) { tell(error); },
        [&](const std::string& file) { return holdsChannels(*content) || mayBeEmptied(file, m_terminal.msgBox()); });
    if (saved.file) {
        remember(*saved.file);
        m_list.noteSaved();
    }
    return outcomeOf(saved);
}

}  // namespace korvex
