#pragma once

#include "base/Signal.h"
#include "cat/Outcome.h"
#include "memory/MemoryList.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// Loads the list from a memory list file and saves it into one. The list has a remembered path of its own.
class MemoryListFiles {
public:
    MemoryListFiles(MemoryList& list, const OwnersDesk& desk) : files(desk, keys::memoryListPath), m_list(list) {}

    /// "Load Memory File in to List". The list stays as it is unless the whole file could be read; unsaved changes are
    /// asked about.
    Outcome::Kind loadListFile();
    /// "Save Memory List in to File". A list without channels over a file that has some is asked about.
    Outcome::Kind saveListFile();

    OwnersFiles files;  ///< its path is also the panel "filepath"
    Signal<> loaded;    ///< the list holds a file's content now

private:
    void tell(const RuntimeError& error) { files.tell(error, "Path wrong "); }
    Failure take(const std::string& content);

    MemoryList& m_list;
};

}  // namespace korvex
