#include "app/RememberedPaths.h"

namespace korvex {

void rememberNewFolder(SettingsStore& settings, const std::string& former, const std::string& folder) {
    if (former.empty()) return;
    const std::string files = former + "/files";
    for (const auto key : {"SavePath", "SavePath3", "SavePathBand", "SaveKeyer", "SavePathBackup"}) {
        const std::string path = settings.get(applicationName, settingsSection, key, "");
        if (path != files && !path.starts_with(files + "/")) continue;
        settings.save(applicationName, settingsSection, key, folder + path.substr(former.size()));
    }
}

}  // namespace korvex
