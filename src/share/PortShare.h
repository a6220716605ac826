#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/Property.h"
#include "platform/Doors.h"
#include "share/CatFace.h"
#include "share/OpeningAnswers.h"
#include "share/RigctlFace.h"
#include "share/SharedLine.h"

namespace korvex {

/// The radio offered to other programs: loggers, digital modes, hamlib. Two ways in: a device that they open as if it
/// were the radio's serial port, and a server for hamlib's network protocol. Off until somebody switches it on.
class PortShare {
public:
    /// `doors`: null on a machine that has none; nothing can be shared then.
    PortShare(CatLink& link, Clock& clock, Doors* doors)
        : m_link(link), m_clock(clock), m_line(link, clock), m_doors(doors) {
        m_told = m_line.told.connect([this](const std::string& text) { told.emit(text); });
    }

    /// `link`: a second name for the device, a symbolic link; empty for none.
    Failure openTerminal(const std::string& link);
    void closeTerminal();
    /// Where programs find the radio, "/dev/pts/7"; empty while the port is not shared.
    Property<std::string> device;

    /// On the loopback interface only. hamlib's usual port is 4532.
    Failure listen(int port);
    void stopListening();
    Property<int> listeningAt;  ///< 0: nowhere

    /// Commands that make the radio transmit are passed on, too.
    void allowTransmit(bool allowed) { m_line.allowTransmit(allowed); }
    Property<bool>& transmitAllowed() { return m_line.transmitAllowed; }

    std::string usualLink() const { return m_doors == nullptr ? "" : m_doors->usualLink(); }

    /// Words for the owner, UTF-8: what was asked for and not passed on, or made the radio transmit.
    Signal<const std::string&> told;

    static constexpr int usualPort = 4532;

private:
    void welcome(const std::shared_ptr<Caller>& caller);
    void dismiss(const RigctlFace* face);

    void prepareAnswers();

    CatLink& m_link;
    Clock& m_clock;
    SharedLine m_line;
    std::unique_ptr<OpeningAnswers> m_opening;  // while any way in is open
    Doors* m_doors;
    std::unique_ptr<CatFace> m_terminal;
    std::unique_ptr<Listener> m_listener;
    struct Guest {
        std::unique_ptr<RigctlFace> face;
        Connection left;
    };
    std::vector<Guest> m_guests;
    Connection m_called;
    Connection m_told;
};

}  // namespace korvex
