#pragma once

#include <string>

#include "base/RuntimeError.h"

namespace korvex {

/// A new folder DIR/korvex-2026-11-22-234254. It is called "....incomplete" until it is whole, and is removed if it
/// never gets so.
class BackupFolder {
public:
    BackupFolder() = default;
    BackupFolder(const BackupFolder&) = delete;
    BackupFolder& operator=(const BackupFolder&) = delete;
    ~BackupFolder() { drop(); }

    /// `timeOfDay` is "2026-11-22 23:42:54"; `suffix` stands behind it, and a number where that is there already;
    /// without one such a folder is a failure. DIR is made if it is not there.
    Failure make(const std::string& dir, const std::string& timeOfDay, const std::string& suffix = {});
    bool isMade() const { return !m_incomplete.empty(); }
    std::string file(const std::string& name) const { return m_incomplete + "/" + name; }
    Failure keep();
    void drop();
    const std::string& path() const { return m_path; }

private:
    Failure makeNamed(const std::string& path);

    std::string m_path;
    std::string m_incomplete;  // empty when there is none
};

}  // namespace korvex
