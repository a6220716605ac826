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

struct ProgramFolder {
    std::string path;    ///< absolute
    std::string former;  ///< the folder in a build tree that such a program used before; else empty
    std::string news;    ///< what the owner has to know about his files; mostly empty
};

/// The folder that holds the description database, the help page and "files"; what is missing there is made or brought.
/// It is the named folder; else the executable's own, so that an unpacked program keeps everything together; else, for
/// a program that is installed, stands in a build tree or may not write where it is, the user's. What an owner has in a
/// build tree is moved to the user's folder. The help page is brought there from where the program was installed, and
/// again when a newer one is installed; the database only where there is none.
Result<ProgramFolder> makeProgramFolder(const ProgramPlaces& places);

/// The description database that came with the program; empty when there is none.
std::string shippedDescriptions(const ProgramPlaces& places);

/// The database that `makeProgramFolder` would lead to, without making or moving anything: the one in the program's
/// folder, else the one that was shipped; empty when there is none.
std::string findDescriptionDatabase(const ProgramPlaces& places);

}  // namespace korvex
