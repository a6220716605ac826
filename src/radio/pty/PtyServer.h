#pragma once

#include <deque>
#include <string>

#include "platform/posix/Pty.h"
#include "radio/RadioLine.h"
#include "radio/pty/Options.h"
#include "radio/pty/StateFile.h"
#include "radio/pty/TrafficLog.h"

namespace korvex::pty {

/// The simulated radio on a pseudo terminal.
class PtyServer {
public:
    explicit PtyServer(const Options& options);

    /// Opens what the options name.
    Failure start();
    const std::string& deviceName() const { return m_pty.deviceName(); }

    /// Serves until a signal ends the program or the radio's plug is pulled.
    void serve();

    /// Writes the state for the last time.
    Failure finish() { return m_stateFile.writeNow(); }

private:
    Failure loadReport();
    /// A character on its way to the radio.
    struct Coming {
        double at;
        char character;
    };

    void waitForSomething();
    void exchange();
    void hear();
    double now() const;

    Options m_options;
    SimulatedRadio m_radio;
    RadioLine m_line{m_radio};
    Pty m_pty;
    std::deque<Coming> m_coming;
    StateFile m_stateFile;
    TrafficLog m_log;
    double m_startMs;
};

}  // namespace korvex::pty
