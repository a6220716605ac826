#include "cat/FrequencyText.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/NumberText.h"

namespace korvex {

namespace {

constexpr int digitCount = 8;
constexpr std::size_t groupWidth = 3;
constexpr std::size_t mostDigits = 20;  // more is nonsense, whatever the unit

struct Unit {
    std::string_view name;  // lower case
    int decimals;           // digits behind the point that are still whole Hz
};
constexpr std::array<Unit, 3> units = {{{"mhz", 6}, {"khz", 3}, {"hz", 0}}};

/// Numbers between separators: "14", "250", "000", and what stood between them.
struct Groups {
    std::vector<std::string> numbers;
    std::string separators;  // one character each; a blank for every separator that can only group
};

RuntimeError refusal(const std::string& why) {
    return {errors::TypeMismatch, why};
}

/// ASCII, lower case; the blanks and the apostrophe of typesetters are plain ones.
std::string plain(std::string_view text) {
    constexpr std::array<std::pair<std::string_view, char>, 4> written = {
        {{"\xC2\xA0", ' '}, {"\xE2\x80\xAF", ' '}, {"\xE2\x80\x89", ' '}, {"\xE2\x80\x99", '\''}}};
    std::string out;
    while (!text.empty()) {
        const auto* const found = std::find_if(written.begin(), written.end(),
                                               [&](const auto& entry) { return text.starts_with(entry.first); });
        out += found == written.end() ? asciiLower(text.front()) : found->second;
        text.remove_prefix(found == written.end() ? 1 : found->first.size());
    }
    const auto first = out.find_first_not_of(' ');
    return first == std::string::npos ? "" : out.substr(first, out.find_last_not_of(' ') - first + 1);
}

const Unit* takeUnit(std::string& text) {
    const auto* const unit =
        std::find_if(units.begin(), units.end(), [&](const Unit& one) { return text.ends_with(one.name); });
    if (unit == units.end()) return nullptr;
    text.resize(text.size() - unit->name.size());
    while (text.ends_with(' ')) text.pop_back();
    return unit;
}

std::optional<Groups> groupsOf(std::string_view text) {
    Groups groups{{""}, {}};
    for (const char c : text) {
        if (isDigit(c)) {
            groups.numbers.back() += c;
        } else if (std::string_view(".,' ").find(c) != std::string_view::npos) {
            groups.separators += c == '\'' ? ' ' : c;
            groups.numbers.emplace_back();
        } else {
            return std::nullopt;
        }
    }
    const auto isEmpty = [](const std::string& number) { return number.empty(); };
    const bool broken = std::any_of(groups.numbers.begin(), groups.numbers.end(), isEmpty);
    return broken || text.size() > mostDigits ? std::nullopt : std::optional(groups);
}

/// One figure written in groups of three: of the same separator, up to `count` numbers.
bool isGrouped(const Groups& groups, std::size_t count) {
    for (std::size_t i = 1; i < count; ++i) {
        if (groups.numbers[i].size() != groupWidth || groups.separators[i - 1] != groups.separators[0]) return false;
    }
    return groups.numbers[0].size() <= groupWidth;
}

std::string joined(const Groups& groups, std::size_t count) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += groups.numbers[i];
    return all;
}

/// `decimals` digits of the fraction belong to the whole figure; nothing where what remains is not zero.
std::optional<std::string> scaled(const std::string& whole, std::string fraction, int decimals) {
    const auto width = static_cast<std::size_t>(decimals);
    if (fraction.size() < width) fraction.append(width - fraction.size(), '0');
    const bool finer = fraction.find_first_not_of('0', width) != std::string::npos;
    return finer ? std::nullopt : std::optional(whole + fraction.substr(0, width));
}

Result<std::string> asDigits(std::string hz) {
    hz.erase(0, std::min(hz.find_first_not_of('0'), hz.size()));
    if (hz.size() > digitCount) return refusal("does not fit into eight digits of Hz");
    return std::string(digitCount - hz.size(), '0') + hz;
}

/// The last separator is the decimal point.
Result<std::string> decimal(const Groups& groups, int decimals) {
    const std::size_t count = groups.numbers.size();
    if (count > 2 && !isGrouped(groups, count - 1)) return refusal("is no number");
    const auto hz = scaled(joined(groups, count - 1), groups.numbers.back(), decimals);
    if (!hz) return refusal("is finer than 1 Hz");
    return asDigits(*hz);
}

Result<std::string> whole(const Groups& groups, int decimals) {
    return asDigits(joined(groups, groups.numbers.size()) + std::string(static_cast<std::size_t>(decimals), '0'));
}

bool namesTunable(const Result<std::string>& digits) {
    return digits && isTunable(*digits);
}

/// "7.100 kHz": seven thousand, or seven and a tenth.
Result<std::string> oneOfBoth(const Groups& groups, int decimals) {
    const auto point = decimal(groups, decimals);
    const auto group = whole(groups, decimals);
    if (namesTunable(point) && namesTunable(group)) return refusal("can be read in two ways; write it in Hz or MHz");
    return namesTunable(group) ? group : point;
}

Result<std::string> withoutUnit(const Groups& groups) {
    const std::size_t count = groups.numbers.size();
    if (count == 1 || (count > 2 && isGrouped(groups, count))) return whole(groups, 0);
    const bool spreadsheet = count == 2 && groups.numbers[0].size() > groupWidth && groups.separators[0] != ' ';
    if (spreadsheet) return decimal(groups, 0);  // "14250000.0"
    return refusal("needs a unit: Hz, kHz or MHz");
}

Result<std::string> withUnit(const Groups& groups, const Unit& unit) {
    const std::size_t count = groups.numbers.size();
    const char last = count > 1 ? groups.separators.back() : ' ';
    const bool grouped = count > 1 && isGrouped(groups, count);
    if (count == 1 || (grouped && last == ' ')) return whole(groups, unit.decimals);
    if (unit.decimals == 6 && grouped && count == 3) return whole(groups, 0);  // "14.250.000 MHz" is read aloud so
    if (unit.decimals == 0 && grouped) return whole(groups, 0);
    if (last == ' ') return refusal("is no number");
    if (unit.decimals == 3 && grouped) return count == 2 ? oneOfBoth(groups, 3) : whole(groups, 3);
    return decimal(groups, unit.decimals);
}

}  // namespace

bool isTunable(std::string_view digits) {
    const auto hz = parseWhole(digits);
    return hz && *hz >= lowestTunable && *hz <= highestTunable;
}

std::string groupedFrequency(std::string_view digits) {
    const bool isNumber = !digits.empty() && std::all_of(digits.begin(), digits.end(), isDigit);
    if (!isNumber || digits.size() > mostDigits) return std::string(digits);
    std::string text(digits);
    constexpr std::size_t least = 2 * groupWidth + 1;
    if (text.size() < least) text.insert(0, least - text.size(), '0');
    text.erase(0, std::min(text.find_first_not_of('0'), text.size() - least));
    text.insert(text.size() - groupWidth, 1, '.');
    text.insert(text.size() - 2 * groupWidth - 1, 1, '.');
    return text;
}

Result<std::string> frequencyFromText(std::string_view text) {
    std::string number = plain(text);
    const Unit* unit = takeUnit(number);
    const auto groups = groupsOf(number);
    if (!groups) return refusal("is no frequency");
    return unit ? withUnit(*groups, *unit) : withoutUnit(*groups);
}

}  // namespace korvex
