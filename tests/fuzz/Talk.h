#pragma once

#include <array>
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
    std::optional<char> step() {
        if (m_rest.front() != '~') {
            say(m_rest.substr(0, m_rest.find('~')));
            return {};
        }
        m_rest.remove_prefix(1);
        if (m_rest.empty()) return {};
        const char action = m_rest.front();
        if (action == '~') {
            say("~");
            return {};
        }
        m_rest.remove_prefix(1);
        return act(action);
    }

private:
    std::optional<char> act(char action) {
        constexpr std::array<int, 10> times = {10, 50, 100, 200, 500, 1'000, 2'000, 5'000, 15'000, 60'000};
        auto& faults = m_ports.faults();
        switch (action) {
            case 'U': m_ports.unplug(); break;
            case 'P': m_ports.plugIn(); break;
            case 'D': faults.deaf = true; break;
            case 'H': faults = {}; break;
            case 'S': faults.split = true; break;
            case 'G': faults.glued = 3; break;
            case 'R': faults.refuses = true; break;
            case 'L': m_ports.changeLine(ModemLine::Dsr); break;
            default:
                if (action < '0' || action > '9') return action;
                pass(times.at(static_cast<std::size_t>(action - '0')));
        }
        return {};
    }
    /// First out of the input: what is said may lead to the next step.
    void say(std::string_view wire) {
        m_rest.remove_prefix(wire.size());
        m_ports.say(wire);
    }
    void pass(int ms) {
        constexpr int longest = 300'000;
        m_passed += ms;
        if (m_passed < longest) m_clock.advance(ms);
    }

    fakes::TalkativePorts& m_ports;
    fakes::VirtualClock& m_clock;
    std::string_view m_rest;
    int m_passed = 0;
};

}  // namespace korvex::fuzz
