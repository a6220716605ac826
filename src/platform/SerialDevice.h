#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Signal.h"
#include "platform/LineSettings.h"

namespace korvex {

enum class ModemLine { Cts, Dsr, Carrier };

/// One serial device, opened and closed as often as one likes. Every signal comes from the event loop, never from
/// inside a call, and also while a dialog is open.
class SerialDevice {
public:
    virtual ~SerialDevice() = default;

    /// Opens with RTS and DTR lowered at once (a raised line can key a transmitter). Tells apart in its text: no such
    /// device (PortGone), no permission (PermissionDenied), held by another program (PortAlreadyOpen) and a
    /// format that the device cannot do (LineNotSupported).
    virtual Failure open(const LineSettings& settings, Handshaking handshaking) = 0;
    virtual void close() = 0;

    /// Takes the whole text; it leaves in its own time.
    virtual void write(std::string_view wire) = 0;
    /// Everything that waits, as wire text.
    virtual std::string read() = 0;
    virtual std::size_t waiting() const = 0;
    virtual std::size_t unsent() const = 0;
    virtual void discardWaiting() = 0;
    virtual void discardUnsent() = 0;

    virtual void setRts(bool raised) = 0;
    virtual void setDtr(bool raised) = 0;
    /// Whether the other side raises CTS; nothing where the device has no such line, and while it is closed.
    virtual std::optional<bool> cts() const { return std::nullopt; }

    Signal<> received;  ///< something waits to be read
    Signal<ModemLine> lineChanged;
    Signal<const RuntimeError&> lost;  ///< once, when an open device goes away; it is then closed
};

/// A port as the user sees it in a list.
struct SerialPortInfo {
    int number = 0;                     ///< 1..20
    std::string device;                 ///< "/dev/ttyUSB0"
    std::string description;            ///< UTF-8: device, adapter and serial number
    std::optional<int> latencyMs = {};  ///< how long the adapter keeps what comes for itself, where that is known
};

/// The ports 1..20 of this machine.
class SerialPorts {
public:
    virtual ~SerialPorts() = default;

    /// The device behind a number, closed; never null (a number without a device refuses to open).
    virtual std::unique_ptr<SerialDevice> makeDevice(int number) = 0;
    /// Every number that has a device now, ascending.
    virtual std::vector<SerialPortInfo> list() = 0;
    /// The user has settled on this number: its meaning is remembered from now on.
    virtual void remember(int number) = 0;
    /// Why the port's device has to be left alone: another program has it, locked or merely open, as far as that can be
    /// told without opening it.
    virtual Failure heldByOther(int number) {
        static_cast<void>(number);
        return {};
    }
};

}  // namespace korvex
