#include "backup/BackupCheck.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "backup/Restore.h"
#include "platform/TextFile.h"

namespace korvex {

namespace {

namespace fs = std::filesystem;

/// "SUM  NAME", as sha256sum writes it.
std::string faultOf(const std::string& folder, const std::string& line, const Backup::Checksum& checksum) {
    const auto gap = line.find("  ");
    if (gap == std::string::npos) return line.empty() ? "" : std::string(checksumFileName) + " is damaged";
    const std::string name = line.substr(gap + 2);
    // A name that leads out of the folder would read what is not ours.
    if (name.find('/') != std::string::npos) return std::string(checksumFileName) + " is damaged";
    const auto content = textfile::read(folder + "/" + name);
    if (!content) return content.error().text;
    return checksum(*content) == line.substr(0, gap) ? "" : name + " is not as it was saved";
}

}  // namespace

std::vector<std::string> backupFaults(const std::string& folder, const Backup::Checksum& checksum) {
    std::vector<std::string> faults;
    const std::string name = fs::path(folder).lexically_normal().string();
    if (name.find(".incomplete") != std::string::npos) faults.push_back(folder + " is a backup that was cut off");
    const auto sums = textfile::read(folder + "/" + checksumFileName);
    if (!sums || !checksum) return faults;
    std::istringstream lines(*sums);
    for (std::string line; std::getline(lines, line);) {
        if (auto fault = faultOf(folder, line, checksum); !fault.empty()) faults.push_back(std::move(fault));
    }
    return faults;
}

std::string backupDate(const std::string& folder) {
    constexpr std::string_view head = "Backup of ";
    const auto summary = textfile::read(folder + "/summary.txt");
    if (!summary || !summary->starts_with(head)) return {};
    return summary->substr(head.size(), summary->find('\n') - head.size());
}

std::vector<std::string> unfinishedRestores(const std::string& folder) {
    std::vector<std::string> copies;
    std::error_code ignored;
    for (fs::directory_iterator entry(folder, ignored), end; entry != end; entry.increment(ignored)) {
        if (fs::exists(entry->path() / unfinishedRestoreName, ignored)) copies.push_back(entry->path().string());
    }
    std::sort(copies.begin(), copies.end());
    return copies;
}

}  // namespace korvex
