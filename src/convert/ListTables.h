#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Property.h"
#include "memory/MemoryList.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// The memory list as a table for other programs, and such a table into the list. The tables have a remembered path of
/// their own. Whatever a table or the list cannot hold is told in a box.
class ListTables {
public:
    /// `told` gets one line (UTF-8) about what was done.
    ListTables(MemoryList& list, Property<std::string>& told, const OwnersDesk& desk)
        : files(desk, keys::memoryTablePath), m_list(list), m_told(told) {}

    /// A table of CHIRP's, or one for spreadsheets; its columns say which. Its channels come into their rows as one
    /// step that can be undone, the other rows stay. A table that is refused changes nothing.
    void importTable();
    void exportForChirp();
    void exportSheet();

    OwnersFiles files;

private:
    Failure take(std::string_view csv);
    void place(const std::map<int, MemoryRecord>& channels);
    /// What a list file would hold of the list. A row that is no whole channel is left out and told.
    Result<std::string> listFile();
    void write(const std::string& title, const Result<std::string>& csv);
    void tellLosses(const std::string& intro);

    MemoryList& m_list;
    Property<std::string>& m_told;
    std::string m_taken;                ///< of the import: how many, in words
    std::vector<std::string> m_losses;  ///< of the import or export that runs
};

}  // namespace korvex
