#include "doctor/Advice.h"

#include <algorithm>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "cat/RadioModel.h"
#include "menu/MenuCommandTable.h"

namespace korvex {

namespace {

using Lines = std::vector<std::string>;

std::string itemList(const std::vector<int>& items) {
    constexpr std::size_t most = 20;
    std::string text;
    for (std::size_t i = 0; i < std::min(most, items.size()); ++i) {
        text += (i == 0 ? "" : ", ") + zeroPadded(items[i], 3);
    }
    if (items.size() > most) text += " and " + std::to_string(items.size() - most) + " more";
    return text;
}

int refutedCount(const RadioReport& report) {
    return static_cast<int>(std::count_if(report.beliefs.begin(), report.beliefs.end(),
                                          [](const JudgedBelief& one) { return one.verdict == "refuted"; }));
}

std::string verdictOf(const RadioReport& report) {
    const std::string name(ft2000Named(report.model));
    const int refuted = refutedCount(report);
    if (refuted == 0) return "This " + name + " answers as Korvex expects it to.";
    return "This " + name + " answers in " + std::to_string(refuted) + (refuted == 1 ? " point" : " points") +
           " otherwise than Korvex expects; the list below says where.";
}

void addLine(const RadioReport& report, Lines& lines) {
    constexpr int slowLatencyMs = 4;
    if (report.line.starts_with("4800,") || report.line.starts_with("9600,")) {
        lines.emplace_back(
            "Menu 028 (CAT rate) at 38400 makes every transfer several times as fast. Set it in the radio "
            "first, then in Korvex's port settings.");
    }
    if (report.latencyMs.value_or(0) > slowLatencyMs) {
        lines.push_back("The adapter keeps every answer for up to " + std::to_string(*report.latencyMs) +
                        " ms. Its latency timer can be set to 1 ms (in /sys/bus/usb-serial/devices, or with "
                        "\"setserial DEVICE low_latency\").");
    }
    if (report.echoes) lines.emplace_back("The cable or adapter returns what is sent. Korvex takes it out.");
    if (report.noise) {
        lines.emplace_back(
            "Characters that make no sense came over the line: check cable, plugs and grounding, and the "
            "data format in the port settings.");
    }
    if (report.cts == "low") {
        lines.emplace_back("CTS is low: the radio, or the cable, says that it does not want to hear anything.");
    }
}

void addCatSettings(const RadioReport& report, Lines& lines) {
    if (report.isRefuted("menu-numbers")) {
        lines.emplace_back(
            "The menu numbers seem to be one lower than in later firmware: 027 to 029 are the CAT settings. Korvex "
            "heeds that from now on: it writes no menu file with later numbers into this radio, and opens no equalizer "
            "window for it. The titles in the Menu Manager are those of later firmware.");
        return;
    }
    if (report.isRefuted("cat-time-out")) {
        lines.emplace_back("Menu 029 (CAT TOT) is 10 ms; an adapter may be slower within a command. 100 ms is safe.");
    }
    constexpr int rtsHandshaking = 2;
    if (report.value(menuReadCommand(30)) == "1" && report.handshaking < rtsHandshaking) {
        lines.emplace_back(
            "Menu 030 (CAT RTS) is on, and Korvex does not use RTS: set handshaking to RTS in the port "
            "settings, or the menu to off, if answers stay away.");
    }
}

void addTraffic(const RadioReport& report, Lines& lines) {
    if (!report.unasked.empty()) {
        std::string names;
        for (const auto& name : report.unasked) names += (names.empty() ? "" : ", ") + name;
        const bool tellsItself = report.value("AI;") == "1";
        lines.push_back("This came without a question: " + names + ". " +
                        (tellsItself
                             ? "Auto Information (AI) is on in the radio. Korvex passes it over."
                             : "The dial was turned, or another program talks to the radio on this line. Korvex "
                               "passes it over; while it transfers the other one should rest."));
    }
    if (report.isRefuted("turnaround")) {
        lines.emplace_back(
            "The radio takes more than half a second at times. Korvex waits for it, and "
            "\"Fast verified Transfers\" asks once more.");
    }
    if (report.isRefuted("two-at-once")) {
        lines.emplace_back(
            "Of two commands sent in one go the radio obeys one. \"Fast verified Transfers\" leave room between them "
            "from now on, and are not as fast as elsewhere.");
    }
}

void addContents(const RadioReport& report, Lines& lines) {
    const auto refused = menuItemsWith(report, "?;");
    if (!refused.empty()) {
        lines.push_back("The radio refuses menu " + itemList(refused) +
                        ": no backup holds them, and a restore leaves them out from now on, and names them.");
    }
    if (const auto silent = menuItemsWith(report, ""); !silent.empty()) {
        lines.push_back("The radio does not answer to menu " + itemList(silent) +
                        ": no whole menu can be read from it.");
    }
    if (report.isRefuted("equalizer-form") && !report.isRefuted("menu-numbers")) {
        lines.emplace_back(
            "The equalizer's items have another form: from now on no equalizer window opens for this radio.");
    }
    if (report.isRefuted("keyer-readable")) {
        lines.emplace_back("Keyer texts cannot be read from this radio: keep the files that you write them from.");
    }
    if (report.isRefuted("keyer-end")) {
        lines.emplace_back(
            "Keyer texts come with \"}\" behind them. It is no part of the text, and is taken off from now on.");
    }
    if (report.isRefuted("antenna-form")) {
        lines.emplace_back(
            "The radio does not tell whether its receive antenna is on: band stack files do not hold that.");
    }
    if (report.isRefuted("channel-asked")) {
        lines.emplace_back("The radio tells another memory channel than it is asked for: memories cannot be saved.");
    }
    if (report.isRefuted("empty-channel")) {
        lines.emplace_back("Empty memory channels come as channels of 0 Hz; Korvex takes them for empty.");
    }
    if (!report.notHome.empty()) lines.push_back(report.notHome);
}

}  // namespace

std::vector<int> menuItemsWith(const RadioReport& report, std::string_view answer) {
    std::vector<int> items;
    for (int item = 1; item <= menuItemCount; ++item) {
        const auto* asked = report.form(menuReadCommand(item));
        if (asked != nullptr && asked->form == answer) items.push_back(item);
    }
    return items;
}

std::vector<std::string> adviceFor(const RadioReport& report, const Outcome& how) {
    if (report.model.empty() && !how.isDone()) {
        return {"No radio has told what it is. Is it switched on, the cable in CAT, the speed that of menu 028?"};
    }
    if (how.kind == Outcome::Kind::Refused) {
        return {"This is no FT-2000: it says " + utf8FromWire(report.model) +
                " Korvex is not made for it, asks it nothing more and writes nothing into it."};
    }
    Lines lines;
    if (how.isDone()) {
        lines.push_back(verdictOf(report));
    } else {
        lines.emplace_back("The check did not come to its end; what is told here is what was seen until then.");
    }
    addLine(report, lines);
    addCatSettings(report, lines);
    addTraffic(report, lines);
    addContents(report, lines);
    return lines;
}

bool isAsBelieved(const RadioReport& report, const Outcome& how) {
    return how.isDone() && refutedCount(report) == 0;
}

}  // namespace korvex
