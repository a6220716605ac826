#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Property.h"
#include "platform/Clock.h"
#include "platform/LineSettings.h"
#include "platform/MSComm.h"
#include "platform/SerialDevice.h"

namespace korvex {

/// Looks for the radio: asks "ID;" and nothing else, port by port, at each speed that the radio's menu 028 offers (8
/// data bits, no parity, 2 stop bits, no handshaking; RTS and DTR stay low). A port that another program has is left
/// alone. Each speed is asked for 800 ms at least; the first FT-2000 that answers ends the search.
class RadioSearch {
public:
    struct Found {
        int port = 0;
        LineSettings line;
        std::string device;  ///< which device and adapter it is, UTF-8
    };

    RadioSearch(SerialPorts& ports, Clock& clock);

    /// Begins with this port and this speed, if they are among those that come into question. The ports must be closed.
    enum class Where { AllPorts, FirstPortOnly };
    void start(int firstPort, int firstSpeed, Where where = Where::AllPorts);
    /// The port that is being asked is closed; `found` stays empty.
    void cancel();

    Property<bool> running{false};
    Property<std::string>
        status;              ///< UTF-8: what is being tried; at the end what came of it, with a line for each port
    Property<int> tried{0};  ///< of `tries`
    Property<int> tries{0};
    Signal<const Found&> found;

private:
    void tick();
    void beginTry();
    void ask();
    void take(std::string_view wire);
    void takeAnswer(std::string_view answer);
    void nextSpeed();
    void nextPort(const std::string& why);
    void end(const std::string& result);
    void stop();
    void after(int ms);
    std::string reportText() const;

    const SerialPortInfo& port() const { return m_ports[m_portIndex]; }
    int speed() const { return m_speeds[m_speedIndex]; }

    SerialPorts& m_machine;
    MSComm m_port;
    std::unique_ptr<Timer> m_timer;
    std::vector<SerialPortInfo> m_ports;
    std::vector<int> m_speeds;
    std::size_t m_portIndex = 0;
    std::size_t m_speedIndex = 0;
    int m_asked = 0;       // how often in this try
    bool m_heard = false;  // something ended in ";" in this try
    bool m_noise = false;  // something else came through this port
    std::string m_received;
    std::vector<std::string> m_report;  // a line for each port that is done
    Connections m_connections;
};

}  // namespace korvex
