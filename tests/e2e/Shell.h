#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <sys/wait.h>

namespace korvex {

struct Ended {
    int code = -1;  ///< -1: it was killed or did not start
    std::string output;
};

/// The build without Qt has no korvexctl.
inline bool hasKorvexctl() {
    return std::filesystem::exists(BINARY_DIR "/korvexctl");
}

/// Runs a command line in the shell; what it prints on both streams, and its exit code.
inline Ended run(const std::string& commandLine) {
    std::FILE* pipe = ::popen(("{ " + commandLine + "\n} 2>&1").c_str(), "re");
    Ended outcome;
    if (pipe == nullptr) return outcome;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) outcome.output += static_cast<char>(c);
    const int status = ::pclose(pipe);
    if (WIFEXITED(status)) outcome.code = WEXITSTATUS(status);
    return outcome;
}

}  // namespace korvex
