#pragma once

#include <string>
#include <string_view>

#include "base/RuntimeError.h"

namespace korvex {

/// A new folder DIR/korvex-2026-11-22-234254. It is called "....incomplete" until it is whole. One that never gets so
/// is removed, unless it is left as it is.
class BackupFolder {
public:
    BackupFolder() = default;
    BackupFolder(const BackupFolder&) = delete;
    BackupFolder& operator=(const BackupFolder&) = delete;
    ~BackupFolder() { drop(); }

    /// `timeOfDay` is "2026-11-22 23:42:54"; `suffix` stands behind it, and a number where that is there already;
    /// without one such a folder is a failure. DIR is made if it is not there.
    Failure make(const std::string& dir, const std::string& timeOfDay, const std::string& suffix = {});
    /// In its place one that was left so, "....incomplete".
    Failure adopt(const std::string& incomplete);
    bool isMade() const { return !m_incomplete.empty(); }
    const std::string& incomplete() const { return m_incomplete; }
    std::string file(const std::string& name) const { return m_incomplete + "/" + name; }
    Failure keep();
    void drop();
    /// It stays as it is, incomplete.
    void leave() { m_incomplete.clear(); }
    const std::string& path() const { return m_path; }

private:
    Failure makeNamed(const std::string& path);

    std::string m_path;
    std::string m_incomplete;  // empty when there is none
};

/// What a backup's folder is called until it is whole.
inline constexpr std::string_view incompleteEnding = ".incomplete";

}  // namespace korvex
