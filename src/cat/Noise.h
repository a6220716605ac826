#pragma once

#include <string>
#include <string_view>

namespace korvex {

/// An answer from its head on, or a bare refusal: what a bad line put in front of it is no part of it. What holds neither
/// stays as it is.
inline std::string withoutNoiseBefore(std::string_view head, std::string answer) {
    const auto begin = answer.find(head);
    if (begin != std::string::npos) return answer.erase(0, begin);
    return answer.ends_with("?;") ? "?;" : answer;
}

}  // namespace korvex
