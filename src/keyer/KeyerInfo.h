#pragma once

#include <string_view>

namespace korvex {

/// What the "Info" entry shows: which menu items the radio wants before it takes texts.
inline constexpr std::string_view keyerInfo =
    "To operate with the CW message memory \r\n"
    "(5 memories with up to 50 characters)  text entry\r\n"
    "\r\n"
    "Refer to the operating manual page 86.\r\n"
    " Set menu 20 to 24 to \" tyP1\"\r\n"
    " \r\n"
    "Cat commands = \"EX0200;\"   \"EX0210;\"  \"EX0220;\"  \r\n"
    "\"EX0230;\"  \"EX0240;\"\r\n";

}  // namespace korvex
