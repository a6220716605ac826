#pragma once

#include <string>

#include "memory/MemoryEditor.h"
#include "memory/MemoryList.h"
#include "memory/MemoryListFiles.h"
#include "memory/MemoryListWriter.h"
#include "memory/MemoryReader.h"
#include "memory/MemoryRestorer.h"
#include "memory/MemoryTables.h"

namespace korvex {

/// Everything about the memory channels, its parts introduced to one another. The editor's window, the list's window,
/// the terminal's menu and the command line all start the same operations of it.
class MemoryManager {
public:
    MemoryManager(Terminal& terminal, Clock& clock, SettingsStore& settings, FileDialog& fileDialog,
                  const std::string& programFolder)
        : reader(terminal, clock, table, list),
          restorer(terminal, clock, table),
          listWriter(terminal, clock, list),
          listFiles(list, terminal, settings, fileDialog, programFolder),
          editor(terminal.link(), list, clock) {
        m_connections += listFiles.loaded.connect([this] { editor.loadEditorFromList(); });
        m_connections += reader.listFilled.connect([this] { editor.followReading(); });
    }

    MemoryTable table;
    MemoryList list;
    MemoryReader reader;
    MemoryRestorer restorer;
    MemoryListWriter listWriter;
    MemoryListFiles listFiles;
    MemoryEditor editor;

    /// One of the two windows was closed by its own menu: the start window's button goes back to its normal colour.
    Signal<> buttonBackToNormal;

private:
    Connections m_connections;
};

}  // namespace korvex
