#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/Signal.h"

namespace korvex {

/// Another program at the far end of a pseudo terminal or of a connection. What it says comes from the event loop.
class Caller {
public:
    virtual ~Caller() = default;
    Caller(const Caller&) = delete;
    Caller& operator=(const Caller&) = delete;

    /// What the program does not fetch is lost once the system's buffer is full; nobody waits for it.
    virtual void write(std::string_view bytes) = 0;

    Signal<std::string_view> said;
    /// It has closed its end. A terminal can be opened again by the next program, a connection is over.
    Signal<> left;

protected:
    Caller() = default;
};

/// Where connections come in.
class Listener {
public:
    virtual ~Listener() = default;
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    Signal<const std::shared_ptr<Caller>&> called;

protected:
    Listener() = default;
};

/// The ways in for other programs on this machine. Whoever gets one owns it; it closes with its owner.
class Doors {
public:
    virtual ~Doors() = default;

    /// A device that other programs open like a serial port.
    struct Terminal {
        std::string device;  ///< "/dev/pts/7"
        std::unique_ptr<Caller> caller;
    };
    /// `link`: a second name for the device, a symbolic link that goes with it; empty for none.
    virtual Result<Terminal> openTerminal(const std::string& link) = 0;
    /// The loopback interface only. Fails when another program listens there.
    virtual Result<std::unique_ptr<Listener>> listen(int port) = 0;
    /// A name that stays the same from one day to the next; empty where there is no place for one.
    virtual std::string usualLink() const = 0;
};

}  // namespace korvex
