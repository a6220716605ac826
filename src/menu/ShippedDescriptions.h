#pragma once

#include <string>

#include "base/RuntimeError.h"
#include "platform/Database.h"

namespace korvex {

/// All records of the description table in this file.
Result<DatabaseTable> readDescriptions(Database& database, const std::string& file);

/// A shipped table that the owner's file has not seen yet fills what is empty there. No text of the owner's changes,
/// and what the owner empties later stays empty. Gives back how many cells were filled; where either file cannot be
/// read or the owner's not be written, none.
int takeShippedDescriptions(Database& database, const std::string& ownFile, const std::string& shippedFile);

}  // namespace korvex
