#include "app/RememberedPaths.h"

#include "platform/Settings.h"

namespace korvex {

void rememberNewFolder(SettingsStore& settings, const std::string& former, const std::string& folder) {
    if (former.empty()) return;
    for (const auto& key : keys::ownersPaths) {
        const std::string files = former + key.fallback.inProgramFolder;
        const std::string path = storedText(settings, key);
        if (path != files && !path.starts_with(files + "/")) continue;
        writeSetting(settings, key, folder + path.substr(former.size()));
    }
}

}  // namespace korvex
