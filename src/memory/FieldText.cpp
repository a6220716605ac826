#include "memory/FieldText.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/AsciiText.h"
#include "base/NumberText.h"
#include "cat/FrequencyText.h"
#include "memory/MemoryListFile.h"

namespace korvex {

namespace {

RuntimeError refusal(const std::string& why) {
    return {errors::TypeMismatch, why};
}

/// "67" is what a spreadsheet makes of "67.0"; no code of a tone is as high. Some have a comma.
std::string asLabel(MemoryField field, std::string text) {
    if (field != MemoryField::ToneNumber) return text;
    std::replace(text.begin(), text.end(), ',', '.');
    const auto number = parseWhole(text);
    return number && *number >= toneTable.size() ? text + ".0" : text;
}

Result<std::string> fromList(MemoryField field, const std::string& text) {
    const CodeList& list = *codesOf(field);
    const std::string label = asLabel(field, text);
    for (int position = 0; position < list.size(); ++position) {
        if (isSameWord(list.label(position), label)) return list.code(position);
    }
    std::string upper;
    for (const char c : text) upper += asciiUpper(c);
    if (const auto position = list.position(upper)) return list.code(*position);
    return refusal("is none of its values");
}

/// "125", "1'234" and "125 Hz".
Result<std::string> offsetFromText(const std::string& text) {
    std::string digits = text;
    if (digits.size() > 2 && isSameWord(digits.substr(digits.size() - 2), "hz")) digits.resize(digits.size() - 2);
    std::erase_if(digits, [](char c) { return c == '\'' || c == '.' || c == ',' || c == ' '; });
    const auto hz = parseWhole(digits);
    const int width = memoryPlace(MemoryField::ClarifierOffset).width;
    if (!hz || !isDigit(digits.front())) return refusal("is no number of Hz");
    if (*hz > 9999) return refusal("is more than 9999 Hz");
    return zeroPadded(*hz, width);
}

Result<std::string> remarkFromText(const std::string& text) {
    if (const auto why = whyRemarkIsRefused(text)) return refusal("cannot stay: " + *why);
    return text;
}

Result<std::string> digitFromText(const std::string& text) {
    if (text.empty()) return std::string("0");
    return canStandIn(MemoryField::FixedDigit, text) ? Result<std::string>(text) : refusal("is no single digit");
}

Result<std::string> channelFromText(const std::string& text) {
    const auto number = parseWhole(text);
    return number && *number >= 1 && *number <= lastMemoryChannel ? Result<std::string>(channelText(*number))
                                                                  : refusal("is no channel");
}

}  // namespace

const CodeList* codesOf(MemoryField field) {
    switch (field) {
        case MemoryField::ClarifierDirection: return &directionTable;
        case MemoryField::RxClarifier:
        case MemoryField::TxClarifier: return &clarifierTable;
        case MemoryField::Mode: return &modeTable;
        case MemoryField::CtcssMode: return &ctcssModeTable;
        case MemoryField::ToneNumber: return &toneTable;
        case MemoryField::Shift: return &shiftTable;
        default: return nullptr;
    }
}

std::string readableField(MemoryField field, const std::string& code) {
    if (code.empty()) return code;
    if (field == MemoryField::Frequency) return groupedFrequency(code);
    if (field == MemoryField::ClarifierOffset) {
        const auto hz = parseWhole(code);
        return hz ? std::to_string(*hz) : code;
    }
    const CodeList* list = codesOf(field);
    const auto position = list ? list->position(code) : std::nullopt;
    return position ? std::string(list->label(*position)) : code;
}

Result<std::string> fieldFromText(MemoryField field, const std::string& text) {
    if (field == MemoryField::Remark) return remarkFromText(text);
    const std::string written(trimmed(text, " \t"));
    switch (field) {
        case MemoryField::Channel: return channelFromText(written);
        case MemoryField::Frequency: return frequencyFromText(written);
        case MemoryField::FixedDigit: return digitFromText(written);
        case MemoryField::ClarifierOffset: return offsetFromText(written.empty() ? "0" : written);
        default: return fromList(field, written);
    }
}

std::string_view fieldName(MemoryField field) {
    constexpr std::array<std::string_view, memoryFieldCount> names = {
        "Channel",      "Frequency",    "Clarifier", "Clarifier offset",
        "RX clarifier", "TX clarifier", "Mode",      "Fixed digit",
        "CTCSS mode",   "Tone",         "Shift",     "Remark"};
    return names.at(static_cast<std::size_t>(field));
}

}  // namespace korvex
