#include "backup/DataItems.h"

#include <algorithm>
#include <map>

#include "bandstack/BandStackFile.h"
#include "bandstack/BandStackWriter.h"
#include "base/NumberText.h"
#include "keyer/KeyerFile.h"
#include "memory/MemoryFile.h"
#include "memory/MemoryList.h"
#include "memory/MemoryListFile.h"
#include "memory/MemoryListWriter.h"
#include "memory/MemoryRecord.h"
#include "menu/MenuFile.h"

namespace korvex {

namespace {

/// Without the command in front and the ";" behind.
std::string valueBehind(std::size_t head, const std::string& command) {
    if (command.size() <= head) return command;
    return command.substr(head, command.size() - head - (command.ends_with(';') ? 1 : 0));
}

Result<DataItems> menuItems(std::string_view content) {
    const auto lines = menuFileLines(content);
    if (!lines) return lines.error();
    DataItems items;
    for (std::size_t i = 0; i < std::min(lines->size(), std::size_t{menuItemCount}); ++i) {
        const std::string& line = (*lines)[i];
        if (line.empty()) continue;
        constexpr std::size_t head = 5;        // EX042
        const bool told = line.size() > head;  // else "?;", which stands in the item's own row
        const std::string row = zeroPadded(static_cast<int>(i) + 1, 3);
        items.push_back({told ? line.substr(2, 3) : row, told ? valueBehind(head, line) : line, line, {}});
    }
    return items;
}

constexpr std::size_t memoryHead = 5;  // MW007

Result<DataItems> memoryItems(std::string_view content) {
    const auto lines = parseMemoryFile(content);
    if (!lines) return lines.error();
    DataItems items;
    for (const auto& line : *lines) {
        const std::string command = memoryWriteCommand(line);
        const auto channel = std::string(memoryFieldIn(line, MemoryField::Channel));
        items.push_back({channel, valueBehind(memoryHead, command), command, {}});
    }
    return items;
}

Result<DataItems> listItems(std::string_view content) {
    const auto records = parseMemoryListFile(content);
    if (!records) return records.error();
    MemoryList list;
    list.replaceAll(*records);
    DataItems items;
    for (const auto& [row, record] : *records) {
        const std::string command = memoryListCommand(list, row).value_or("");
        items.push_back({channelText(row), valueBehind(memoryHead, memoryWriteCommand(record)), command,
                         record[MemoryField::Remark]});
    }
    return items;
}

DataItem bandStackItem(const BandStackCells& cells, int row, int column) {
    const std::string& cell = cells.at(row, column);
    return {cellName(cells, row, column), row == 0 ? "" : cell, bandStackCommand(cell), {}};
}

/// The registers in the order in which they are written; a band that the radio had refused is passed over.
Result<DataItems> bandStackItems(std::string_view content) {
    const auto cells = parseBandStackText(content);
    if (!cells) return cells.error();
    DataItems items;
    for (int column = 1; column < BandStackCells::columns; ++column) {
        if (cells->at(1, column) == "?;") {
            column += 2;
            continue;
        }
        for (int row = 0; row <= BandStackCells::lastQueried; ++row) {
            items.push_back(bandStackItem(*cells, row, column));
        }
    }
    return items;
}

Result<DataItems> keyerItems(std::string_view content) {
    const auto rows = parseKeyerFile(content);
    if (!rows) return rows.error();
    DataItems items;
    for (std::size_t row = 1; row < rows->size(); ++row) {
        const int memory = static_cast<int>(row);
        const WireText text((*rows)[row].at(1));
        if (const auto why = whyNotSendable(text); !why.empty()) {
            return RuntimeError{errors::TypeMismatch, "Memory " + std::to_string(memory) + ": " + why};
        }
        items.push_back({keyerHead(memory), text.bytes(), keyerWriteCommand(memory, text), {}});
    }
    return items;
}

}  // namespace

Result<DataItems> dataItems(const std::string& kind, std::string_view content) {
    using Reader = Result<DataItems> (*)(std::string_view);
    static const std::map<std::string, Reader> readers = {{"menu", menuItems},
                                                          {"memory", memoryItems},
                                                          {"list", listItems},
                                                          {"bandstack", bandStackItems},
                                                          {"keyer", keyerItems}};
    const auto reader = readers.find(kind);
    if (reader == readers.end()) {
        return RuntimeError{errors::TypeMismatch, "there is no kind of file called " + kind};
    }
    return reader->second(content);
}

std::string endingOf(std::string_view kind) {
    const auto* found =
        std::find_if(dataKinds.begin(), dataKinds.end(), [kind](const DataKind& row) { return row.name == kind; });
    return std::string(found == dataKinds.end() ? std::string_view() : found->ending);
}

bool wasRefused(const DataItem& item) {
    return item.value == "?;" || (item.value == "?" && item.command.starts_with("EX"));  // "?" is a keyer text
}

}  // namespace korvex
