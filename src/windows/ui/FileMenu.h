#pragma once

#include <functional>
#include <string>
#include <vector>

class QMenu;

namespace korvex {

/// What the entries for files do.
struct FileMenuCalls {
    std::function<void()> ask;                              ///< "Open File..."
    std::function<std::vector<std::string>()> recent;       ///< UTF-8, newest first
    std::function<void(const std::string& file)> openThis;  ///< one of them was picked
};

/// Adds "Open File..." (Ctrl+O) and "Recent Files" at the end of a menu. The list is made when it is to be seen.
void addFileEntries(QMenu& menu, const FileMenuCalls& calls);

}  // namespace korvex
