#pragma once

#include <csignal>
#include <optional>

#include "radio/RadioLine.h"
#include "radio/pty/Options.h"
#include "radio/pty/Pty.h"
#include "radio/pty/StateFile.h"
#include "radio/pty/TrafficLog.h"

namespace korvex::pty {

/// The simulated radio on a pseudo terminal.
class PtyServer {
public:
    explicit PtyServer(const Options& options);

    /// Opens what the options name; the device's name is on stdout afterwards.
    Failure start();

    /// Serves until `ended` is set by a signal or the radio's plug is pulled. The signals are let in only while nothing
    /// goes on, with `whileWaiting` as the mask.
    void serve(const volatile std::sig_atomic_t& ended, const sigset_t& whileWaiting);

    /// Writes the state for the last time.
    Failure finish() { return m_stateFile.writeNow(); }

private:
    void waitForSomething(const sigset_t& whileWaiting);
    void exchange();
    double now() const;

    Options m_options;
    SimulatedRadio m_radio;
    RadioLine m_line{m_radio};
    Pty m_pty;
    StateFile m_stateFile;
    TrafficLog m_log;
    double m_startMs;
};

}  // namespace korvex::pty
