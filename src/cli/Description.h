#pragma once

#include <iostream>
#include <ostream>
#include <string>

#include "cli/CommandLine.h"
#include "cli/Comparison.h"
#include "cli/Files.h"
#include "platform/ChildProgram.h"
#include "platform/Database.h"
#include "platform/TimeOfDay.h"

namespace korvex::cli {

/// Writes the description database out as a table that people can edit. "-" is standard output, and
/// standard input for the import.
ExitCode exportDescription(Database& database, const std::string& databaseFile, const std::string& file,
                           std::ostream& err, const Files& files = {std::cin, std::cout});

struct TableToImport {
    std::string database;  ///< made if it is not there
    std::string file;
    bool withSettings = false;  ///< the four settings columns, too
    std::string timeOfDay = localTimeOfDay();
    RunChildProgram runChildProgram = {};  ///< for desktop databases
};

/// Takes such a table, or another database with one, into the description database. The settings columns stay, unless
/// there are none and a database has some; what was there before is copied aside, and the output says where to and what
/// was taken. A file that is no such table, and a database that is not Korvex's, change nothing.
ExitCode importDescription(Database& database, const TableToImport& table, std::ostream& out, std::ostream& err,
                           const Files& files = {std::cin, std::cout});

}  // namespace korvex::cli
