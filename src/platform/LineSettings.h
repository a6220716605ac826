#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"

namespace korvex {

enum class Parity { None, Even, Odd, Mark, Space };
enum class StopBits { One, OneAndHalf, Two };

/// The handshaking codes of the port control; the numbers are the stored ones.
enum class Handshaking { None = 0, XonXoff = 1, Rts = 2, RtsXonXoff = 3 };

/// The data format of a serial line, as the control's settings string "4800,n,8,2" says it.
struct LineSettings {
    int speed = 4800;  ///< bit/s, one of standardSpeeds()
    Parity parity = Parity::None;
    int dataBits = 8;  ///< 4 to 8
    StopBits stopBits = StopBits::Two;

    bool operator==(const LineSettings&) const = default;

    /// The four fields with commas between, the parity letter in lower case.
    std::string text() const;

    /// ms that one character takes on this line, start bit included.
    double characterTime() const;
};

/// The speeds that the port settings dialog offers, in its order; a settings string with another speed is refused.
const std::vector<int>& standardSpeeds();

/// Reads "speed,parity letter,data bits,stop bits"; letters of either case, blanks around a field allowed. Refuses
/// (380) what has another shape and a speed that is not a standard one. Says nothing about what a device can do.
Result<LineSettings> parseLineSettings(std::string_view text);

}  // namespace korvex
