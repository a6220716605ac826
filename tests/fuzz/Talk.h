#pragma once

#include <optional>
#include <string_view>

#include "fakes/TalkativePorts.h"
#include "fakes/VirtualClock.h"

namespace korvex::fuzz {

/// Plays an input: characters are what the radio says; "~" and another character is something that happens.
///
///     ~~       the radio says "~"
///     ~0..~9   time passes
///     ~U ~P    the device is unplugged, plugged in
///     ~D ~H    the radio turns deaf, and healthy again
///     ~S ~G    its answers come in pieces, several at once
///     ~R       it refuses everything
///     ~L       a modem line changes
class Talk {
public:
    Talk(fakes::TalkativePorts& ports, fakes::VirtualClock& clock, std::string_view input)
        : m_ports(ports), m_clock(clock), m_rest(input) {}

    bool isOver() const { return m_rest.empty(); }
    /// The next piece; what is none of the above is given back, to be done by the caller.
    std::optional<char> step();

private:
    std::optional<char> act(char action);
    void say(std::string_view wire);
    void pass(int ms);

    fakes::TalkativePorts& m_ports;
    fakes::VirtualClock& m_clock;
    std::string_view m_rest;
    int m_passed = 0;
};

}  // namespace korvex::fuzz
