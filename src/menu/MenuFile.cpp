#include "menu/MenuFile.h"

#include <algorithm>
#include <array>
#include <set>

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/NumberText.h"
#include "base/Printable.h"
#include "cat/TransmitGuard.h"

namespace korvex {

namespace {

constexpr std::size_t mostLines = 152;  // lines 150 to 152 of an edited file are taken, and never sent
constexpr std::size_t headLength = 5;   // EX042
constexpr std::string_view refusal = "?;";

RuntimeError refused(const std::string& why) {
    return {errors::TypeMismatch, why};
}

/// "EX042", a value, ";".
bool isItem(std::string_view line) {
    if (line.size() < headLength + 2 || !line.starts_with("EX") || !line.ends_with(';')) return false;
    const std::string_view digits = line.substr(2, 3);
    const auto item = std::all_of(digits.begin(), digits.end(), isDigit) ? parseWhole(digits) : std::nullopt;
    return item && *item >= 1 && *item <= menuItemCount &&
           isMenuValue(line.substr(headLength, line.size() - headLength - 1));
}

std::string whyNoMenuLine(std::string_view line) {
    if (line.empty() || line == refusal || isItem(line)) return {};
    return keysTransmitter(line) ? "would key the transmitter" : "is no line of a menu file";
}

}  // namespace

std::string menuFileText(const MenuCommandTable& table) {
    std::string text;
    for (int item = 1; item <= menuItemCount; ++item) {
        // A line is an item, whatever noise came with the answer.
        for (const char c : table.answer(item)) {
            if (c != '\r' && c != '\n') text += c;
        }
        text += crLf;
    }
    return text;
}

Result<std::vector<std::string>> menuFileLines(std::string_view content) {
    std::vector<std::string> lines;
    FieldReader reader(content);
    while (const auto field = reader.next()) {
        if (lines.size() == mostLines) return refused("The file has more than " + std::to_string(mostLines) + " lines");
        if (const std::string why = whyNoMenuLine(*field); !why.empty()) {
            return refused("Line " + std::to_string(lines.size() + 1) + " (" +
                           printableLine(utf8FromWire(field->substr(0, 20))) + ") " + why);
        }
        lines.emplace_back(*field);
    }
    return lines;
}

int itemsTold(const std::vector<std::string>& lines) {
    std::set<std::string> told;
    for (const auto& line : lines) {
        if (isItem(line)) told.insert(line.substr(2, 3));
    }
    return static_cast<int>(told.size());
}

int itemsRefused(const std::vector<std::string>& lines) {
    return static_cast<int>(std::count(lines.begin(), lines.end(), refusal));
}

namespace {

/// How many of the equalizer's levels have a sign, if the first of them is this item.
int levelsFrom(const std::vector<std::string>& lines, int firstItem) {
    constexpr int levels = 6;
    constexpr int distance = 3;
    int found = 0;
    for (const auto& line : lines) {
        if (!isItem(line) || (line[headLength] != '+' && line[headLength] != '-')) continue;
        const int behind = parseWhole(line.substr(2, 3)).value_or(0) - firstItem;
        if (behind >= 0 && behind < levels * distance && behind % distance == 0) ++found;
    }
    return found;
}

}  // namespace

MenuNumbers menuNumbersOf(const KnownRadio& radio) {
    return radio.hasEarlyMenuNumbers ? MenuNumbers::Early : MenuNumbers::Later;
}

std::optional<MenuNumbers> numbersIn(const std::vector<std::string>& lines) {
    constexpr int firstLevel = 126;
    constexpr int enough = 3;  // of six: a file may be of a part of the menu
    const int later = levelsFrom(lines, firstLevel);
    const int early = levelsFrom(lines, firstLevel - 1);
    if (later >= enough && early == 0) return MenuNumbers::Later;
    if (early >= enough && later == 0) return MenuNumbers::Early;
    return {};
}

CatSetting catSetting(std::string_view command, MenuNumbers numbers) {
    constexpr int rate = 28;
    if (command.size() <= headLength + 1 || !command.starts_with("EX")) return CatSetting::None;
    const int item = parseWhole(command.substr(2, 3)).value_or(0) + (numbers == MenuNumbers::Early ? 1 : 0);
    switch (item) {
        case rate: return CatSetting::Rate;
        case rate + 1: return CatSetting::TimeOut;
        case rate + 2: return CatSetting::Rts;
        default: return CatSetting::None;
    }
}

int catRank(std::string_view command, MenuNumbers numbers) {
    const CatSetting setting = catSetting(command, numbers);
    if (setting == CatSetting::None) return 0;
    return setting == CatSetting::Rate ? 2 : 1;
}

bool setsCatLine(std::string_view command, MenuNumbers numbers) {
    return catSetting(command, numbers) != CatSetting::None;
}

MenuLines apartFromCatLines(const std::vector<std::string>& lines, MenuNumbers numbers) {
    MenuLines apart;
    for (std::size_t i = 0; i < std::min(lines.size(), std::size_t{menuItemCount}); ++i) {
        const std::string& line = lines[i];
        if (setsCatLine(line, numbers)) {
            apart.cat.push_back(line);
        } else {
            apart.items.push_back(line == refusal ? std::string() : line);
        }
    }
    std::stable_sort(apart.cat.begin(), apart.cat.end(), [numbers](const std::string& one, const std::string& other) {
        return catRank(one, numbers) < catRank(other, numbers);
    });
    return apart;
}

MenuCommandTable namedAnswers(const MenuCommandTable& table) {
    MenuCommandTable named;
    for (int row = 1; row <= menuItemCount; ++row) {
        const std::string& answer = table.answer(row);
        if (isItem(answer)) named.setAnswer(parseWhole(itemInLine(answer)).value_or(0), answer);
    }
    return named;
}

std::vector<std::string> missingItems(const MenuCommandTable& table) {
    std::vector<std::string> missing;
    for (int item = 1; item <= menuItemCount; ++item) {
        const std::string& answer = table.answer(item);
        const bool isIts = isItem(answer) && answer.starts_with(menuReadCommand(item).substr(0, headLength));
        if (!isIts) missing.push_back(zeroPadded(item, 3));
    }
    return missing;
}

std::vector<std::string> refusedItems(const MenuCommandTable& table) {
    std::vector<std::string> refused;
    for (int item = 1; item <= menuItemCount; ++item) {
        if (table.answer(item) == refusal) refused.push_back(zeroPadded(item, 3));
    }
    return refused;
}

int answersInPlace(const MenuCommandTable& table) {
    return menuItemCount - static_cast<int>(missingItems(table).size());
}

}  // namespace korvex
