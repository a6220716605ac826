#include "platform/BuildTree.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/ProgramFolder.h"

namespace korvex {

namespace {

namespace fs = std::filesystem;

bool isTaken(const fs::path& path) {
    std::error_code ignored;
    return fs::symlink_status(path, ignored).type() != fs::file_type::not_found;
}

std::vector<fs::path> entriesOf(const fs::path& folder) {
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        entries.push_back(it->path());
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

bool isAsShipped(const fs::path& buildFolder) {
    const std::string shipped = contentOf(buildFolder / "data" / descriptionDatabaseName);
    return !shipped.empty() && contentOf(buildFolder / descriptionDatabaseName) == shipped;
}

/// To another disk, too: there the copy is whole before it gets its name, and the original goes last.
std::error_code move(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::create_directories(to.parent_path(), error);
    if (!error) fs::rename(from, to, error);
    if (error != std::errc::cross_device_link) return error;
    const fs::path beside = to.string() + ".unfinished";
    error.clear();
    fs::remove_all(beside, error);
    fs::copy(from, beside, fs::copy_options::recursive | fs::copy_options::copy_symlinks, error);
    if (!error) fs::rename(beside, to, error);
    std::error_code ignored;
    fs::remove_all(error ? beside : from, ignored);
    return error;
}

fs::path freeFolderIn(const fs::path& folder) {
    fs::path candidate = folder / "from-build";
    for (int n = 2; isTaken(candidate); ++n) candidate = folder / ("from-build-" + std::to_string(n));
    return candidate;
}

/// The database and what belongs to it by name stay together, for an unfinished change of it is in a file beside it.
bool belongsToDatabase(const std::string& name) {
    return name.starts_with(descriptionDatabaseName);
}

std::string listed(const std::vector<std::string>& lines) {
    constexpr std::size_t most = 12;  // a box must fit the screen
    std::string text;
    for (std::size_t i = 0; i < std::min(lines.size(), most); ++i) text += "\n    " + lines[i];
    if (lines.size() > most) text += "\n    and " + std::to_string(lines.size() - most) + " more";
    return text;
}

}  // namespace

bool isInBuildTree(const std::string& folder) {
    for (fs::path path = fs::path(folder).lexically_normal();; path = path.parent_path()) {
        if (isTaken(path / "CMakeCache.txt")) return true;
        if (path == path.parent_path()) return false;
    }
}

std::vector<std::string> ownersThingsIn(const std::string& buildFolder) {
    const fs::path folder(buildFolder);
    std::vector<std::string> names;
    for (const auto& entry : entriesOf(folder / "files")) names.push_back("files/" + entry.filename().string());
    if (isAsShipped(folder)) return names;
    for (const auto& entry : entriesOf(folder)) {
        if (belongsToDatabase(entry.filename().string())) names.push_back(entry.filename().string());
    }
    return names;
}

std::string moveOutOfBuildTree(const std::string& buildFolder, const std::string& folder) {
    const auto names = ownersThingsIn(buildFolder);
    const bool databaseTaken = std::any_of(names.begin(), names.end(), [&](const std::string& name) {
        return belongsToDatabase(name) && isTaken(fs::path(folder) / name);
    });
    const fs::path aside = freeFolderIn(folder);
    std::vector<std::string> moved;
    std::vector<std::string> stayed;
    for (const auto& name : names) {
        const bool taken = belongsToDatabase(name) ? databaseTaken : isTaken(fs::path(folder) / name);
        const fs::path target = (taken ? aside : fs::path(folder)) / name;
        const auto error = move(fs::path(buildFolder) / name, target);
        if (error) stayed.push_back(name + ": " + error.message());
        if (!error) moved.push_back(target.string());
    }
    std::string news;
    if (!moved.empty()) {
        news = "Your files were in the build folder " + buildFolder + ", and would have gone with it. They are now" +
               listed(moved);
    }
    if (!stayed.empty()) {
        news += (news.empty() ? "" : "\n") + ("These could not be moved out of the build folder " + buildFolder) +
                listed(stayed);
    }
    return news;
}

}  // namespace korvex
