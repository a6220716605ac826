#pragma once

#include <string>
#include <vector>

#include "backup/Backup.h"

namespace korvex {

/// What speaks against a backup's folder, UTF-8, a line each: it is incomplete, or a file is not as it was saved. A
/// folder without checksums, as earlier versions made them, and a program that cannot make any have nothing to hold it
/// against.
std::vector<std::string> backupFaults(const std::string& folder, const Backup::Checksum& checksum);

/// "2026-11-22 23:42:54", as the summary says; empty where none is.
std::string backupDate(const std::string& folder);

/// The safety copies in a folder whose restore has not come to its end.
std::vector<std::string> unfinishedRestores(const std::string& folder);

}  // namespace korvex
