#include "doctor/Beliefs.h"

#include <algorithm>
#include <array>
#include <functional>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "cat/RadioModel.h"
#include "doctor/Questions.h"
#include "keyer/KeyerTexts.h"
#include "memory/MemoryRecord.h"
#include "memory/MemoryTables.h"
#include "menu/MenuCommandTable.h"
#include "menu/MenuFile.h"

namespace korvex {

namespace {

using Judgement = Belief::Judgement;
using Verdict = Judgement::Verdict;

constexpr int firstEqualizerItem = 125;
constexpr int lastEqualizerItem = 142;

Judgement judged(bool confirmed, std::string shown = {}) {
    return {confirmed ? Verdict::Confirmed : Verdict::Refuted, std::move(shown)};
}

Judgement open(std::string shown = {}) {
    return {Verdict::Open, std::move(shown)};
}

Judgement cannotBeAsked(const RadioReport& /*report*/) {
    return open();
}

/// "042, 077 and 12 more"
std::string listed(const std::vector<std::string>& names) {
    constexpr std::size_t most = 12;
    std::string text;
    for (std::size_t i = 0; i < std::min(most, names.size()); ++i) text += (i == 0 ? "" : ", ") + names[i];
    if (names.size() > most) text += " and " + std::to_string(names.size() - most) + " more";
    return text;
}

std::string withoutEnd(const std::string& query) {
    return query.substr(0, query.find(';'));
}

std::string answerTo(const RadioReport& report, const std::string& query) {
    const auto* asked = report.form(query);
    if (asked == nullptr) return "not asked";
    if (asked->form.empty()) return "no answer";
    return asked->form == "?;" ? "refused" : utf8FromWire(asked->form);
}

/// Confirmed when all of those questions were asked and `is` holds for the answer of each; else names those that
/// differ.
Judgement allOf(const RadioReport& report, const std::vector<std::string>& queries,
                const std::function<bool(const AskedForm& asked)>& is) {
    std::vector<std::string> others;
    for (const auto& query : queries) {
        const auto* asked = report.form(query);
        if (asked == nullptr) return open();
        if (!is(*asked)) others.push_back(withoutEnd(query) + " " + answerTo(report, query));
    }
    return judged(others.empty(), listed(others));
}

bool isAnswered(const AskedForm& asked) {
    return !asked.form.empty() && asked.form != "?;";
}

/// The form behind the question's own characters: "+nn" of "EX126+nn;".
std::string_view valueForm(const AskedForm& asked) {
    const std::size_t head = asked.query.size() - 1;
    if (!isAnswered(asked) || asked.form.size() <= head + 1) return {};
    return std::string_view(asked.form).substr(head, asked.form.size() - head - 1);
}

std::vector<std::string> menuQuestions(int first, int last) {
    std::vector<std::string> queries;
    for (int item = first; item <= last; ++item) queries.push_back(menuReadCommand(item));
    return queries;
}

Judgement model(const RadioReport& report) {
    if (report.model.empty()) return open();
    return judged(isFt2000(report.model), utf8FromWire(report.model));
}

Judgement frequencyForm(const RadioReport& report) {
    constexpr std::size_t length = sizeof("FA14195000;") - 1;
    return allOf(report, {"FA;", "FB;"}, [](const AskedForm& asked) { return asked.form.size() == length; });
}

/// The antenna's is another belief's matter.
Judgement registersReadable(const RadioReport& report) {
    auto queries = registerQuestions();
    std::erase(queries, "AN0;");
    return allOf(report, queries, isAnswered);
}

Judgement automatic(const RadioReport& report) {
    const std::string gain = report.value("GT0;");
    const std::string filter = report.value("RF0;");
    const std::string shown = "GT0 " + gain + ", RF0 " + filter;
    if (gain.size() != 1 || filter.size() != 1) return open();
    if (filter == "0") return judged(false, shown);
    const bool isResolved = (filter >= "4" && filter <= "6") || gain == "5" || gain == "6";
    return isResolved ? judged(true, shown) : open(shown);
}

Judgement antennaForm(const RadioReport& report) {
    return allOf(report, {"AN0;"}, [](const AskedForm& asked) { return valueForm(asked) == "nn"; });
}

Judgement menuItems(const RadioReport& report) {
    return allOf(report, menuQuestions(1, menuItemCount), isAnswered);
}

Judgement noMoreItems(const RadioReport& report) {
    return allOf(report, {menuReadCommand(itemsBeyond[0]), menuReadCommand(itemsBeyond[1])},
                 [](const AskedForm& asked) { return asked.form == "?;"; });
}

/// Digits, with a sign in front or not, and no more of them than the radio's files have.
Judgement menuForm(const RadioReport& report) {
    constexpr std::size_t mostDigits = 5;
    return allOf(report, menuQuestions(1, menuItemCount), [](const AskedForm& asked) {
        std::string_view form = valueForm(asked);
        if (!isAnswered(asked)) return true;  // another belief's matter
        if (form.starts_with('+')) form.remove_prefix(1);
        return !form.empty() && form.size() <= mostDigits && form.find_first_not_of('n') == std::string_view::npos;
    });
}

std::string codeOfSpeed(const std::string& line) {
    constexpr std::array<std::string_view, 4> speeds = {"4800,", "9600,", "19200,", "38400,"};
    for (std::size_t code = 0; code < speeds.size(); ++code) {
        if (line.starts_with(speeds.at(code))) return std::to_string(code);
    }
    return {};
}

/// 1 speaks for the numbers that are believed, -1 for those one lower, 0 for neither.
int speedSpeaksFor(const RadioReport& report) {
    const std::string code = codeOfSpeed(report.line);
    const bool here = report.value(menuReadCommand(28)) == code;
    const bool below = report.value(menuReadCommand(27)) == code;
    if (code.empty() || here == below) return 0;
    return here ? 1 : -1;
}

int signsSpeakFor(const RadioReport& report) {
    std::vector<std::string> lines;
    for (int item = firstEqualizerItem; item <= lastEqualizerItem; ++item) {
        const auto* asked = report.form(menuReadCommand(item));
        if (asked == nullptr) continue;
        lines.push_back(asked->form);
        std::replace(lines.back().begin(), lines.back().end(), 'n', '0');  // a line of a menu file
    }
    const auto numbers = numbersIn(lines);
    if (!numbers) return 0;
    return *numbers == MenuNumbers::Later ? 1 : -1;
}

Judgement menuNumbers(const RadioReport& report) {
    const int speed = speedSpeaksFor(report);
    const int signs = signsSpeakFor(report);
    const std::string shown = "027 \"" + report.value(menuReadCommand(27)) + "\", 028 \"" +
                              report.value(menuReadCommand(28)) + "\" at " + report.line;
    if (speed + signs == 0) return open(shown);
    return judged(speed + signs > 0, shown);
}

Judgement equalizerForm(const RadioReport& report) {
    return allOf(report, menuQuestions(firstEqualizerItem, lastEqualizerItem), [](const AskedForm& asked) {
        constexpr int group = 3;
        const int item = parseWhole(asked.query.substr(2, 3)).value_or(firstEqualizerItem);
        return valueForm(asked) == ((item - firstEqualizerItem) % group == 1 ? "+nn" : "nn");
    });
}

Judgement catTimeOut(const RadioReport& report) {
    const std::string value = report.value(menuReadCommand(29));
    return value.empty() ? open() : judged(value != "0", "029 \"" + value + "\"");
}

std::vector<std::string> keyerQuestions() {
    std::vector<std::string> queries;
    for (int memory = 1; memory <= keyerMemories; ++memory) queries.push_back(keyerReadCommand(memory));
    return queries;
}

Judgement keyerReadable(const RadioReport& report) {
    return allOf(report, keyerQuestions(), isAnswered);
}

Judgement keyerEnd(const RadioReport& report) {
    const auto judgement = allOf(report, keyerQuestions(),
                                 [](const AskedForm& asked) { return asked.form.find('}') == std::string::npos; });
    const auto queries = keyerQuestions();
    const bool anyText = std::any_of(queries.begin(), queries.end(), [&](const std::string& query) {
        const auto* asked = report.form(query);
        return asked != nullptr && asked->form.find('*') != std::string::npos;
    });
    return anyText || judgement.verdict == Verdict::Refuted ? judgement : open();
}

Judgement channelForm(const RadioReport& report) {
    constexpr std::size_t sign = 13;
    constexpr std::size_t length = 27;
    std::vector<std::string> others;
    for (int channel = 1; channel <= lastMemoryChannel; ++channel) {
        const auto* asked = report.form(memoryReadCommand(channel));
        if (asked == nullptr || !isAnswered(*asked)) continue;
        if (asked->form.size() != length || asked->form[sign] != '+') others.push_back(utf8FromWire(asked->form));
    }
    return report.channelsTold == 0 ? open() : judged(others.empty(), listed(others));
}

Judgement emptyChannel(const RadioReport& report) {
    if (report.channelsOfZeros > 0) return judged(false, std::to_string(report.channelsOfZeros) + " hold zeros");
    for (int channel = 1; channel <= lastMemoryChannel; ++channel) {
        if (report.wasRefused(memoryReadCommand(channel))) return judged(true);
    }
    return open();
}

Judgement channelAsked(const RadioReport& report) {
    if (report.channelsMisnamed > 0) return judged(false, std::to_string(report.channelsMisnamed) + " others");
    return report.channelsTold < 2 ? open() : judged(true);
}

Judgement channelSource(const RadioReport& report) {
    if (report.channelSources.empty()) return open();
    const bool known = report.channelSources.find_first_not_of("01") == std::string::npos;
    return judged(known, "found " + utf8FromWire(report.channelSources));
}

Judgement scanLimitsThere(const RadioReport& report) {
    for (const int channel : {scanLimits.first, scanLimits.last}) {
        if (report.wasAnswered(memoryReadCommand(channel))) return judged(true);
    }
    return open("an empty one is refused, too");
}

Judgement refusal(const RadioReport& report) {
    return allOf(report, {menuReadCommand(itemsBeyond[0])}, [](const AskedForm& asked) { return !asked.form.empty(); });
}

Judgement twoAtOnce(const RadioReport& report) {
    return report.answersTwoAtOnce ? judged(*report.answersTwoAtOnce) : open();
}

Judgement turnaround(const RadioReport& report) {
    constexpr int slow = 500;
    if (report.longestMs() == 0) return open();
    return judged(report.longestMs() <= slow, report.longestMs() > 1'000
                                                  ? "more than 1000 ms"
                                                  : "at most " + std::to_string(report.longestMs()) + " ms");
}

Judgement quiet(const RadioReport& report) {
    return judged(report.unasked.empty(), listed(report.unasked));
}

Judgement clean(const RadioReport& report) {
    if (report.echoes) return judged(false, "what is sent comes back");
    return judged(!report.noise, report.noise ? "characters that make no sense" : "");
}

Judgement bandStack(const RadioReport& report) {
    constexpr int all = 33;
    if (!report.registersWalked) return open("asked with --band-stack only");
    const std::string count = std::to_string(*report.registersWalked) + " of " + std::to_string(all);
    return judged(*report.registersWalked == all && report.notHome.empty(), count);
}

std::vector<Belief> allBeliefs() {
    return {
        {"model", "The radio says ID0251 (100 W) or ID0252 (200 W).", "a trace of a radio; hamlib", "ID",
         "a restore goes into no other radio", model},
        {"clean-line", "Nothing but answers comes over the line.", "as serial lines are", "all",
         "an echo is taken out; noise is passed over", clean},
        {"frequency-form", "A frequency has eight digits, in Hz.", "hamlib, flrig, traces", "FA FB",
         "communication test, band stack, shared port", frequencyForm},
        {"refusal", "What the radio does not know or do it answers with \"?;\".", "traces of radios", "EX000",
         "every reading and verified writing", refusal},
        {"two-at-once", "Two commands sent in one go are both obeyed, in order.", "hamlib, OmniRig", "ID;ID;",
         "fast verified transfers", twoAtOnce},
        {"turnaround", "An answer comes within half a second.", "31 ms in two traces", "all",
         "how long every reading waits", turnaround},
        {"quiet", "Nothing is told that was not asked for.", "AI0 is the factory setting",
         "all, and a while of listening", "what comes unasked is passed over", quiet},
        {"menu-items", "All of the menu items 001 to 149 can be read.", "no source", "EX001 to EX149",
         "menu, backup and restore", menuItems},
        {"menu-end", "There is no menu item 000 and none above 149.", "no source", "EX000 EX150", "menu and backup",
         noMoreItems},
        {"menu-form", "A menu value has one to five digits, some behind a sign.", "sibling radios", "EX001 to EX149",
         "menu files and the Menu Manager", menuForm},
        {"menu-numbers", "Menu 028 to 030 are the CAT rate, time-out and RTS (in early firmware 027 to 029).",
         "hamlib for 029; an owner's report for 2006", "EX027 to EX030, the signs of EX125 to EX142",
         "what a restore leaves alone, the equalizer", menuNumbers},
        {"cat-time-out", "The radio waits longer than 10 ms between two characters of a command.", "WriteLog's list",
         "EX029", "commands through USB adapters", catTimeOut},
        {"equalizer-form", "Menu 125 to 142 are the equalizer: two digits, sign and two digits, two digits.",
         "a sibling radio", "EX125 to EX142", "the equalizer window", equalizerForm},
        {"keyer-readable", "The five keyer texts can be read.", "a sibling radio", "KM1 to KM5",
         "the keyer window, backup", keyerReadable},
        {"keyer-end", "A keyer text ends with its last character.", "no source; a sibling ends it with \"}\"",
         "KM1 to KM5", "keyer files", keyerEnd},
        {"channel-form", "A memory channel is told in 27 characters.", "hamlib, TR4W", "MR001 to MR099",
         "memories, list, backup", channelForm},
        {"channel-asked", "The channel that was asked for is told, and no other.", "a sibling is reported otherwise",
         "MR001 to MR099", "memories, list, backup", channelAsked},
        {"empty-channel", "An empty channel is refused.", "hamlib, for the family", "MR001 to MR099",
         "memories, list, backup", emptyChannel},
        {"channel-source", "A channel's record has 0 or 1 where its source stands.", "hamlib", "MR001 to MR099",
         "the memory editor; 0 is written", channelSource},
        {"scan-limits", "Channels 100 to 117 are the scan limits.", "hamlib's table", "MR100 MR117",
         "backup of what is beyond 99", scanLimitsThere},
        {"register-questions", "Everything that a band stack register keeps can be read.", "hamlib, flrig",
         "AC to NB1, 21 questions", "the band stack", registersReadable},
        {"automatic", "AGC and roofing filter in automatic tell what they have chosen (4 to 6).", "hamlib", "GT0 RF0",
         "the band stack writes automatic again", automatic},
        {"antenna-form", "The antenna is told with the receive antenna behind it.", "no source", "AN0",
         "the band stack's antennas", antennaForm},
        {"band-stack", "Eleven bands of three registers; choosing a band again steps to its next one.", "no source",
         "BS00 to BS10, only where it is wanted", "the band stack", bandStack},
        {"silent-sets", "A command that sets something is not answered.", "hamlib, OmniRig, flrig", "", "every writing",
         cannotBeAsked},
        {"settable-items", "Every menu item that can be read can be set.", "no source", "",
         "a restore; it reads back, and names what did not take", cannotBeAsked},
        {"memory-write", "Writing a memory channel leaves the radio on its VFO.", "no source; hamlib allows for it", "",
         "memories and list; a restore", cannotBeAsked},
    };
}

std::string wordOf(Verdict verdict) {
    if (verdict == Verdict::Open) return "open";
    return verdict == Verdict::Confirmed ? "confirmed" : "refuted";
}

}  // namespace

const std::vector<Belief>& beliefs() {
    static const std::vector<Belief> all = allBeliefs();
    return all;
}

void judgeBeliefs(RadioReport& report) {
    report.beliefs.clear();
    for (const auto& belief : beliefs()) {
        const auto [verdict, shown] = belief.judge(report);
        report.beliefs.push_back({std::string(belief.id), wordOf(verdict), std::string(belief.sentence), shown});
    }
}

}  // namespace korvex
