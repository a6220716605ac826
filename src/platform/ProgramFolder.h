#pragma once

#include <string>
#include <string_view>

#include "base/RuntimeError.h"

namespace korvex {

/// The description database in the program's folder.
inline constexpr std::string_view descriptionDatabaseName = "FT2000_Menu.mdb";

/// Where the program's folder may be. Paths are UTF-8.
struct ProgramPlaces {
    std::string named;    ///< by the user, for this run; empty when he named none
    std::string program;  ///< the folder of the executable
    std::string user;     ///< this user's folder for the program's data; need not exist yet
};

/// The folder that holds the description database, the help page and "files", as an absolute path; what is missing
/// there is made or brought. It is the named folder; else the executable's own, so that an unpacked program keeps
/// everything together; else, for an installed program or where nothing can be written, the user's. The help page is
/// brought there from where the program was installed, and again when a newer one is installed; the database only where
/// there is none.
Result<std::string> makeProgramFolder(const ProgramPlaces& places);

/// The database that `makeProgramFolder` would lead to, without making or bringing anything: the one in the program's
/// folder, else the one that was shipped; empty when there is none.
std::string findDescriptionDatabase(const ProgramPlaces& places);

}  // namespace korvex
