#pragma once

#include <string>

#include "menu/SettingsHistory.h"
#include "platform/MSFlexGrid.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// Whole settings columns: from one to another, from a menu file and into one. Each change is one step of the history;
/// rows out of sight take part like all others. What was done is given back in words, empty where nothing was.
class MenuColumns {
public:
    MenuColumns(MSFlexGrid& grid, SettingsHistory& history, OwnersFiles& files)
        : m_grid(grid), m_history(history), m_files(files) {}

    /// All but the title.
    std::string copy(int from, int to);
    /// Asks for a menu file. Then the column holds what the file tells and nothing else: an item that the file does not
    /// tell is empty.
    std::string load(int column);
    /// Asks for a name, and writes the menu file that reading these settings from a radio would have made. A cell that
    /// holds no value stops it.
    std::string save(int column);

private:
    Failure take(int column, const std::string& content, std::string& told);

    MSFlexGrid& m_grid;
    SettingsHistory& m_history;
    OwnersFiles& m_files;
};

}  // namespace korvex
