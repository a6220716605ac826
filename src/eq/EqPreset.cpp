#include "eq/EqPreset.h"

#include <optional>
#include <vector>

#include "base/Lines.h"

namespace korvex {

namespace {

constexpr std::string_view heading = "Korvex equalizer preset 1";
constexpr std::string_view off = "OFF";

std::string valueText(const EqItem& item, int value) {
    return eq::isOff(item, value) ? std::string(off) : eq::displayText(item, value);
}

RuntimeError wrong(std::size_t line, const std::string& why) {
    return {errors::TypeMismatch, "This is no equalizer preset of Korvex: line " + std::to_string(line) + " " + why};
}

std::vector<std::string_view> linesOf(std::string_view file) {
    std::vector<std::string_view> lines;
    FieldReader reader(file);
    while (const auto line = reader.next()) lines.push_back(*line);
    return lines;
}

std::string beginningOf(const EqItem& item) {
    return std::string(item.name) + " = ";
}

/// Exactly what valueText makes of a value that is in the range.
std::optional<int> valueFrom(const EqItem& item, std::string_view text) {
    for (int value = item.lowest; value <= item.highest; value += item.step) {
        if (valueText(item, value) == text) return value;
    }
    return {};
}

}  // namespace

std::string eqPresetText(const EqValues& values) {
    std::string text = std::string(heading).append(crLf);
    for (std::size_t item = 0; item < eqItemCount; ++item) {
        text += (beginningOf(eqItems[item]) + valueText(eqItems[item], values[item])).append(crLf);
    }
    return text;
}

Result<EqValues> parseEqPreset(std::string_view file) {
    const auto lines = linesOf(file);
    if (lines.empty() || lines[0] != heading) return wrong(1, "is not \"" + std::string(heading) + "\".");
    EqValues values{};
    for (std::size_t item = 0; item < eqItemCount; ++item) {
        const std::size_t at = item + 1;
        const std::string beginning = beginningOf(eqItems[item]);
        if (at >= lines.size() || !lines[at].starts_with(beginning)) {
            return wrong(at + 1, "should begin with \"" + beginning + "\".");
        }
        const auto value = valueFrom(eqItems[item], lines[at].substr(beginning.size()));
        if (!value) return wrong(at + 1, "has a value that the radio does not know.");
        values[item] = *value;
    }
    if (lines.size() != eqItemCount + 1) return wrong(eqItemCount + 2, "is one too many.");
    return values;
}

}  // namespace korvex
