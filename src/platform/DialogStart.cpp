#include "platform/DialogStart.h"

#include <filesystem>

#include "base/AsciiText.h"

namespace korvex {

namespace {

namespace fs = std::filesystem;

bool isFolder(const fs::path& path) {
    std::error_code ignored;
    return fs::is_directory(path, ignored);
}

bool isThere(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

fs::path nearestFolder(fs::path path) {
    while (!path.empty() && !isFolder(path)) {
        if (path == path.parent_path()) return {};
        path = path.parent_path();
    }
    return path;
}

/// ".mnu" of "Flat File (*.mnu)|*.mnu|All Files (*.*)|*.*": what a file of the asked kind ends in. Empty where any
/// does.
std::string ownEnding(const std::string& filter) {
    const auto pattern = filter.find("|*.");
    if (pattern == std::string::npos) return {};
    const auto begin = pattern + 2;
    const std::string ending = filter.substr(begin, filter.find_first_of("|;", begin) - begin);
    return ending == ".*" ? "" : ending;
}

bool isOfItsKind(const fs::path& file, const std::string& ending) {
    const std::string own = file.extension().string();
    return ending.empty() || isSameWord(own, ending);
}

}  // namespace

DialogStart dialogStart(const FileDialogRequest& request) {
    const fs::path remembered(request.start);
    if (isFolder(remembered)) return {remembered.string(), {}};
    const bool saving = request.mode == FileDialogRequest::Mode::Save;
    const bool offered = isOfItsKind(remembered, ownEnding(request.filter)) &&
                         (isThere(remembered) || (saving && remembered.has_extension()));
    return {nearestFolder(remembered).string(), offered ? remembered.filename().string() : std::string()};
}

std::string withDefaultExtension(std::string file, std::string_view extension) {
    const fs::path path(file);
    if (extension.empty() || path.filename().empty() || path.has_extension()) return file;
    return file.append(".").append(extension);
}

}  // namespace korvex
