#pragma once

#include <array>
#include <string_view>

namespace korvex {

/// A command that makes the FT-2000 transmit.
struct KeyingCommand {
    enum class When {
        Always,      ///< whatever stands behind the letters
        NotZero,     ///< unless what stands behind them begins with 0, or nothing does: that asks
        ThirdIsTwo,  ///< when the third character behind them is 2
    };
    std::string_view letters;
    When when;
    std::string_view does;
};

/// All of them. The letters are those of the radio's CAT command list; hamlib's table of the commands that an FT-2000
/// takes has each of them, too.
inline constexpr std::array<KeyingCommand, 6> keyingCommands = {{
    {"TX", KeyingCommand::When::NotZero, "transmits"},
    {"MX", KeyingCommand::When::NotZero, "switches MOX on"},
    {"VX", KeyingCommand::When::NotZero, "switches VOX on: the next noise keys it"},
    {"KY", KeyingCommand::When::Always, "plays a keyer memory on the air"},
    {"PB", KeyingCommand::When::Always, "plays a voice memory, on the air or to the speaker as the radio is set"},
    {"AC", KeyingCommand::When::ThirdIsTwo, "starts the antenna tuner, with a carrier"},
}};

/// Whether a line for the radio holds a keying command, for any radio that may hear it: letters of either case; blanks
/// and control characters inside a command passed over, or everything dropped that stands before one, because nobody
/// knows which of the two the radio does. For the same reason a line that ends in the beginning of such a command
/// counts: the next line could complete it.
bool keysTransmitter(std::string_view wire);

/// A character that no command of the radio has: a line end, a tabulator, DEL.
bool holdsControlCharacter(std::string_view wire);

}  // namespace korvex
