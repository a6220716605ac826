#pragma once

#include <gtest/gtest.h>
#include <string>

#include "cli/CliBench.h"

namespace korvex::cli {

/// korvexctl, and the backup that it makes in `dir`.
struct BackupTest : testing::Test {
    CliBench bench;
    const std::string dir = bench.folder.file("backups");
    const std::string backup = dir + "/korvex-2026-11-22-234254";

    std::string file(const std::string& name) const { return backup + "/" + name; }
    std::string saved(const std::string& name) const { return fakes::fileContent(file(name)); }
    bool said(const std::string& text) const { return bench.out.str().find(text) != std::string::npos; }
};

}  // namespace korvex::cli
