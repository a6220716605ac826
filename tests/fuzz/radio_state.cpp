#include "fuzz/Fuzz.h"
#include "memory/MemoryRecord.h"
#include "menu/MenuCommandTable.h"
#include "radio/SimulatedRadio.h"
#include "radio/StateText.h"

namespace korvex {

namespace {

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
