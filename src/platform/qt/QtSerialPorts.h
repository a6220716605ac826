#pragma once

#include <map>
#include <string>

#include "platform/PortNumbers.h"
#include "platform/SerialDevice.h"
#include "platform/SettingsStore.h"

namespace korvex {

/// The numbered serial ports of this machine. What the user settled on is kept in a section of its own in the settings,
/// under the number; listing alone changes nothing there.
class QtSerialPorts : public SerialPorts {
public:
    /// `given` are the command line's ports. `demo`, where there is one, is asked for port 1; both it and the settings
    /// must outlive the ports.
    explicit QtSerialPorts(SettingsStore& settings, const std::map<int, std::string>& given = {},
                           SerialPorts* demo = nullptr);

    std::unique_ptr<SerialDevice> makeDevice(int number) override;
    std::vector<SerialPortInfo> list() override;
    void remember(int number) override;
    Failure heldByOther(int number) override;

private:
    bool isDemo(int number) const { return m_demo != nullptr && number == PortNumbers::first; }
    void look();
    bool isThere(int number) const;

    SettingsStore& m_settings;
    const std::map<int, std::string> m_given;
    SerialPorts* m_demo;
    PortNumbers m_numbers;
};

}  // namespace korvex
