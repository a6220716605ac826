#pragma once

#include <functional>
#include <string>

#include "menu/DescriptionDatabase.h"
#include "menu/DescriptionExchange.h"
#include "platform/ChildProgram.h"
#include "platform/Database.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// The descriptions of the menu items as a table in a file of the owner's: out of the Menu Manager's database, and into
/// it. korvexctl's "description export" and "import" do the same.
class MenuDescriptions {
public:
    MenuDescriptions(Database& database, DescriptionDatabase& descriptions, const OwnersDesk& desk,
                     std::function<std::string()> timeOfDay, RunChildProgram runChildProgram);

    /// What was done, in words; empty where nothing was.
    std::string exportTable();
    /// A table, or another database that has one (a desktop's, too): its settings columns are taken where there are
    /// none yet, else after a question. The grid shows the new descriptions at once; settings that are not saved stay
    /// in it. What was taken is told in a box.
    void importTable();

private:
    Result<DescriptionsTaken> take(const std::string& file);
    void show(const DescriptionsTaken& taken, const std::string& table);

    Database& m_database;
    DescriptionDatabase& m_descriptions;
    OwnersFiles m_files;
    std::function<std::string()> m_timeOfDay;
    RunChildProgram m_runChildProgram;
};

}  // namespace korvex
