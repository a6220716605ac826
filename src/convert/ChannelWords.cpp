#include "convert/ChannelWords.h"

#include "base/Lines.h"
#include "base/NumberText.h"
#include "memory/MemoryFile.h"
#include "memory/MemoryListFile.h"
#include "memory/MemoryTables.h"

namespace korvex {

Result<std::vector<MemoryRecord>> channelsIn(std::string_view kind, std::string_view content) {
    std::vector<MemoryRecord> channels;
    if (kind == "list") {
        const auto records = parseMemoryListFile(content);
        if (!records) return records.error();
        for (const auto& [row, record] : *records) channels.push_back(record);
        return channels;
    }
    const auto lines = parseMemoryFile(content);
    if (!lines) return lines.error();
    for (const auto& line : *lines) {
        if (auto record = parseMemoryString(line)) channels.push_back(std::move(*record));
    }
    return channels;
}

Result<std::string> channelFile(std::string_view kind, const std::map<int, MemoryRecord>& channels) {
    std::string text;
    for (const auto& [channel, record] : channels) {
        std::string line = kind == "list" ? memoryListLine(record) : memoryWriteCommand(record);
        if (kind != "list") line.replace(0, 2, "MR");
        text.append(line).append(crLf);
    }
    if (kind == "list") text.append(crLf);
    const auto readAgain = channelsIn(kind, text);
    if (!readAgain) return readAgain.error();
    return text;
}

int channelNamed(const std::string& cell) {
    const auto number = parseWhole(cell);
    return number && *number >= 1 && *number <= lastMemoryChannel ? *number : 0;
}

}  // namespace korvex
