#include "report/ReportText.h"

#include <algorithm>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "base/Printable.h"
#include "report/ReportSections.h"

namespace korvex {

namespace {

class Page {
public:
    void heading(std::string_view text) { m_text.append(m_text.empty() ? "" : "\n").append(text).append("\n"); }
    void line(std::string_view text) { m_text.append("  ").append(printableLine(text)).append("\n"); }
    void fact(const std::string& key, const std::string& value) { line(key + ": " + (value.empty() ? "-" : value)); }
    const std::string& text() const { return m_text; }

private:
    std::string m_text;
};

std::string yesOrNo(bool is) {
    return is ? "yes" : "no";
}

std::string padded(std::string text, std::size_t width) {
    if (text.size() < width) text.append(width - text.size(), ' ');
    return text;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const auto& word : words) text += (text.empty() ? "" : " ") + word;
    return text.empty() ? "nothing" : text;
}

std::string nameOf(const AskedForm& asked) {
    return asked.query.substr(0, asked.query.find(';'));
}

/// The form behind what the question says, in a word where there is none.
std::string restOf(const AskedForm& asked) {
    if (asked.form.empty()) return "no answer";
    if (asked.form == "?;") return "refused";
    const std::string name = nameOf(asked);
    const std::string form = utf8FromWire(asked.form.substr(0, asked.form.find(';')));
    if (!form.starts_with(name)) return "= " + form;
    return form.size() == name.size() ? "empty" : form.substr(name.size());
}

/// EX002 follows EX001.
bool follows(const AskedForm& first, const AskedForm& second) {
    constexpr std::size_t letters = 2;
    const std::string one = nameOf(first);
    const std::string other = nameOf(second);
    if (one.size() != other.size() || one.substr(0, letters) != other.substr(0, letters)) return false;
    const auto number = parseWhole(one.substr(letters));
    return number && parseWhole(other.substr(letters)) == *number + 1;
}

void addForms(Page& page, const RadioReport& report) {
    page.heading(sections::forms);
    constexpr std::size_t nameWidth = 16;
    const auto& forms = report.forms;
    for (std::size_t i = 0; i < forms.size(); ++i) {
        const std::size_t first = i;
        while (i + 1 < forms.size() && follows(forms[i], forms[i + 1]) &&
               restOf(forms[i + 1]) == restOf(forms[first])) {
            ++i;
        }
        const std::string range = i == first ? "" : " to " + nameOf(forms[i]);
        page.line(padded(nameOf(forms[first]) + range, nameWidth) + " " + restOf(forms[first]));
    }
}

void addBehaviour(Page& page, const RadioReport& report) {
    page.heading(sections::line);
    page.fact("line", report.line);
    page.fact("handshaking", std::to_string(report.handshaking));
    page.fact("model", utf8FromWire(report.model));
    page.fact("returns what is sent", yesOrNo(report.echoes));
    page.fact("noise between answers", yesOrNo(report.noise));
    page.fact("answers two questions sent at once", report.answersTwoAtOnce ? yesOrNo(*report.answersTwoAtOnce) : "");
    page.fact("tells unasked", joined(report.unasked));
    page.fact("channels told of 001 to 099", std::to_string(report.channelsTold));
    page.fact("channels of zeros", std::to_string(report.channelsOfZeros));
    page.fact("channels under another number", std::to_string(report.channelsMisnamed));
    page.fact("source digits of channels", utf8FromWire(report.channelSources));
    if (report.registersWalked) page.fact("band stack registers walked", std::to_string(*report.registersWalked));
    page.heading(sections::told);
    for (const auto& [query, answer] : report.told) page.line(query + " " + utf8FromWire(answer));
}

void addDelays(Page& page, const RadioReport& report) {
    page.heading(sections::delays);
    for (const auto& delay : report.delays) {
        const bool late = delay.withinMs > 1000;
        page.line(delay.letters + " usually " + std::to_string(delay.usualMs) + " ms, " +
                  (late ? "at times more than 1000 ms" : "at most " + std::to_string(delay.withinMs) + " ms"));
    }
}

void addBeliefs(Page& page, const RadioReport& report) {
    constexpr std::size_t verdictWidth = 10;
    page.heading(sections::beliefs);
    for (const auto& one : report.beliefs) {
        const std::string shown = one.shown.empty() ? "" : " (" + one.shown + ")";
        page.line(padded(one.verdict, verdictWidth) + one.id + ": " + one.belief + shown);
    }
}

}  // namespace

std::string reportText(const RadioReport& report) {
    Page page;
    page.heading(reportHeading);
    page.heading(sections::inShort);
    for (const auto& sentence : report.advice) page.line(sentence);
    page.line(report.settings.empty()
                  ? "This report holds no frequency, text or name of yours. It was sent nowhere."
                  : "This report holds your settings, because you wanted them in. It was sent nowhere.");
    page.heading(sections::made);
    page.fact("made", report.made);
    page.fact("device", report.device);
    page.fact("adapter", report.adapter);
    page.fact("adapter's latency timer", report.latencyMs ? std::to_string(*report.latencyMs) + " ms" : "");
    page.fact("RTS", report.rts);
    page.fact("CTS", report.cts);
    std::string text = page.text() + "\n" + behaviourText(report);
    if (report.settings.empty()) return text;
    Page settings;
    settings.heading(sections::settings);
    for (const auto& answer : report.settings) settings.line(utf8FromWire(answer));
    return text + "\n" + settings.text();
}

std::string behaviourText(const RadioReport& report) {
    Page page;
    addBehaviour(page, report);
    addDelays(page, report);
    addBeliefs(page, report);
    addForms(page, report);
    return page.text();
}

}  // namespace korvex
