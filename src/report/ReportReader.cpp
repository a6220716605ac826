#include <algorithm>
#include <array>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "platform/LineSettings.h"
#include "report/ReportSections.h"
#include "report/ReportText.h"

namespace korvex {

namespace {

constexpr std::size_t letters = 2;
constexpr std::size_t longestName = 6;   // "EX042", "BP00"
constexpr std::size_t longestForm = 64;  // a keyer text has 50 characters
constexpr std::size_t mostForms = 1'000;
constexpr int longestMs = AnswerDelay::classesMs.back();

/// The next line of a text, without its end.
std::string_view takeLine(std::string_view& rest) {
    const auto end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

/// The next word of a line, and what stands behind it.
std::string_view takeWord(std::string_view& rest) {
    const auto begin = std::min(rest.find_first_not_of(' '), rest.size());
    const auto end = std::min(rest.find(' ', begin), rest.size());
    const std::string_view word = rest.substr(begin, end - begin);
    rest.remove_prefix(std::min(rest.find_first_not_of(' ', end), rest.size()));
    return word;
}

/// Two capitals and up to four digits: what a question of ours is called.
bool isName(std::string_view name) {
    const auto isCapital = [](char c) { return c >= 'A' && c <= 'Z'; };
    return name.size() >= letters && name.size() <= longestName && isCapital(name[0]) && isCapital(name[1]) &&
           std::all_of(name.begin() + letters, name.end(), isDigit);
}

std::string wireOf(std::string_view utf8) {
    return wireFromUtf8(utf8).value_or("").substr(0, longestForm);
}

std::string formFrom(std::string_view name, std::string_view rest) {
    if (rest == "no answer") return {};
    if (rest == "refused") return "?;";
    if (rest == "empty") return std::string(name) + ";";
    if (rest.starts_with("= ")) return wireOf(rest.substr(2)) + ";";
    return std::string(name) + wireOf(rest) + ";";
}

/// EX001 and all up to EX006.
std::vector<std::string> namesOf(std::string_view first, std::string_view last) {
    if (first.size() != last.size()) return {std::string(first)};
    const auto from = parseWhole(first.substr(letters));
    const auto to = parseWhole(last.substr(letters));
    if (!from || !to) return {std::string(first)};
    std::vector<std::string> names;
    for (int number = *from; number <= std::min(*to, *from + static_cast<int>(mostForms)); ++number) {
        names.push_back(std::string(first.substr(0, letters)) +
                        zeroPadded(number, static_cast<int>(first.size() - letters)));
    }
    return names;
}

void takeForm(RadioReport& report, std::string_view line) {
    const std::string_view first = takeWord(line);
    std::string_view last;
    if (line.starts_with("to ")) {
        takeWord(line);
        last = takeWord(line);
    }
    if (!isName(first) || (!last.empty() && !isName(last)) || line.empty()) return;
    for (const auto& name : namesOf(first, last)) {
        if (report.forms.size() == mostForms) return;
        report.forms.push_back({name + ";", formFrom(name, line)});
    }
}

void takeTold(RadioReport& report, std::string_view line) {
    std::string_view name = takeWord(line);
    if (!name.ends_with(';')) return;
    const std::string query(name);
    name.remove_suffix(1);
    const std::string answer = wireOf(line);
    if (isName(name) && answer.ends_with(';') && report.told.size() < mostForms) report.told[query] = answer;
}

/// "EX usually 30 ms, at most 50 ms".
void takeDelay(RadioReport& report, std::string_view line) {
    const std::string name(takeWord(line));
    takeWord(line);
    const auto usual = parseWhole(takeWord(line));
    takeWord(line);
    const bool late = line.starts_with("at times");
    takeWord(line);
    takeWord(line);
    const auto within = late ? std::optional(longestMs) : parseWhole(takeWord(line));
    if (!isName(name) || name.size() != letters || !usual || !within || *usual < 0 || *usual > longestMs ||
        report.delays.size() == mostForms) {
        return;
    }
    report.delays.push_back({name, *usual, std::clamp(*within, *usual, longestMs)});
}

std::vector<std::string> wordsOf(std::string_view text) {
    std::vector<std::string> words;
    while (!text.empty() && words.size() < mostForms) words.emplace_back(takeWord(text));
    std::erase_if(words, [](const std::string& word) { return !isName(word); });
    return words;
}

int countFrom(std::string_view text) {
    constexpr int channels = 99;
    return std::clamp(parseWhole(text).value_or(0), 0, channels);
}

struct Fact {
    std::string_view key;
    void (*take)(RadioReport& report, std::string_view value);
};

constexpr auto facts = std::to_array<Fact>({
    {"line",
     [](RadioReport& report, std::string_view value) {
         if (parseLineSettings(value)) report.line = value;
     }},
    {"handshaking",
     [](RadioReport& report, std::string_view value) {
         report.handshaking = std::clamp(parseWhole(value).value_or(0), 0, 3);
     }},
    {"model", [](RadioReport& report, std::string_view value) { report.model = value == "-" ? "" : wireOf(value); }},
    {"returns what is sent", [](RadioReport& report, std::string_view value) { report.echoes = value == "yes"; }},
    {"noise between answers", [](RadioReport& report, std::string_view value) { report.noise = value == "yes"; }},
    {"answers two questions sent at once",
     [](RadioReport& report, std::string_view value) {
         if (value != "-") report.answersTwoAtOnce = value == "yes";
     }},
    {"tells unasked", [](RadioReport& report, std::string_view value) { report.unasked = wordsOf(value); }},
    {"channels told of 001 to 099",
     [](RadioReport& report, std::string_view value) { report.channelsTold = countFrom(value); }},
    {"channels of zeros",
     [](RadioReport& report, std::string_view value) { report.channelsOfZeros = countFrom(value); }},
    {"channels under another number",
     [](RadioReport& report, std::string_view value) { report.channelsMisnamed = countFrom(value); }},
    {"source digits of channels",
     [](RadioReport& report, std::string_view value) { report.channelSources = value == "-" ? "" : wireOf(value); }},
    {"band stack registers walked",
     [](RadioReport& report, std::string_view value) { report.registersWalked = countFrom(value); }},
});

void takeFact(RadioReport& report, std::string_view line) {
    const auto colon = line.find(": ");
    if (colon == std::string_view::npos) return;
    for (const auto& fact : facts) {
        if (line.substr(0, colon) == fact.key) fact.take(report, line.substr(colon + 2));
    }
}

/// "refuted   menu-numbers: Item 028 is the CAT rate."
void takeBelief(RadioReport& report, std::string_view line) {
    JudgedBelief one;
    one.verdict = takeWord(line);
    one.id = line.substr(0, line.find(':'));
    const bool known = one.verdict == "confirmed" || one.verdict == "refuted" || one.verdict == "open";
    if (known && one.id.size() < line.size() && report.beliefs.size() < mostForms) report.beliefs.push_back(one);
}

}  // namespace

Result<RadioReport> parseReport(std::string_view text) {
    const std::string_view heading = takeLine(text);
    if (heading != reportHeading) {
        const bool later = heading.starts_with(reportHeading.substr(0, reportHeading.size() - 1));
        return RuntimeError{errors::TypeMismatch, later ? "this report was made by a later Korvex"
                                                        : "this is no report of Korvex about a radio"};
    }
    RadioReport report;
    std::string_view section;
    while (!text.empty()) {
        std::string_view line = takeLine(text);
        if (!line.starts_with("  ")) {
            if (!line.empty()) section = line;
            continue;
        }
        line.remove_prefix(2);
        if (section == sections::line) takeFact(report, line);
        if (section == sections::told) takeTold(report, line);
        if (section == sections::delays) takeDelay(report, line);
        if (section == sections::beliefs) takeBelief(report, line);
        if (section == sections::forms) takeForm(report, line);
    }
    return report;
}

}  // namespace korvex
