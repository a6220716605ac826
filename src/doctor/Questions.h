#pragma once

#include <string>
#include <vector>

namespace korvex {

/// A question that an examination asks. None of them sets anything.
struct Question {
    std::string query;            ///< wire text, with its ";"
    bool isTold = false;          ///< the answer itself goes into the report: it is no frequency, text or name
    bool mayBeRefused = false;    ///< a refusal tells something, and needs no second asking
    bool isOwnersSetting = true;  ///< the answer belongs to what the owner may want in the report
};

/// In the order in which they are asked. The first one asks for the model.
const std::vector<Question>& questions();

/// "EX042;", "MR007;", "KM1;"
std::string menuQuestion(int item);
std::string channelQuestion(int channel);
std::string keyerQuestion(int memory);

namespace asked {
inline constexpr int lastMenuItem = 149;
inline constexpr int lastChannel = 99;
inline constexpr int firstScanLimit = 100;
inline constexpr int lastScanLimit = 117;
inline constexpr int lastKeyerText = 5;
}  // namespace asked

}  // namespace korvex
