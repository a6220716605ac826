#include "backup/FileKind.h"

#include <algorithm>
#include <set>

#include "bandstack/BandStackFile.h"
#include "bandstack/BandStackWriter.h"
#include "base/CodePage.h"
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

Result<DataItems> scanLimitItems(std::string_view content) {
    auto items = memoryItems(content);
    if (!items) return items;
    for (const auto& item : *items) {
        if (!scanLimits.has(parseWhole(item.name).value_or(0))) {
            return RuntimeError{errors::TypeMismatch, "Channel " + item.name + " is no scan limit"};
        }
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

// --- what a kind is about

std::string count(std::size_t number, const std::string& what) {
    return std::to_string(number) + " " + what;
}

bool isCommand(const DataItem& item) {
    return !item.command.empty();
}

std::string menuLacks(std::string_view /*content*/, const DataItems& items) {
    std::set<std::string> named;
    for (const auto& item : items) named.insert(item.name);
    if (named.size() == std::size_t{menuItemCount}) return {};
    return "it holds " + std::to_string(named.size()) + " of " + count(menuItemCount, "menu items");
}

DataItems takeCatItems(DataItems& items, MenuNumbers numbers) {
    std::stable_sort(items.begin(), items.end(), [numbers](const DataItem& one, const DataItem& other) {
        return catRank(one.command, numbers) < catRank(other.command, numbers);
    });
    const auto first = std::find_if(items.begin(), items.end(),
                                    [numbers](const DataItem& item) { return setsCatLine(item.command, numbers); });
    DataItems cat(first, items.end());
    items.erase(first, items.end());
    return cat;
}

std::string registersHeld(const DataItems& items, std::size_t /*missing*/) {
    const auto registers =
        std::count_if(items.begin(), items.end(), [](const DataItem& item) { return item.name.ends_with(" BS"); });
    return count(static_cast<std::size_t>(registers), "registers");
}

std::string bandStackLacks(std::string_view content, const DataItems& /*items*/) {
    const auto cells = parseBandStackText(content);
    return cells ? missingRegisters(*cells) : "";
}

std::vector<std::string> refusedBands(const DataItems& items) {
    std::vector<std::string> lines;
    for (int band = 0; band < BandStackCells::registers / BandStackCells::perBand; ++band) {
        const std::string name = zeroPadded(band, 2);
        const bool told =
            std::any_of(items.begin(), items.end(), [&](const DataItem& item) { return item.name.starts_with(name); });
        if (!told) lines.push_back("the band stack of band " + name);
    }
    return lines;
}

std::string tooLongText(const DataItems& items) {
    for (const auto& item : items) {
        if (item.value.size() <= longestKeyerText) continue;
        return item.name + ": the text has " + std::to_string(item.value.size()) +
               " characters, and a memory of the radio takes " + std::to_string(longestKeyerText);
    }
    return {};
}

}  // namespace

/// The menu is restored first: it decides what a keyer memory may hold.
const std::vector<FileKind>& fileKinds() {
    static const std::vector<FileKind> kinds = {
        {.name = "menu",
         .ending = "mnu",
         .items = menuItems,
         .holds = [](const DataItems& items, std::size_t) { return count(items.size(), "menu items"); },
         .counts = [](const DataItem& item) { return !wasRefused(item); },
         .lacks = menuLacks,
         .takeLineItems = takeCatItems,
         .order = 1,
         .hasFixedWidths = true},
        {.name = "memory",
         .ending = "mem",
         .items = memoryItems,
         .holds = [](const DataItems& items, std::size_t) { return count(items.size(), "channels"); },
         .counts = isCommand,
         .order = 2,
         .absentIsEmpty = true},
        {.name = "list",
         .ending = "mef",
         .items = listItems,
         .holds = [](const DataItems& items,
                     std::size_t) { return count(items.size(), "channels, the same, with room for remarks"); },
         .counts = isCommand,
         .absentIsEmpty = true},
        {.name = "scanlimits",
         .ending = "pms",
         .items = scanLimitItems,
         .holds = [](const DataItems& items, std::size_t) { return count(items.size(), "scan limits (P1L to P9U)"); },
         .counts = isCommand,
         .order = 3,
         .absentIsEmpty = true,
         .leftOut = "scan limits (channels 100 to 117): it has none, or the first pair is not set"},
        {.name = "bandstack",
         .ending = "bsr",
         .items = bandStackItems,
         .holds = registersHeld,
         .counts = isCommand,
         .lacks = bandStackLacks,
         .refusedAsAWhole = refusedBands,
         .order = 4,
         .isCircle = true},
        // An empty text is a question for the radio.
        {.name = "keyer",
         .ending = "kem",
         .items = keyerItems,
         .holds = [](const DataItems& items, std::size_t missing) { return count(items.size() - missing, "texts"); },
         .counts = [](const DataItem& item) { return !item.value.empty(); },
         .objection = tooLongText,
         .order = 5},
    };
    return kinds;
}

std::string kindNames() {
    std::string names;
    for (const auto& kind : fileKinds()) names.append(names.empty() ? "" : ", ").append(kind.name);
    return names;
}

const FileKind* fileKind(std::string_view name) {
    for (const auto& kind : fileKinds()) {
        if (kind.name == name) return &kind;
    }
    return nullptr;
}

std::string backupFileName(const FileKind& kind) {
    return std::string(kind.name) + "." + std::string(kind.ending);
}

bool holdsAnything(const FileKind& kind, const DataItems& items) {
    return std::any_of(items.begin(), items.end(), kind.counts);
}

std::string titled(const std::string& kind, const std::string& item, const ItemTitles& titles) {
    const std::string title = titles ? titles(kind, item) : "";
    return utf8FromWire(item) + (title.empty() ? "" : " (" + title + ")");
}

bool wasRefused(const DataItem& item) {
    return item.value == "?;" || (item.value == "?" && item.command.starts_with("EX"));  // "?" is a keyer text
}

}  // namespace korvex
