#include "backup/BackupFolder.h"

#include <algorithm>
#include <filesystem>

namespace korvex {

namespace {

namespace fs = std::filesystem;

std::string folderName(std::string timeOfDay) {
    std::erase(timeOfDay, ':');
    std::replace(timeOfDay.begin(), timeOfDay.end(), ' ', '-');
    return "korvex-" + timeOfDay;
}

constexpr int mostNumber = 99;  // of copies in a second

Failure taken(const std::string& path) {
    return RuntimeError{errors::PermissionDenied, path + " is there already"};
}

bool isTaken(const Failure& failure) {
    return failure && failure->number == errors::PermissionDenied;
}

Failure failed(const std::string& path, const std::error_code& error) {
    return RuntimeError{errors::PathFileAccess, path + ": " + error.message()};
}

}  // namespace

Failure BackupFolder::make(const std::string& dir, const std::string& timeOfDay, const std::string& suffix) {
    std::error_code error;
    fs::create_directories(dir, error);
    if (error) return failed(dir, error);
    const std::string first = dir + "/" + folderName(timeOfDay) + suffix;
    Failure failure = makeNamed(first);
    for (int number = 2; number <= mostNumber && !suffix.empty() && isTaken(failure); ++number) {
        failure = makeNamed(first + "-" + std::to_string(number));
    }
    return failure;
}

/// One that is there belongs to another backup, or is what a power cut has left: it is not ours to remove.
Failure BackupFolder::makeNamed(const std::string& path) {
    m_path = path;
    const std::string incomplete = path + std::string(incompleteEnding);
    std::error_code error;
    if (fs::exists(path, error)) return taken(path);
    if (!fs::create_directory(incomplete, error)) return error ? failed(incomplete, error) : taken(incomplete);
    m_incomplete = incomplete;
    return {};
}

Failure BackupFolder::adopt(const std::string& incomplete) {
    std::error_code error;
    const bool isOne = incomplete.ends_with(incompleteEnding) && fs::is_directory(incomplete, error);
    if (!isOne) return RuntimeError{errors::PathNotFound, incomplete + " is no unfinished backup"};
    m_path = incomplete.substr(0, incomplete.size() - incompleteEnding.size());
    if (fs::exists(m_path, error)) return taken(m_path);
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
