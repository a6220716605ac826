#include "backup/BackupFolder.h"

#include <algorithm>
#include <filesystem>

#include "backup/DataItems.h"

namespace korvex {

namespace {

namespace fs = std::filesystem;

std::string folderName(std::string timeOfDay) {
    std::erase(timeOfDay, ':');
    std::replace(timeOfDay.begin(), timeOfDay.end(), ' ', '-');
    return "korvex-" + timeOfDay;
}

Failure failed(const std::string& path, const std::error_code& error) {
    return RuntimeError{errors::PathFileAccess, path + ": " + error.message()};
}

}  // namespace

std::string backupFileName(const std::string& kind) {
    return kind + "." + endingOf(kind);
}

Failure BackupFolder::make(const std::string& dir, const std::string& timeOfDay) {
    m_path = dir + "/" + folderName(timeOfDay);
    const std::string incomplete = m_path + ".incomplete";
    std::error_code error;
    if (fs::exists(m_path, error)) return RuntimeError{errors::PathFileAccess, m_path + " is there already"};
    fs::create_directories(dir, error);
    if (error) return failed(dir, error);
    // One that is there belongs to another backup, or is what a power cut has left: it is not ours to remove.
    if (!fs::create_directory(incomplete, error)) {
        if (error) return failed(incomplete, error);
        return RuntimeError{errors::PathFileAccess, incomplete + " is there already"};
    }
    m_incomplete = incomplete;
    return {};
}

Failure BackupFolder::keep() {
    std::error_code error;
    fs::rename(m_incomplete, m_path, error);
    if (error) return failed(m_path, error);
    m_incomplete.clear();
    return {};
}

void BackupFolder::drop() {
    std::error_code ignored;
    if (!m_incomplete.empty()) fs::remove_all(m_incomplete, ignored);
    m_incomplete.clear();
}

}  // namespace korvex
