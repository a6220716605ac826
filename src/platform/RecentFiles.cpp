#include "platform/RecentFiles.h"

#include "platform/Settings.h"

namespace korvex::recentfiles {

std::vector<std::string> list(const SettingsStore& settings) {
    std::vector<std::string> files;
    for (std::size_t place = 1; place <= most; ++place) {
        auto file = readSetting(settings, keys::recentFile(place));
        if (!file.empty()) files.push_back(std::move(file));
    }
    return files;
}

void add(SettingsStore& settings, const std::string& file) {
    auto files = list(settings);
    if (!files.empty() && files.front() == file) return;
    std::erase(files, file);
    files.insert(files.begin(), file);
    for (std::size_t place = 1; place <= most && place <= files.size(); ++place) {
        writeSetting(settings, keys::recentFile(place), files[place - 1]);
    }
}

}  // namespace korvex::recentfiles
