#pragma once

#include "memory/MemoryEditor.h"
#include "memory/MemoryList.h"
#include "memory/MemoryListEdits.h"
#include "memory/MemoryListFace.h"
#include "memory/MemoryListFiles.h"
#include "memory/MemoryListReader.h"
#include "memory/MemoryListWriter.h"
#include "memory/MemoryRestorer.h"
#include "memory/MemorySaver.h"
#include "memory/MemoryTables.h"

namespace korvex {

/// Everything about the memory channels, its parts introduced to one another. The editor's window, the list's window,
/// the terminal's menu and the command line all start the same operations of it.
class MemoryManager {
public:
    /// `files` are the menus and memories; the lists have files of their own.
    MemoryManager(CatLink& link, Clock& clock, OwnersFiles& files, const OwnersDesk& desk)
        : saver(link, files, table),
          restorer(link, files, table),
          listReader(link, desk.msgBox, table, list),
          listWriter(link, list),
          listFiles(list, desk),
          listFace(list),
          listEdits(list, listFace, desk.msgBox),
          editor(link, list, clock) {
        m_connections += listFiles.loaded.connect([this] { editor.loadEditorFromList(); });
        m_connections += list.rowsChanged.connect([this] { editor.followReading(); });
        m_connections += list.grid.currentChanged.connect([this] { followCurrentRow(); });
        m_connections += restorer.wrote.connect([this](const auto& rows) { list.noteInRadio(rows); });
        m_connections += listWriter.ended.connect([this](const Outcome& outcome) { noteWritten(outcome); });
        m_connections += listReader.listFilled.connect([this] { editor.followReading(); });
    }

    MemoryTable table;
    MemoryList list;
    MemorySaver saver;
    MemoryRestorer restorer;
    MemoryListReader listReader;
    MemoryListWriter listWriter;
    MemoryListFiles listFiles;
    MemoryListFace listFace;
    MemoryListEdits listEdits;
    MemoryEditor editor;

    /// One of the two windows was closed by its own menu: the start window's button goes back to its normal colour.
    Signal<> buttonBackToNormal;

private:
    /// Another column of the row leaves the form as it is.
    void followCurrentRow() {
        if (list.grid.Row() != editor.channelPlace + 1) editor.chooseRow(list.grid.Row());
    }
    void noteWritten(const Outcome& outcome) {
        for (const auto& [row, record] : listWriter.taken(outcome)) list.noteInRadio(row, record);
        list.rowsChanged.emit();
    }

    Connections m_connections;
};

}  // namespace korvex
