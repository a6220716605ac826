#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvex::fuzz {

/// What stands between one `separator` and the next.
inline std::vector<std::string> cutAt(char separator, std::string_view input) {
    std::vector<std::string> parts(1);
    for (const char c : input) {
        if (c == separator) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

}  // namespace korvex::fuzz
