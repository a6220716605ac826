#pragma once

#include <string>

#include "base/RuntimeError.h"
#include "menu/DescriptionMerge.h"
#include "platform/Database.h"
#include "platform/TimeOfDay.h"

namespace korvex {

/// The description database as a table that people can edit, and such a table back into it.

/// `descriptionText` of the database.
Result<std::string> exportedDescriptions(Database& database, const std::string& databaseFile);

/// Whether the four settings columns are taken, with their titles.
enum class TakeSettings { No, WhereThereAreNone, Yes };

struct ImportOrder {
    std::string database;  ///< made if it is not there
    DatabaseTable table;
    TakeSettings settings = TakeSettings::No;
    std::string timeOfDay = localTimeOfDay();
};

struct DescriptionsTaken {
    DescriptionImport import;
    bool nothingNew = false;  ///< the database was left as it is
    bool settingsTaken = false;
    std::string copy;  ///< the database as it was before; empty where there was none
};

/// What was there before is copied aside. A database that is not Korvex's is not changed.
Result<DescriptionsTaken> takeDescriptions(Database& database, ImportOrder order);

/// What was taken from `table` into `database`, line by line; `aboutSettings` is a line for when the settings columns
/// stayed as they were.
std::string inWords(const DescriptionsTaken& taken, const std::string& table, const std::string& database,
                    const std::string& aboutSettings);

}  // namespace korvex
