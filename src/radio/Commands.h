#pragma once

#include <string>
#include <string_view>

namespace korvex {

class SimulatedRadio;

/// What the radio does for each command. A handler gets the whole command in capitals, without its ";".
namespace commands {

using Handler = std::string (*)(SimulatedRadio& radio, std::string_view command);

inline constexpr std::string_view refused = "?;";

/// By the command's two letters; null for a command that the radio does not know.
Handler handlerOf(std::string_view command);

// Commands that set and read a value, and those where a little more happens
std::string setting(SimulatedRadio& radio, std::string_view command);
std::string antenna(SimulatedRadio& radio, std::string_view command);
std::string automaticGain(SimulatedRadio& radio, std::string_view command);
std::string autoNotch(SimulatedRadio& radio, std::string_view command);
std::string clarifierOffset(SimulatedRadio& radio, std::string_view command);
std::string roofingFilter(SimulatedRadio& radio, std::string_view command);
std::string transmitVfo(SimulatedRadio& radio, std::string_view command);

// VFO and band
std::string bandSelect(SimulatedRadio& radio, std::string_view command);
std::string copyMainToSub(SimulatedRadio& radio, std::string_view command);
std::string swapMainAndSub(SimulatedRadio& radio, std::string_view command);
std::string mainState(SimulatedRadio& radio, std::string_view command);
std::string subState(SimulatedRadio& radio, std::string_view command);

// Memories
std::string memoryChannel(SimulatedRadio& radio, std::string_view command);
std::string memoryRead(SimulatedRadio& radio, std::string_view command);
std::string memoryWrite(SimulatedRadio& radio, std::string_view command);
std::string memoryToMain(SimulatedRadio& radio, std::string_view command);
std::string mainToMemory(SimulatedRadio& radio, std::string_view command);
std::string vfoOrMemory(SimulatedRadio& radio, std::string_view command);

// Menu and keyer
std::string menuItem(SimulatedRadio& radio, std::string_view command);
std::string keyerText(SimulatedRadio& radio, std::string_view command);
std::string keyerPlay(SimulatedRadio& radio, std::string_view command);

// What would key the transmitter: the state changes and the radio counts it, nothing more
std::string transmit(SimulatedRadio& radio, std::string_view command);
std::string manualTransmit(SimulatedRadio& radio, std::string_view command);
std::string antennaTuner(SimulatedRadio& radio, std::string_view command);

}  // namespace commands

}  // namespace korvex
