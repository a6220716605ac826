#include "backup/RestoreFiles.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

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

/// A folder without checksums, as earlier versions made them, and a program that cannot make any have nothing to hold
/// the files against.
std::vector<std::string> faultsOf(const std::string& folder, const Backup::Checksum& checksum) {
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

struct FileContent {
    const FileKind& kind;
    std::string name;
    const std::string& content;
};

void takeItems(Restore& restore, const FileContent& file, DataItems items, FilesTaken& taken) {
    const std::string lacks = file.kind.lacks(file.content, items);
    if (const auto failure = restore.take(file.kind, std::move(items))) {
        taken.refusal = file.name + ": " + failure->text;
    } else if (!lacks.empty()) {
        taken.doubts.push_back(file.name + ": " + lacks);
    }
}

bool isThere(const std::string& file) {
    std::error_code ignored;
    return fs::exists(file, ignored);
}

/// Whether it was taken. One that holds nothing is left out, so that a backup without keyer texts is one.
bool takeFile(Restore& restore, const FileKind& kind, const std::string& folder, FilesTaken& taken) {
    const std::string name = backupFileName(kind);
    const std::string path = folder + "/" + name;
    const auto content = textfile::read(path);
    auto items = content ? kind.items(*content) : Result<DataItems>(content.error());
    if (!isThere(path) && !kind.leftOut.empty()) return false;  // as in the backup of a radio that tells none
    if (!isThere(path)) {
        taken.notes.push_back("there is no " + name + ": the radio keeps what it has");
    } else if (!items) {
        taken.refusal = content ? path + ": " + items.error().text : items.error().text;
    } else if (!holdsAnything(kind, *items)) {
        taken.notes.push_back(name + " holds nothing: the radio keeps what it has");
    } else {
        takeItems(restore, {kind, path, *content}, std::move(*items), taken);
        return true;
    }
    return false;
}

}  // namespace

void takeContent(Restore& restore, const FileKind& kind, const std::string& name, const std::string& content,
                 FilesTaken& taken) {
    auto items = kind.items(content);
    if (!items) {
        taken.refusal = name + ": " + items.error().text;
    } else if (!holdsAnything(kind, *items)) {
        taken.refusal = name + ": there is nothing in it that could be restored as " + std::string(kind.name);
    } else {
        takeItems(restore, {kind, name, content}, std::move(*items), taken);
    }
}

FilesTaken takeFolder(Restore& restore, const std::string& folder, const Backup::Checksum& checksum) {
    FilesTaken taken{{}, faultsOf(folder, checksum), {}};
    bool holdsAny = false;
    for (const auto& kind : fileKinds()) {
        if (kind.order == 0) continue;
        holdsAny = takeFile(restore, kind, folder, taken) || holdsAny;
        if (!taken.refusal.empty()) return taken;
    }
    if (!holdsAny) taken.refusal = folder + " holds no file of a backup";
    return taken;
}

std::string backupDate(const std::string& folder) {
    constexpr std::string_view head = "Backup of ";
    const auto summary = textfile::read(folder + "/summary.txt");
    if (!summary || !summary->starts_with(head)) return {};
    return summary->substr(head.size(), summary->find('\n') - head.size());
}

std::string folderBeside(const std::string& path) {
    const fs::path normal = fs::path(path).lexically_normal();
    const fs::path plain = normal.has_filename() ? normal : normal.parent_path();
    if (plain.filename() == "." || plain.filename() == "..") return (plain / "..").string();
    return plain.has_parent_path() ? plain.parent_path().string() : ".";
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
