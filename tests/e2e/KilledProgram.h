#pragma once

#include <chrono>
#include <string>
#include <sys/types.h>
#include <vector>

namespace korvex {

/// A program that is killed, as by a power switch, at a moment that the test chooses.
class KilledProgram {
public:
    explicit KilledProgram(std::vector<std::string> arguments);
    KilledProgram(const KilledProgram&) = delete;
    KilledProgram& operator=(const KilledProgram&) = delete;
    ~KilledProgram() { kill(); }

    /// Whether this machine lets one program watch another one's system calls.
    static bool canBeWatched();
    /// Lets it run to a moment between two system calls and kills it there: 0 is before the first one that names a file
    /// in `folder`, 1 after it, 2 before the next one. False when it came to its end before that.
    bool killAtSystemCall(const std::string& folder, int moment);

    /// Kills it some time after it began, or after it first made or renamed a file in `folder`.
    void killAfter(std::chrono::microseconds time);
    void killAfterFirstFileIn(const std::string& folder, std::chrono::microseconds time);

    void kill();

private:
    void start(bool watched);
    bool toNextSystemCall();
    bool names(const std::string& folder) const;

    std::vector<std::string> m_arguments;
    pid_t m_pid = -1;
};

}  // namespace korvex
