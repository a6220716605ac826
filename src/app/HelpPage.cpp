#include "app/HelpPage.h"

namespace korvex {

namespace fs = std::filesystem;

fs::path helpPage(const fs::path& programFolder) {
    const fs::path page = fs::path("helpfile") / "help.html";
    for (const char* folder : {".", "../share/korvex", "../../data", "../data"}) {
        const fs::path candidate = (programFolder / folder / page).lexically_normal();
        std::error_code failed;
        if (fs::is_regular_file(candidate, failed)) return candidate;
    }
    return programFolder / page;
}

}  // namespace korvex
