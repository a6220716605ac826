#include "fuzz/Talk.h"

#include <array>

namespace korvex::fuzz {

std::optional<char> Talk::step() {
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

/// First out of the input: what is said may lead to the next step.
void Talk::say(std::string_view wire) {
    m_rest.remove_prefix(wire.size());
    m_ports.say(wire);
}

std::optional<char> Talk::act(char action) {
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

void Talk::pass(int ms) {
    constexpr int longest = 300'000;
    m_passed += ms;
    if (m_passed < longest) m_clock.advance(ms);
}

}  // namespace korvex::fuzz
