#include "radio/Likeness.h"

#include <algorithm>
#include <array>

#include "base/NumberText.h"
#include "radio/Commands.h"
#include "radio/Setting.h"
#include "report/AnswerForm.h"

namespace korvex {

namespace {

constexpr std::size_t letters = 2;
constexpr std::size_t menuHead = 5;     // EX042
constexpr std::size_t channelHead = 5;  // MR007
constexpr std::size_t channelRecord = 21;

std::string commandOf(const std::string& query) {
    return query.substr(0, query.find(';'));
}

int numberIn(const std::string& query) {
    return parseWhole(commandOf(query).substr(letters)).value_or(-1);
}

/// What stands between the question's characters and the ";".
std::string valueIn(const std::string& answer, std::size_t head) {
    return answer.size() > head ? answer.substr(head, answer.size() - head - 1) : "";
}

/// It is a question, and sets nothing: a report is a file that anybody may have written.
bool asks(const std::string& command) {
    const std::string name = command.substr(0, letters);
    if (name == "EX" || name == "MR") return command.size() == menuHead;
    if (name == "KM") return command.size() == letters + 1;
    return findSetting(command) != nullptr || command == "IF" || command == "MC" || command == "AC";
}

/// One radio being made like another.
class Mould {
public:
    Mould(const RadioReport& report, SimulatedRadio& radio, RadioLine& line)
        : m_report(report), m_radio(radio), m_line(line) {}

    void make() {
        setQuirks();
        setFaults();
        setPauses();
        for (const auto& [query, answer] : m_report.told) takeTold(commandOf(query), commandOf(answer));
        for (const auto& asked : m_report.forms) take(asked);
        tellSources();
    }

private:
    void setQuirks() {
        auto& quirks = m_radio.quirks;
        const auto* antenna = m_report.form("AN0;");
        constexpr std::size_t withReceiveAntenna = sizeof("AN010;") - 1;
        quirks.antennaAnswerTellsRxAntenna = antenna == nullptr || antenna->form.size() == withReceiveAntenna;
        quirks.automaticIsResolved = m_report.value("RF0;") != "0";
        quirks.emptyChannelAnswersZeros = m_report.channelsOfZeros > 0;
        quirks.readsCurrentChannel = m_report.channelsMisnamed > 0;
        if (!m_report.channelSources.empty()) quirks.sourceInMemoryRead = m_report.channelSources.back();
        constexpr int withoutSixtyMetres = 30;
        if (m_report.registersWalked) quirks.hasSixtyMetres = *m_report.registersWalked > withoutSixtyMetres;
        quirks.keyerTextEndsWithBrace = std::any_of(
            m_report.forms.begin(), m_report.forms.end(),
            [](const AskedForm& asked) { return asked.query.starts_with("KM") && asked.form.ends_with("};"); });
    }

    void setFaults() {
        auto& faults = m_line.faults;
        faults.echoes = m_report.echoes;
        faults.garbage = m_report.noise;
        faults.oneAtATime = m_report.answersTwoAtOnce == false;
        faults.unasked = !m_report.unasked.empty();
        for (const auto& name : m_report.unasked) m_line.tellsUnasked.push_back(unasked(name));
    }

    /// "IF" tells itself, "SM" for the main receiver.
    std::string unasked(const std::string& name) {
        for (const char* receiver : {"", "0"}) {
            const std::string answer = m_radio.obey(name + receiver);
            if (!answer.empty() && answer != commands::refused) return answer;
        }
        return name + "0;";
    }

    void setPauses() {
        const auto& classes = AnswerDelay::classesMs;
        for (const auto& delay : m_report.delays) {
            const auto* within = std::lower_bound(classes.begin(), classes.end() - 1, delay.withinMs);
            const int shorter = within == classes.begin() ? 0 : *(within - 1);
            const int late = shorter >= delay.usualMs ? (*within + shorter) / 2 : delay.usualMs;
            m_line.pauses[delay.letters] = {delay.usualMs, std::max(late, delay.usualMs)};
        }
    }

    /// Whatever else a line may say is nothing to be obeyed.
    void takeTold(const std::string& command, const std::string& answer) {
        const bool isMenuItem = command.starts_with("EX") && command.size() == menuHead;
        const bool isKept = isMenuItem || command == "AI" || command == "GT0" || command == "RF0";
        if (isKept && answer.size() > command.size() && answer.starts_with(command)) m_radio.obey(answer);
    }

    void take(const AskedForm& asked) {
        const std::string command = commandOf(asked.query);
        if (!asks(command)) return;
        if (asked.form == commands::refused) {
            refuse(command);
            return;
        }
        if (asked.form.empty()) {
            m_line.fixedAnswers[command] = "";
            return;
        }
        if (command.starts_with("EX")) takeMenuItem(asked);
        if (command.starts_with("MR")) takeChannel(asked);
        if (command.starts_with("KM")) takeKeyerText(asked);
        const std::string answer = m_radio.obey(command);
        const auto told = m_report.told.find(asked.query);
        const bool isTold = told != m_report.told.end();
        if (isTold ? answer == told->second : formOf(asked.query, answer) == asked.form) return;
        m_line.fixedAnswers[command] = isTold ? told->second : answerOf(asked.form);
    }

    /// An empty channel is refused by itself, and may be written.
    void refuse(const std::string& command) {
        const int number = numberIn(command);
        if (command.starts_with("MR") && number >= 1 && number <= RadioState::lastChannel) {
            m_radio.state.memories.at(static_cast<std::size_t>(number)).reset();
        } else if (m_radio.obey(command) != commands::refused) {
            m_line.faults.refusesItems.push_back(command);
        }
    }

    void takeMenuItem(const AskedForm& asked) {
        const int item = numberIn(asked.query);
        if (item < 1 || item > RadioState::menuItems || m_report.told.contains(asked.query)) return;
        auto& value = m_radio.state.menu.at(static_cast<std::size_t>(item));
        if (formOf(asked.query, commandOf(asked.query) + value + ";") == asked.form) return;
        value = valueIn(answerOf(asked.form), menuHead);
    }

    void takeChannel(const AskedForm& asked) {
        const int channel = numberIn(asked.query);
        if (channel < 1 || channel > RadioState::lastChannel) return;
        constexpr int last = 99;
        const bool isZeros = channel <= last && ++m_channels > m_report.channelsTold - m_report.channelsOfZeros;
        auto& record = m_radio.state.memories.at(static_cast<std::size_t>(channel));
        if (isZeros) {
            record.reset();
        } else if (!record) {
            record = "14195000+000000200000";
        }
    }

    void takeKeyerText(const AskedForm& asked) {
        const int memory = numberIn(asked.query);
        if (memory < 1 || memory > RadioState::keyerTexts) return;
        auto& text = m_radio.state.keyer.at(static_cast<std::size_t>(memory));
        const bool isText = asked.form.find('*') != std::string::npos;
        if (text.empty() == isText) text = isText ? "TEXT" : "";
    }

    /// More than one kind of source was seen: the first channels show the others.
    void tellSources() {
        constexpr std::size_t source = channelHead + 16;
        std::size_t others = m_report.channelSources.empty() ? 0 : m_report.channelSources.size() - 1;
        for (const auto& asked : m_report.forms) {
            const std::string command = commandOf(asked.query);
            if (others == 0) return;
            if (!command.starts_with("MR")) continue;
            std::string answer = m_radio.obey(command);
            if (answer.size() != channelHead + channelRecord + 1) continue;
            answer[source] = m_report.channelSources[--others];
            m_line.fixedAnswers[command] = answer;
        }
    }

    const RadioReport& m_report;
    SimulatedRadio& m_radio;
    RadioLine& m_line;
    int m_channels = 0;  // of 001 to 099 that have been taken
};

}  // namespace

void behaveLike(const RadioReport& report, SimulatedRadio& radio, RadioLine& line) {
    Mould(report, radio, line).make();
}

}  // namespace korvex
