#pragma once

#include <string>
#include <string_view>

namespace korvex {

// What a bad line put in front of an answer is no part of it. Both give back the answer from its head on, or a bare
// refusal; what holds neither stays as it is.

namespace detail {
inline std::string answerFrom(std::size_t begin, std::string answer) {
    if (begin != std::string::npos) return answer.erase(0, begin);
    return answer.ends_with("?;") ? "?;" : answer;
}
}  // namespace detail

/// From the last head on: after a ";" that was lost, what is left of the answer before is noise, too.
inline std::string fromLastHead(std::string_view head, std::string answer) {
    const auto begin = answer.rfind(head);
    return detail::answerFrom(begin, std::move(answer));
}

/// From the first head on, where the answer itself may hold the head once more.
inline std::string fromFirstHead(std::string_view head, std::string answer) {
    const auto begin = answer.find(head);
    return detail::answerFrom(begin, std::move(answer));
}

}  // namespace korvex
