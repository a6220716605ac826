#include "backup/ReadSoFar.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "base/NumberText.h"

namespace korvex {

namespace {

constexpr std::string_view head = "Korvex: what an unfinished backup has read\n";
constexpr int hexadecimal = 16;

std::string escaped(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= ' ' && c != '\\') {
            result += c;
        } else {
            result.append("\\").append({digits[byte / hexadecimal], digits[byte % hexadecimal]});
        }
    }
    return result;
}

std::optional<std::string> unescaped(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const auto plain = std::min(text.find('\\'), text.size());
        result += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty()) break;
        unsigned int byte = 0;
        const std::string_view digits = text.substr(1, 2);
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), byte, hexadecimal);
        if (digits.size() < 2 || read.ptr != digits.data() + digits.size()) return std::nullopt;
        result += static_cast<char>(byte);
        text.remove_prefix(1 + digits.size());
    }
    return result;
}

std::string line(const std::vector<std::string>& values) {
    std::string text;
    for (const auto& value : values) text += (text.empty() ? "" : "\t") + escaped(value);
    return text + "\n";
}

/// Empty when one of them cannot be understood.
std::vector<std::string> valuesIn(std::string_view text) {
    std::vector<std::string> values;
    for (std::size_t begin = 0; begin <= text.size();) {
        const auto end = std::min(text.find('\t', begin), text.size());
        auto value = unescaped(text.substr(begin, end - begin));
        if (!value) return {};
        values.push_back(std::move(*value));
        begin = end + 1;
    }
    return values;
}

void take(ReadSoFar& soFar, const std::vector<std::string>& values) {
    constexpr std::size_t ofAnswer = 5;
    const std::string what = values.empty() ? "" : values[0];
    if (what == "session" && values.size() == 2) {
        soFar.sessions.push_back(values[1]);
    } else if (what == "model" && values.size() == 2) {
        soFar.model = values[1];
    } else if (what == "whole" && values.size() == 2) {
        soFar.readings[values[1]].isWhole = true;
    } else if (what == "answer" && values.size() == ofAnswer && !soFar.sessions.empty()) {
        const int session = static_cast<int>(soFar.sessions.size()) - 1;
        soFar.readings[values[1]].answers[values[2]] = {values[3], values[4], session};
    }
}

}  // namespace

bool ReadSoFar::isEmpty() const {
    return std::all_of(readings.begin(), readings.end(), [](const auto& one) { return one.second.answers.empty(); });
}

std::string answerLine(const std::string& reading, const std::string& item, const ReadSoFar::Answer& answer) {
    return line({"answer", reading, item, answer.query, answer.answer});
}

std::string textOf(const ReadSoFar& soFar) {
    std::string text(head);
    if (!soFar.model.empty()) text += line({"model", soFar.model});
    for (int session = 0; session < static_cast<int>(soFar.sessions.size()); ++session) {
        text += line({"session", soFar.sessions.at(static_cast<std::size_t>(session))});
        for (const auto& [name, reading] : soFar.readings) {
            for (const auto& [item, answer] : reading.answers) {
                if (answer.session == session) text += answerLine(name, item, answer);
            }
        }
    }
    for (const auto& [name, reading] : soFar.readings) {
        if (reading.isWhole) text += line({"whole", name});
    }
    return text;
}

Result<ReadSoFar> parseReadSoFar(std::string_view text) {
    if (!text.starts_with(head)) {
        return RuntimeError{errors::TypeMismatch, "it is not what a backup of Korvex has written"};
    }
    text.remove_prefix(head.size());
    ReadSoFar soFar;
    // What stands behind the last line end was cut off.
    for (auto end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        take(soFar, valuesIn(text.substr(0, end)));
        text.remove_prefix(end + 1);
    }
    return soFar;
}

}  // namespace korvex
