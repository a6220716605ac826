#include "app/StartOptions.h"
#include "cat/TransmitGuard.h"
#include "cli/CommandLine.h"
#include "fuzz/Fuzz.h"
#include "fuzz/Parts.h"
#include "platform/LineSettings.h"
#include "radio/Faults.h"

namespace korvex {

/// The arguments of the programs, one a line.
FUZZ_TARGET(command_line) {
    const auto arguments = fuzz::cutAt('\n', input);
    if (const auto command = cli::parseArguments(arguments)) {
        const bool sends = command->verb == cli::Command::Verb::Send;
        EXPECT_TRUE(!sends || command->allowTransmit || !keysTransmitter(command->text));
        EXPECT_TRUE(!command->settings || parseLineSettings(*command->settings));
        EXPECT_TRUE(!command->handshaking || (*command->handshaking >= 0 && *command->handshaking <= 3));
    } else {
        EXPECT_FALSE(command.error().text.empty());
    }
    if (const auto options = parseStartOptions(arguments)) {
        for (const auto& [number, device] : options->ports) EXPECT_TRUE(number >= 1 && number <= 20 && !device.empty());
    }
    Faults faults;
    for (const auto& argument : arguments) static_cast<void>(setFault(faults, argument));
    EXPECT_TRUE(faults.slowMs >= 0 && faults.glued >= 0);
}

}  // namespace korvex
