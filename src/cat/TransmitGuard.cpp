#include "cat/TransmitGuard.h"

#include <algorithm>
#include <string>

#include "base/NumberText.h"

namespace korvex {

namespace {

bool isControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7f';
}

bool isBlankOrForeign(char c) {
    return static_cast<unsigned char>(c) <= ' ' || static_cast<unsigned char>(c) >= 0x7f;
}

/// What a radio hears that passes over everything that belongs to no command.
std::string closedUp(std::string_view wire) {
    std::string text;
    for (const char c : wire) {
        if (!isBlankOrForeign(c)) text += asciiUpper(c);
    }
    return text;
}

/// What a radio hears that begins anew behind a control character or one that is not ASCII.
std::string withoutFragments(std::string_view wire) {
    std::string text;
    std::size_t commandBegins = 0;
    for (const char c : wire) {
        if (c == ' ') continue;
        if (isBlankOrForeign(c)) {
            text.resize(commandBegins);
            continue;
        }
        text += asciiUpper(c);
        if (c == ';') commandBegins = text.size();
    }
    return text;
}

/// `ended`: the ";" has come, so nothing can follow that would make another command of it.
bool keysWith(const KeyingCommand& row, std::string_view command, bool ended) {
    if (!command.starts_with(row.letters)) return !ended && !command.empty() && row.letters.starts_with(command);
    const std::string_view behind = command.substr(row.letters.size());
    switch (row.when) {
        case KeyingCommand::When::Always: return true;
        case KeyingCommand::When::NotZero: return behind.empty() ? !ended : behind.front() != '0';
        case KeyingCommand::When::ThirdIsTwo: return behind.size() > 2 ? behind[2] == '2' : !ended;
    }
    return true;
}

bool keys(std::string_view command, bool ended) {
    return std::any_of(keyingCommands.begin(), keyingCommands.end(),
                       [&](const KeyingCommand& row) { return keysWith(row, command, ended); });
}

bool anyKeys(std::string_view heard) {
    for (auto end = heard.find(';'); end != std::string_view::npos; end = heard.find(';')) {
        if (keys(heard.substr(0, end), true)) return true;
        heard.remove_prefix(end + 1);
    }
    return keys(heard, false);
}

}  // namespace

bool keysTransmitter(std::string_view wire) {
    return anyKeys(closedUp(wire)) || anyKeys(withoutFragments(wire));
}

bool holdsControlCharacter(std::string_view wire) {
    return std::any_of(wire.begin(), wire.end(), isControl);
}

}  // namespace korvex
