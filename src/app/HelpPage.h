#pragma once

#include <filesystem>

namespace korvex {

/// The help page: "helpfile/help.html" in the program's folder, where it was installed to beside it, or where the
/// sources keep it. The first of them that exists; the one in the program's folder when none does.
std::filesystem::path helpPage(const std::filesystem::path& programFolder);

}  // namespace korvex
