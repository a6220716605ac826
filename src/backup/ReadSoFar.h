#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"

namespace korvex {

/// What an unfinished backup has read from the radio, answer by answer, for one that goes on with it.
struct ReadSoFar {
    struct Answer {
        std::string query;   ///< wire text
        std::string answer;  ///< wire text; "?;" where the radio has refused
        int session = 0;     ///< in which it came, an index into `sessions`
    };
    struct Reading {
        bool isWhole = false;
        std::map<std::string, Answer> answers = {};  ///< by item
    };
    std::vector<std::string> sessions;        ///< "2026-11-22 23:42:54", when the backup was begun and gone on with
    std::string model;                        ///< UTF-8; empty when the radio did not tell
    std::map<std::string, Reading> readings;  ///< by the name of the reading

    /// No answer is in it.
    bool isEmpty() const;
};

/// Lines of text, a value behind each tab; control characters are escaped.
std::string textOf(const ReadSoFar& soFar);
/// The line of an answer that came in the last session. It is written behind the rest as it comes, so the text may end
/// in the middle of one.
std::string answerLine(const std::string& reading, const std::string& item, const ReadSoFar::Answer& answer);
/// Lines that cannot be understood are passed over: what they told is read again.
Result<ReadSoFar> parseReadSoFar(std::string_view text);

}  // namespace korvex
