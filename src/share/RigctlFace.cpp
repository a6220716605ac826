#include "share/RigctlFace.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <sstream>

#include "base/NumberText.h"
#include "cat/FrequencyText.h"
#include "share/RigctlTables.h"

namespace korvex {

namespace {

// hamlib's codes.
constexpr int done = 0;
constexpr int invalidParameter = -1;
constexpr int noAnswer = -5;
constexpr int rejected = -9;
constexpr int notAvailable = -11;

constexpr std::size_t longestLine = 256;
constexpr std::size_t mostLines = 64;

/// "14250000.000000": whole Hz that the radio tunes, with eight digits.
std::optional<std::string> frequencyDigits(const std::string& text) {
    const std::string whole = text.substr(0, text.find('.'));
    if (whole.empty() || !std::all_of(whole.begin(), whole.end(), isDigit)) return std::nullopt;
    const auto hz = parseWhole(whole);
    if (!hz || *hz < lowestTunable || *hz > highestTunable) return std::nullopt;
    return zeroPadded(*hz, 8);
}

std::optional<char> vfoNamed(const std::string& name) {
    if (name == "VFOA" || name == "Main" || name == "currVFO" || name == "VFO") return '0';
    if (name == "VFOB" || name == "Sub") return '1';
    return std::nullopt;
}

std::string nameOfVfo(char vfo) {
    return vfo == '1' ? "VFOB" : "VFOA";
}

std::vector<std::string> wordsOf(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

}  // namespace

struct RigctlFace::Request {
    char letter;  ///< 0: it has none
    std::string_view name;
    std::size_t words;  ///< that have to stand behind it
    void (RigctlFace::*run)(const Words& words);
    bool ofTransmitter = false;
};

const RigctlFace::Request* RigctlFace::requestNamed(const std::string& name) {
    static constexpr std::array<Request, 19> all = {{
        {'f', "get_freq", 0, &RigctlFace::getFrequency},
        {'F', "set_freq", 1, &RigctlFace::setFrequency},
        {'i', "get_split_freq", 0, &RigctlFace::getFrequency, true},
        {'I', "set_split_freq", 1, &RigctlFace::setFrequency, true},
        {'m', "get_mode", 0, &RigctlFace::getMode},
        {'M', "set_mode", 2, &RigctlFace::setMode},
        {'x', "get_split_mode", 0, &RigctlFace::getMode, true},
        {'X', "set_split_mode", 2, &RigctlFace::setMode, true},
        {'v', "get_vfo", 0, &RigctlFace::getVfo},
        {'V', "set_vfo", 1, &RigctlFace::setVfo},
        {'s', "get_split_vfo", 0, &RigctlFace::getSplit},
        {'S', "set_split_vfo", 2, &RigctlFace::setSplit},
        {'t', "get_ptt", 0, &RigctlFace::getPtt},
        {'T', "set_ptt", 1, &RigctlFace::setPtt},
        {'\0', "chk_vfo", 0, &RigctlFace::checkVfo},
        {'\0', "dump_state", 0, &RigctlFace::dumpState},
        {'\0', "get_powerstat", 0, &RigctlFace::getPower},
        {'\0', "get_lock_mode", 0, &RigctlFace::getLockMode},
        {'q', "quit", 0, &RigctlFace::quit},
    }};
    const bool longForm = name.starts_with('\\');
    const auto* found = std::find_if(all.begin(), all.end(), [&](const Request& request) {
        return longForm ? request.name == name.substr(1) : name.size() == 1 && request.letter == name[0];
    });
    return found == all.end() ? nullptr : found;
}

RigctlFace::RigctlFace(SharedLine& line, std::shared_ptr<Caller> caller) : m_line(line), m_caller(std::move(caller)) {
    m_connections += m_caller->said.connect([this](std::string_view bytes) { hear(bytes); });
    m_connections += m_caller->left.connect([this] { left.emit(); });
}

RigctlFace::~RigctlFace() {
    m_line.forget(this);
}

void RigctlFace::hear(std::string_view bytes) {
    for (const char c : bytes) {
        if (c != '\n' && m_heard.size() < longestLine) m_heard += c;
        if (c == '\n' && m_lines.size() < mostLines) m_lines.push_back(std::move(m_heard));
        if (c == '\n') m_heard.clear();
    }
    goOn();
}

void RigctlFace::goOn() {
    if (m_busy || m_lines.empty()) return;
    const std::string line = std::move(m_lines.front());
    m_lines.pop_front();
    begin(line);
}

void RigctlFace::begin(const std::string& line) {
    m_extended = line.starts_with('+');
    Words words = wordsOf(m_extended ? line.substr(1) : line);
    if (words.empty()) return goOn();
    m_busy = true;
    m_request = requestNamed(words.front());
    words.erase(words.begin());
    if (m_request == nullptr) return end(notAvailable);
    if (words.size() < m_request->words) return end(invalidParameter);
    m_ofTransmitter = m_request->ofTransmitter;
    (this->*m_request->run)(words);
}

void RigctlFace::answer(const std::vector<Value>& values) {
    std::string text = m_extended ? std::string(m_request->name) + ":\n" : "";
    for (const auto& value : values) text += (m_extended ? value.label + ": " : "") + value.text + "\n";
    reply(m_extended ? text + "RPRT 0\n" : text);
}

void RigctlFace::end(int code) {
    const std::string head = m_extended && m_request != nullptr ? std::string(m_request->name) + ":\n" : "";
    reply(head + "RPRT " + std::to_string(code) + "\n");
}

void RigctlFace::reply(const std::string& text) {
    m_caller->write(text);
    m_busy = false;
    goOn();
}

void RigctlFace::ask(const std::string& wire, const Then& then) {
    m_line.ask({this, wire, [this, wire, then](std::string_view answer) {
                    if (answer.empty()) return end(noAnswer);
                    if (answer.size() < wire.size() + 1 || answer == "?;") return end(rejected);
                    then(std::string(answer.substr(wire.size() - 1, answer.size() - wire.size())));
                }});
}

void RigctlFace::set(const std::string& wire, const Then& then) {
    m_line.ask({this, wire, [then](std::string_view answer) { then(std::string(answer)); }});
}

void RigctlFace::setAndEnd(const std::string& wire) {
    set(wire, [this](const std::string& refusal) { end(refusal.empty() ? done : rejected); });
}

RigctlFace::Then RigctlFace::first(const std::function<void(char)>& then) {
    return [then](const std::string& text) { then(text.front()); };
}

void RigctlFace::getFrequency(const Words&) {
    withVfo([this](char vfo) {
        ask(vfo == '1' ? "FB;" : "FA;", [this](const std::string& digits) {
            const auto hz = parseWhole(digits);
            if (!hz) return end(rejected);
            answer({{m_ofTransmitter ? "TX Frequency" : "Frequency", std::to_string(*hz)}});
        });
    });
}

void RigctlFace::setFrequency(const Words& words) {
    const auto digits = frequencyDigits(words[0]);
    if (!digits) return end(invalidParameter);
    withVfo([this, digits](char vfo) { setAndEnd((vfo == '1' ? "FB" : "FA") + *digits + ";"); });
}

void RigctlFace::getMode(const Words&) {
    withVfo([this](char vfo) {
        ask(std::string("MD") + vfo + ";", first([this](char code) {
                const std::string_view mode = rigctlModeOf(code);
                if (mode.empty()) return end(rejected);
                const std::string label = m_ofTransmitter ? "TX " : "";
                // The radio has widths by number and mode; 0 is hamlib's word for the usual one.
                answer({{label + "Mode", std::string(mode)}, {label + "Passband", "0"}});
            }));
    });
}

void RigctlFace::setMode(const Words& words) {
    const auto code = codeOfRigctlMode(words[0]);
    if (!code) return end(invalidParameter);
    withVfo([this, code](char vfo) { setAndEnd(std::string("MD") + vfo + *code + ";"); });
}

void RigctlFace::getVfo(const Words&) {
    withVfo([this](char vfo) { answer({{"VFO", nameOfVfo(vfo)}}); });
}

void RigctlFace::setVfo(const Words& words) {
    const auto vfo = vfoNamed(words[0]);
    if (!vfo) return end(invalidParameter);
    setAndEnd(std::string("VS") + *vfo + ";");
}

void RigctlFace::getSplit(const Words&) {
    withVfo([this](char receives) {
        ask("FT;", first([this, receives](char transmits) {
                answer({{"Split", transmits == receives ? "0" : "1"}, {"TX VFO", nameOfVfo(transmits)}});
            }));
    });
}

void RigctlFace::setSplit(const Words& words) {
    const auto vfo = vfoNamed(words[1]);
    if (!vfo || (words[0] != "0" && words[0] != "1")) return end(invalidParameter);
    if (words[0] == "1") return chooseTransmitter(*vfo);
    withVfo([this](char receives) { chooseTransmitter(receives); });
}

/// hamlib sets with 2 and 3, the manual lists 0 and 1: what is refused is tried the other way.
void RigctlFace::chooseTransmitter(char vfo) {
    set(vfo == '1' ? "FT3;" : "FT2;", [this, vfo](const std::string& refusal) {
        if (refusal.empty()) return end(done);
        setAndEnd(std::string("FT") + vfo + ";");
    });
}

void RigctlFace::getPtt(const Words&) {
    ask("TX;", first([this](char state) { answer({{"PTT", state == '0' ? "0" : "1"}}); }));
}

void RigctlFace::setPtt(const Words& words) {
    setAndEnd(words[0] == "0" ? "TX0;" : "TX1;");
}

void RigctlFace::checkVfo(const Words&) {
    answer({{"ChkVFO", "0"}});
}

void RigctlFace::dumpState(const Words&) {
    reply(std::string(rigctlState()));
}

void RigctlFace::getPower(const Words&) {
    answer({{"Power Status", "1"}});
}

void RigctlFace::getLockMode(const Words&) {
    answer({{"Locked", "0"}});
}

/// The other side closes when it has had its answer.
void RigctlFace::quit(const Words&) {
    end(done);
}

}  // namespace korvex
