#include "doctor/Questions.h"

#include <algorithm>
#include <array>

#include "bandstack/BandStackCells.h"
#include "keyer/KeyerTexts.h"
#include "memory/MemoryRecord.h"
#include "memory/MemoryTables.h"
#include "menu/MenuCommandTable.h"

namespace korvex {

namespace {

/// How the radio talks, and what it does by itself.
constexpr std::array toldQuestions = {"ID;", "AI;", "GT0;", "RF0;"};

/// Beside what is asked about a band stack register.
constexpr std::array stateQuestions = {"IF;", "VS;", "MC;"};

bool isAsked(const std::vector<Question>& questions, const std::string& query) {
    return std::any_of(questions.begin(), questions.end(), [&](const Question& one) { return one.query == query; });
}

std::vector<Question> allQuestions() {
    constexpr int firstCatItem = 27;  // of either firmware
    constexpr int lastCatItem = 30;
    std::vector<Question> all;
    for (const char* query : toldQuestions) all.push_back({query, true, false, false});
    for (const char* query : stateQuestions) all.push_back({query});
    for (const auto& query : registerQuestions()) {
        if (!isAsked(all, query)) all.push_back({query});
    }
    for (int item = 1; item <= menuItemCount; ++item) {
        all.push_back({menuReadCommand(item), item >= firstCatItem && item <= lastCatItem});
    }
    for (const int item : itemsBeyond) all.push_back({menuReadCommand(item), false, true, false});
    for (int memory = 1; memory <= keyerMemories; ++memory) all.push_back({keyerReadCommand(memory)});
    for (int channel = 1; channel <= lastMemoryChannel; ++channel) {
        all.push_back({memoryReadCommand(channel), false, true});
    }
    for (const int channel : {scanLimits.first, scanLimits.last}) {
        all.push_back({memoryReadCommand(channel), false, true});
    }
    return all;
}

}  // namespace

const std::vector<Question>& questions() {
    static const std::vector<Question> all = allQuestions();
    return all;
}

std::vector<std::string> registerQuestions() {
    const BandStackCells labels;
    std::vector<std::string> queries;
    for (int row = 1; row <= BandStackCells::lastQueried; ++row) queries.push_back(labels.query(row));
    return queries;
}

}  // namespace korvex
