#include "fuzz/Judge.h"

#include "cat/TransmitGuard.h"
#include "radio/SimulatedRadio.h"

namespace korvex::fuzz {

std::string keysTransmitterWith(std::string_view sent) {
    SimulatedRadio radio;
    radio.answer(sent);
    if (radio.timesKeyed > 0) return "the radio was keyed";
    std::string closed;
    for (const char c : sent) {
        if (static_cast<unsigned char>(c) > ' ') closed += c;
    }
    return keysTransmitter(closed) ? "a radio that passes over line ends and blanks was keyed" : "";
}

}  // namespace korvex::fuzz
