#include "fuzz/Fuzz.h"
#include "fuzz/Parts.h"
#include "radio/RadioLine.h"
#include "radio/StateText.h"

namespace korvex {

namespace {

/// What the line says until nothing more is due.
std::string listen(RadioLine& line, double& now) {
    std::string said;
    while (const auto due = line.nextDue()) {
        now = std::max(now, *due);
        said += line.takeDue(now);
        if (line.isUnplugged(now)) line.plugIn();
    }
    return said;
}

}  // namespace

/// Commands to the simulated radio, a line at a time; a line that begins with "#" sets a fault. Its state can be
/// written down and read again at any time, and what it answers is complete.
FUZZ_TARGET(radio_commands) {
    SimulatedRadio radio;
    RadioLine line(radio);
    line.enforcesTimeOut = input.size() % 2 == 0;
    line.characterTimeMs = 2;
    double now = 0;
    for (const auto& text : fuzz::cutAt('\n', input)) {
        if (text.starts_with('#')) {
            static_cast<void>(setFault(line.faults, std::string_view(text).substr(1)));
            continue;
        }
        line.hear(now, text);
        now += static_cast<double>(text.size() % 16);
        if (text.size() % 3 == 0) listen(line, now);
    }
    listen(line, now);
    line.faults = {};
    line.clear();
    line.hear(now += 10'000, ";ID;PS1;");
    const std::string said = listen(line, now);
    EXPECT_TRUE(said.empty() || said.ends_with(';'));
    RadioState state;
    EXPECT_TRUE(loadState(state, stateText(radio.state)).empty());
    EXPECT_EQ(stateText(state), stateText(radio.state));
}

}  // namespace korvex
