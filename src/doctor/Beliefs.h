#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/RadioReport.h"

namespace korvex {

/// Something that Korvex takes for true of an FT-2000 without having had one on the desk.
struct Belief {
    std::string_view id;        ///< "menu-numbers"
    std::string_view sentence;  ///< what is believed
    std::string_view source;    ///< where it comes from
    std::string_view test;      ///< the questions that show it; empty where only setting something would
    std::string_view depends;   ///< what in the program stands on it
    struct Judgement {
        enum class Verdict { Confirmed, Refuted, Open };
        Verdict verdict = Verdict::Open;
        std::string shown = {};  ///< what it was seen by, UTF-8
    };
    Judgement (*judge)(const RadioReport& report);
};

/// All of them. Their identifiers stay as they are: reports that owners have kept name them.
const std::vector<Belief>& beliefs();

/// Fills `report.beliefs` from what was seen.
void judgeBeliefs(RadioReport& report);

}  // namespace korvex
