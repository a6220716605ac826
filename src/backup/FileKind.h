#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "backup/DataItems.h"
#include "base/RuntimeError.h"
#include "menu/MenuFile.h"

namespace korvex {

/// A kind of data file: what backup, compare, restore and the command line know of it. How it is read from the radio
/// and written into it, KindTransfers knows.
struct FileKind {
    std::string_view name;    ///< "menu": on the command line, and what its file in a backup is called
    std::string_view ending;  ///< "mnu", as the dialogs propose it
    /// What a file says, in the order in which it is sent. Refused is what the kind's own restore refuses.
    Result<DataItems> (*items)(std::string_view content);
    /// "149 menu items", of items none of which was refused; `missing` are there without what they are about.
    std::string (*holds)(const DataItems& items, std::size_t missing);
    /// Whether an item is what the kind is about: a file without any has nothing to restore.
    bool (*counts)(const DataItem& item);
    /// What a file lacks, with numbers; empty when it is whole. It is restored only when a person says so.
    std::string (*lacks)(std::string_view content, const DataItems& items) = [](std::string_view, const DataItems&) {
        return std::string();
    };
    /// Why the items cannot go into a radio; empty when they can.
    std::string (*objection)(const DataItems& items) = [](const DataItems&) { return std::string(); };
    /// What the items leave out as a whole because the radio refused it, a line each.
    std::vector<std::string> (*refusedAsAWhole)(const DataItems& items) = [](const DataItems&) {
        return std::vector<std::string>();
    };
    /// Takes out what may cut the line, in the order in which it is written last of all.
    DataItems (*takeLineItems)(DataItems& items, MenuNumbers numbers) = [](DataItems&, MenuNumbers) {
        return DataItems();
    };
    /// Place in a restore of the whole radio, from 1 on. 0: its items are those of another kind.
    int order = 0;
    /// Its items are read in a circle, beginning where the radio stands, and written a band at a time.
    bool isCircle = false;
    /// A value has as many characters as the radio's own: another number means another firmware or a damaged file.
    bool hasFixedWidths = false;
    /// What a file does not name is empty; else the file says nothing of it.
    bool absentIsEmpty = false;
    /// Not every radio tells them: a backup has no file of it where none are told, and is whole without. What is said
    /// of that, UTF-8; empty for the other kinds.
    std::string_view leftOut = {};
};

const std::vector<FileKind>& fileKinds();
/// "menu, memory, list, scanlimits, bandstack, keyer"
std::string kindNames();
/// Nothing for a name that no kind has.
const FileKind* fileKind(std::string_view name);

/// "menu.mnu": what the file of a kind is called in a backup.
std::string backupFileName(const FileKind& kind);

bool holdsAnything(const FileKind& kind, const DataItems& items);

}  // namespace korvex
