#include "doctor/Questions.h"

#include <array>

#include "base/NumberText.h"

namespace korvex {

namespace {

/// What is asked about a band stack register, and the state of the radio beside it.
constexpr std::array settings = {"IF;",  "FA;",  "FB;",  "AC;",  "BC0;", "BP00;", "CO00;", "MD0;",
                                 "MD1;", "ML0;", "NA0;", "NA1;", "GT1;", "KR;",   "BI;",   "NR0;",
                                 "PA0;", "RA0;", "NB0;", "NB1;", "AN0;", "VS;",   "MC;"};

/// How the radio talks and what it does by itself.
constexpr std::array toldQuestions = {"ID;", "AI;", "GT0;", "RF0;"};

std::vector<Question> allQuestions() {
    constexpr int firstCatItem = 27;  // of either firmware
    constexpr int lastCatItem = 30;
    std::vector<Question> all;
    for (const char* query : toldQuestions) all.push_back({query, true, false, false});
    for (const char* query : settings) all.push_back({query});
    for (int item = 1; item <= asked::lastMenuItem; ++item) {
        all.push_back({menuQuestion(item), item >= firstCatItem && item <= lastCatItem});
    }
    all.push_back({menuQuestion(0), false, true, false});
    all.push_back({menuQuestion(asked::lastMenuItem + 1), false, true, false});
    for (int memory = 1; memory <= asked::lastKeyerText; ++memory) all.push_back({keyerQuestion(memory)});
    for (int channel = 1; channel <= asked::lastChannel; ++channel)
        all.push_back({channelQuestion(channel), false, true});
    for (const int channel : {asked::firstScanLimit, asked::lastScanLimit})
        all.push_back({channelQuestion(channel), false, true});
    return all;
}

}  // namespace

const std::vector<Question>& questions() {
    static const std::vector<Question> all = allQuestions();
    return all;
}

std::string menuQuestion(int item) {
    return "EX" + zeroPadded(item, 3) + ";";
}

std::string channelQuestion(int channel) {
    return "MR" + zeroPadded(channel, 3) + ";";
}

std::string keyerQuestion(int memory) {
    return "KM" + std::to_string(memory) + ";";
}

}  // namespace korvex
