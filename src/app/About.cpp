#include "app/About.h"

#include <chrono>
#include <ctime>

#include "base/Version.h"

namespace korvex::about {

std::string versionLabel() {
    return " Release  " + std::to_string(versionMajor) + "." + std::to_string(versionMinor) + "." +
           std::to_string(versionRevision);
}

std::string builtLabel(const std::filesystem::path& programFile) {
    const std::string label = "Built: ";
    std::error_code failed;
    const auto written = std::filesystem::last_write_time(programFile, failed);
    if (failed) return label;
    const auto seconds = std::chrono::floor<std::chrono::seconds>(std::chrono::file_clock::to_sys(written));
    const std::time_t moment = std::chrono::system_clock::to_time_t(seconds);
    const std::tm* local = std::localtime(&moment);
    char day[sizeof "yyyy-mm-dd"] = {};
    if (!local || std::strftime(day, sizeof day, "%Y-%m-%d", local) == 0) return label;
    return label + day;
}

void startSystemInfo(Shell& shell, MsgBox& msgBox) {
    if (shell.openSystemInformation()) {
        msgBox.show({"Systeminformationsprogramm zur Zeit nicht verfügbar.", "", MsgIcon::None, MsgButtons::Ok});
    }
}

}  // namespace korvex::about
