#pragma once

#include <string>

#include "base/RuntimeError.h"

namespace korvex {

/// "menu.mnu": what the file of a kind is called in a backup.
std::string backupFileName(const std::string& kind);

/// A new folder DIR/korvex-2026-11-22-234254. It is called "....incomplete" until it is whole, and is removed if it
/// never gets so.
class BackupFolder {
public:
    BackupFolder() = default;
    BackupFolder(const BackupFolder&) = delete;
    BackupFolder& operator=(const BackupFolder&) = delete;
    ~BackupFolder() { drop(); }

    /// `timeOfDay` is "2026-11-22 23:42:54". DIR is made if it is not there.
    Failure make(const std::string& dir, const std::string& timeOfDay);
    std::string file(const std::string& name) const { return m_incomplete + "/" + name; }
    Failure keep();
    void drop();
    const std::string& path() const { return m_path; }

private:
    std::string m_path;
    std::string m_incomplete;  // empty when there is none
};

}  // namespace korvex
