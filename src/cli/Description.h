#pragma once

#include <ostream>
#include <string>

#include "cli/CommandLine.h"
#include "cli/Comparison.h"
#include "platform/Database.h"

namespace korvex::cli {

/// Writes the description database out as a table that people can edit.
ExitCode exportDescription(Database& database, const std::string& databaseFile, const std::string& file,
                           std::ostream& err);

/// Makes the description database from such a table, or replaces the table in it. A file that is no such table, and a
/// database that is not Korvex's, change nothing.
ExitCode importDescription(Database& database, const std::string& databaseFile, const std::string& file,
                           std::ostream& err);

/// What the owner of the description database calls the menu items. It is read when the first name is asked for, and
/// never made or changed; where it is not there or has no name, the item goes by its number alone.
ItemTitles titlesFrom(Database& database, const std::string& databaseFile);

}  // namespace korvex::cli
