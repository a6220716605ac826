#pragma once

#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "platform/ChildProgram.h"
#include "platform/Database.h"

namespace korvex {

/// A file that descriptions are taken from: a table that people can edit, a database of Korvex's, or one of the desktop
/// (Jet, .mdb and .accdb), which mdbtools' mdb-export reads.
struct DescriptionSource {
    DatabaseTable table;
    bool isDatabase = false;  ///< somebody's own, with settings that were read from a radio
};

/// `content` is what the file holds. A failure names its place in the file, and mdbtools where they are missing. A
/// database that asks for a password is read without: only its own program keeps to it.
Result<DescriptionSource> descriptionsIn(Database& database, const RunChildProgram& run, const std::string& file,
                                         std::string_view content);

}  // namespace korvex
