#pragma once

#include <string>

#include "backup/DataItems.h"
#include "platform/Database.h"

namespace korvex {

/// What the owner of the description database calls the menu items. It is read when the first name is asked for, and
/// never made or changed; where it is not there or has no name, the item goes by its number alone.
ItemTitles titlesFrom(Database& database, const std::string& databaseFile);

}  // namespace korvex
