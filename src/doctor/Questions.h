#pragma once

#include <array>
#include <string>
#include <vector>

#include "menu/MenuCommandTable.h"

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

/// What is asked about a band stack register: "AC;" to "AN0;".
std::vector<std::string> registerQuestions();

/// Menu items that no radio should have.
inline constexpr std::array itemsBeyond = {0, menuItemCount + 1};

}  // namespace korvex
