#pragma once

#include <string>

#include "base/RuntimeError.h"

namespace korvex {

/// Where the program's folder may be. Paths are UTF-8.
struct ProgramPlaces {
    std::string named;    ///< by the user, for this run; empty when he named none
    std::string program;  ///< the folder of the executable
    std::string user;     ///< this user's folder for the program's data; need not exist yet
};

/// The folder that holds the description database, the help page and "files", as an absolute path; all of it but the
/// database is made where it is missing. It is the named folder; else the executable's own, so that an unpacked program
/// keeps everything together; else, for an installed program or where nothing can be written, the user's. The help page
/// is brought there from where the program was installed, and again when a newer one is installed.
Result<std::string> makeProgramFolder(const ProgramPlaces& places);

}  // namespace korvex
