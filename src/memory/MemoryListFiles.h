#pragma once

#include <string>

#include "base/Property.h"
#include "base/Signal.h"
#include "memory/MemoryList.h"
#include "platform/FileDialog.h"
#include "platform/SettingsStore.h"
#include "terminal/Terminal.h"

namespace korvex {

/// Loads the list from a memory list file and saves it into one. The list has a remembered path of its own.
class MemoryListFiles {
public:
    MemoryListFiles(MemoryList& list, Terminal& terminal, SettingsStore& settings, FileDialog& fileDialog,
                    const std::string& programFolder);

    /// "Load Memory File in to List". The list stays as it is unless the whole file could be read; unsaved changes are
    /// asked about.
    Outcome::Kind loadListFile();
    /// "Save Memory List in to File". A list without channels over a file that has some is asked about.
    Outcome::Kind saveListFile();
    /// Keeps the path for the next start; done by itself whenever a file was chosen.
    void storePath();

    Property<std::string> txtPath;  ///< UTF-8; also the panel "filepath"
    Signal<> loaded;                ///< the list holds a file's content now

private:
    FileDialogRequest request(FileDialogRequest::Mode mode) const;
    void remember(const std::string& file);
    Outcome::Kind tell(const RuntimeError& error);

    MemoryList& m_list;
    Terminal& m_terminal;
    SettingsStore& m_settings;
    FileDialog& m_fileDialog;
};

}  // namespace korvex
