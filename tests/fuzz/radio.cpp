#include "fuzz/Fuzz.h"
#include "memory/MemoryRecord.h"
#include "menu/MenuCommandTable.h"
#include "radio/RadioLine.h"
#include "radio/SimulatedRadio.h"
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

void expectAnswers(SimulatedRadio& radio) {
    radio.answer("PS1;");
    for (const auto* command :
         {"IF;", "OI;", "FA;",     "AN0;",    "AC;",   "GT0;",  "GT1;", "RF0;", "MC;",  "VM;", "IF;",
          "SV;", "AB;", "RU0010;", "RD9999;", "BS00;", "BS10;", "AM;",  "MA;",  "KM1;", "KM5;"}) {
        const auto answer = radio.answer(command);
        EXPECT_TRUE(answer.empty() || answer.ends_with(';')) << command;
    }
    for (int item = 1; item <= menuItemCount; ++item) {
        EXPECT_TRUE(radio.answer(menuReadCommand(item)).starts_with("EX"));
    }
    for (int channel = 1; channel <= RadioState::lastChannel; ++channel) {
        const auto answer = radio.answer(memoryReadCommand(channel));
        EXPECT_TRUE(answer == "?;" || answer.size() == memoryStringLength) << answer;
    }
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

/// A state file of the simulated radio: what is taken from it is written down as it is, and the radio can answer with
/// it.
FUZZ_TARGET(radio_state) {
    SimulatedRadio radio;
    const auto complaints = loadState(radio.state, input);
    for (const auto& complaint : complaints) EXPECT_TRUE(complaint.starts_with("line "));
    RadioState again = ownersRadio();
    EXPECT_TRUE(loadState(again, stateText(radio.state)).empty());
    EXPECT_EQ(again, radio.state);
    expectAnswers(radio);
}

}  // namespace korvex
