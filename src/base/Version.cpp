#include "base/Version.h"

#include "base/Commit.h"

namespace korvex {

std::string versionWithCommit() {
    const std::string release(versionText);
    return commit.empty() ? release : release + " (" + std::string(commit) + ")";
}

}  // namespace korvex
