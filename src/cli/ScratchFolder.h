#pragma once

#include <filesystem>
#include <string>

namespace korvex::cli {

/// A folder of one's own for what is read back from the radio; gone at the end.
class ScratchFolder {
public:
    ScratchFolder() {
        std::error_code ignored;
        std::string pattern = (std::filesystem::temp_directory_path(ignored) / "korvexctl-XXXXXX").string();
        if (::mkdtemp(pattern.data()) != nullptr) m_path = pattern;
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() {
        std::error_code ignored;
        if (!m_path.empty()) std::filesystem::remove_all(m_path, ignored);
    }
    std::string file(const std::string& name) const { return (m_path / name).string(); }

private:
    std::filesystem::path m_path;
};

}  // namespace korvex::cli
