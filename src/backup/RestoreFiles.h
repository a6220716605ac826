#pragma once

#include <string>
#include <vector>

#include "backup/Restore.h"

namespace korvex {

/// What the look at the files of a restore has found, UTF-8, a line each.
struct FilesTaken {
    std::vector<std::string> notes;   ///< files that are not there or hold nothing: the radio keeps what it has
    std::vector<std::string> doubts;  ///< files that are restored only when somebody says so
    std::string refusal;              ///< why nothing can be restored; empty when something can
};

/// A file's content, which `name` is called, into a restore.
void takeContent(Restore& restore, const FileKind& kind, const std::string& name, const std::string& content,
                 FilesTaken& taken);
/// A backup's folder into a restore: the files of every kind that has a place in it. Nothing is sent.
FilesTaken takeFolder(Restore& restore, const std::string& folder, const Backup::Checksum& checksum);

/// "2026-11-22 23:42:54", as the summary of a backup says; empty where none is.
std::string backupDate(const std::string& folder);
/// The folder that a folder or file stands in, for what is kept beside it.
std::string folderBeside(const std::string& path);
/// The safety copies in a folder whose restore has not come to its end.
std::vector<std::string> unfinishedRestores(const std::string& folder);

}  // namespace korvex
