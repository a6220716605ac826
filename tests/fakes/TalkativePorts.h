#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "radio/SimulatedPorts.h"

namespace korvex::fakes {

/// A machine whose simulated radio also says whatever a test puts into its mouth, and where everything that the program
/// has written is kept.
class TalkativePorts : public SimulatedPorts {
public:
    using SimulatedPorts::SimulatedPorts;

    std::unique_ptr<SerialDevice> makeDevice(int number) override;

    /// These characters come in now, if the port is open. The test is the event loop: call it from outside the
    /// program's calls.
    void say(std::string_view wire);
    void changeLine(ModemLine line);

    std::string written;  ///< through whatever device, in one text

private:
    class Device;
    Device* m_open = nullptr;
};

}  // namespace korvex::fakes
