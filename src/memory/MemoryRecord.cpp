#include "memory/MemoryRecord.h"

#include <algorithm>

#include "base/NumberText.h"

namespace korvex {

namespace {

constexpr std::string_view readName = "MR";
constexpr std::string_view writeName = "MW";
constexpr std::string_view terminator = ";";
constexpr char errorSign = '?';
constexpr std::string_view errorAnswer = "?;";

constexpr bool layoutIsGapless() {
    int position = static_cast<int>(readName.size()) + 1;
    for (std::size_t i = 0; i < memoryLayout.size(); ++i) {
        if (memoryLayout[i].position != position || memoryLayout[i].field != static_cast<MemoryField>(i)) return false;
        position += memoryLayout[i].width;
    }
    return position == static_cast<int>(memoryStringLength);
}
static_assert(layoutIsGapless(), "the fields follow one another, in the order of MemoryField, up to the terminator");

std::string_view from(std::string_view text, std::size_t offset) {
    return offset < text.size() ? text.substr(offset) : std::string_view{};
}

/// What a read command and its answer begin with: the command's name and the channel.
constexpr std::size_t headLength = static_cast<std::size_t>(memoryPlace(MemoryField::Frequency).position - 1);

bool isLetterOrDigit(char c) {
    const char upper = asciiUpper(c);
    return isDigit(c) || (upper >= 'A' && upper <= 'Z');
}

bool isSign(char c) {
    return c == '+' || c == '-';
}

using CharacterTest = bool (*)(char);

CharacterTest allowedIn(MemoryField field) {
    switch (field) {
        case MemoryField::Channel:
        case MemoryField::Frequency:
        case MemoryField::ClarifierOffset: return isDigit;
        case MemoryField::ClarifierDirection: return isSign;
        default: return isLetterOrDigit;
    }
}

}  // namespace

bool canStandIn(MemoryField field, std::string_view text) {
    return text.size() == static_cast<std::size_t>(memoryPlace(field).width) &&
           std::all_of(text.begin(), text.end(), allowedIn(field));
}

bool hasMemoryShape(std::string_view text) {
    if (!text.starts_with(readName) && !text.starts_with(writeName)) return false;
    if (!from(text, shortestMemoryString).empty() && !from(text, shortestMemoryString).starts_with(terminator)) {
        return false;
    }
    return std::all_of(memoryLayout.begin(), memoryLayout.end(), [text](const MemoryFieldPlace& place) {
        return canStandIn(place.field, memoryFieldIn(text, place.field));
    });
}

std::string_view memoryFieldIn(std::string_view memoryString, MemoryField field) {
    const auto& place = memoryPlace(field);
    return from(memoryString, static_cast<std::size_t>(place.position - 1))
        .substr(0, static_cast<std::size_t>(place.width));
}

std::optional<MemoryRecord> parseMemoryString(std::string_view memoryString) {
    if (memoryString.size() < shortestMemoryString) return std::nullopt;
    MemoryRecord record;
    for (const auto& place : memoryLayout) record[place.field] = memoryFieldIn(memoryString, place.field);
    record[MemoryField::Remark] = from(memoryString, memoryStringLength);
    return record;
}

std::string channelText(int channel) {
    return zeroPadded(channel, memoryPlace(MemoryField::Channel).width);
}

std::string memoryReadCommand(int channel) {
    std::string command(readName);
    return command.append(channelText(channel)).append(terminator);
}

std::optional<std::string> memoryAnswerIn(std::string_view received) {
    const auto start = received.rfind(readName);
    if (start != std::string_view::npos) return std::string(received.substr(start));
    if (received.starts_with(errorSign) || received.ends_with(errorAnswer)) return std::string(errorAnswer);
    return std::nullopt;
}

bool isErrorAnswer(std::string_view answer) {
    return answer.starts_with(errorSign);
}

std::optional<std::string> storedMemoryString(std::string_view readCommand, std::string_view answer) {
    if (isErrorAnswer(answer) || answer.size() <= headLength) return std::nullopt;
    answer.remove_suffix(terminator.size());
    std::string stored(readCommand.substr(0, headLength));
    return stored.append(from(answer, headLength)).append(terminator);
}

bool isUndamaged(std::string_view storedString) {
    return storedString.starts_with(readName) && storedString.size() == memoryStringLength &&
           hasMemoryShape(storedString);
}

std::string memoryWriteCommand(std::string_view storedString) {
    std::string command(writeName);
    return command.append(from(storedString, readName.size()));
}

std::string memoryWriteCommand(const MemoryRecord& record) {
    std::string command(writeName);
    for (const auto& place : memoryLayout) command += record[place.field];
    return command.append(terminator);
}

std::string memoryListLine(const MemoryRecord& record) {
    return memoryWriteCommand(record) + record[MemoryField::Remark];
}

}  // namespace korvex
