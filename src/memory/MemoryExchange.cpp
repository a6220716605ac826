#include "memory/MemoryExchange.h"

#include "base/NumberText.h"
#include "memory/MemoryRecord.h"

namespace korvex {

namespace {

std::string compared(std::string_view memoryString) {
    std::string fields(memoryString.substr(std::min(memoryString.size(), std::size_t{2})));  // behind "MR" or "MW"
    const auto digit = static_cast<std::size_t>(memoryPlace(MemoryField::FixedDigit).position - 1 - 2);
    if (digit < fields.size()) fields[digit] = '0';
    return fields;
}

}  // namespace

Exchange memoryReading(int channel) {
    const std::string query = memoryReadCommand(channel);
    return {channelText(channel), query, {query.substr(0, query.size() - 1), shortestMemoryAnswer}};
}

Exchange memoryWriting(const std::string& command) {
    Exchange exchange = memoryReading(parseWhole(memoryFieldIn(command, MemoryField::Channel)).value_or(0));
    exchange.command = command;
    exchange.refusedIfEmpty = true;
    exchange.confirms = [wanted = compared(command)](std::string_view answer) { return compared(answer) == wanted; };
    return exchange;
}

bool isSameMemory(std::string_view one, std::string_view other) {
    return compared(one) == compared(other);
}

}  // namespace korvex
