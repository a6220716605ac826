#pragma once

#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "radio/SimulatedRadio.h"

namespace korvex::pty {

/// Keeps a radio's state in a file: read at the start, written a little after changes and at the end.
class StateFile {
public:
    StateFile(SimulatedRadio& radio, std::string path) : m_radio(radio), m_path(std::move(path)) {}

    /// A file that does not exist yet is no failure. Lines that make no sense are told on stderr.
    Failure load();

    /// Looks whether commands have changed something.
    void lookForChanges(double nowMs);
    std::optional<double> nextDue() const { return m_writeAt; }
    Failure writeIfDue(double nowMs);
    Failure writeNow();

private:
    SimulatedRadio& m_radio;
    std::string m_path;
    std::string m_written;
    int m_timesSet = 0;
    std::optional<double> m_writeAt;
};

}  // namespace korvex::pty
