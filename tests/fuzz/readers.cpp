// The targets of the pure readers.

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

#include "backup/FileKind.h"
#include "backup/ReadSoFar.h"
#include "bandstack/BandStackFile.h"
#include "base/CodePage.h"
#include "base/Lines.h"
#include "cat/TransmitGuard.h"
#include "cli/CommandLine.h"
#include "cli/Comparison.h"
#include "desktop/StartOptions.h"
#include "fuzz/Fuzz.h"
#include "fuzz/Judge.h"
#include "keyer/KeyerTable.h"
#include "memory/MemoryFile.h"
#include "memory/MemoryListFile.h"
#include "memory/MemoryListWriter.h"
#include "menu/DescriptionTable.h"
#include "menu/MenuFile.h"
#include "platform/LineSettings.h"
#include "radio/Faults.h"
#include "radio/Likeness.h"
#include "report/ReportText.h"

namespace korvex {

namespace {

/// What holds for a data file of every kind as korvexctl reads it: it is like itself, and what would be sent for its
/// items keys no transmitter.
void checkItems(const std::string& kind, std::string_view content) {
    const auto items = fileKind(kind)->items(content);
    if (!items) {
        EXPECT_FALSE(items.error().text.empty());
        return;
    }
    EXPECT_TRUE(differences(*items, *items, Remarks::Count).empty());
    std::ostringstream out;
    cli::print(out, differences(*items, {}, Remarks::Count), kind, {});
    std::string sent;
    for (const auto& item : *items) sent.append(item.command).append(crLf);
    EXPECT_EQ(fuzz::keysTransmitterWith(sent), "");
}

/// A value that stands in a file of lines just as it is: no quotes, commas and outer blanks, which the reader takes
/// away.
bool isPlain(std::string_view value) {
    return value.find_first_of("\",\r\n") == std::string_view::npos && !value.starts_with(' ') && !value.ends_with(' ');
}

}  // namespace

/// What an unfinished backup has left: what is taken from it stands in it again.
FUZZ_TARGET(unfinished_backup) {
    const auto soFar = parseReadSoFar(input);
    if (!soFar) {
        EXPECT_FALSE(soFar.error().text.empty());
        return;
    }
    const std::string text = textOf(*soFar);
    const auto again = parseReadSoFar(text);
    ASSERT_TRUE(again);
    EXPECT_EQ(textOf(*again), text);
}

/// A report about a radio: what was taken from it is in it again, and a simulated radio can be made by it.
FUZZ_TARGET(radio_report) {
    const auto report = parseReport(input);
    if (!report) {
        EXPECT_FALSE(report.error().text.empty());
        return;
    }
    const std::string text = reportText(*report);
    const auto again = parseReport(text);
    ASSERT_TRUE(again);
    EXPECT_EQ(reportText(*again).substr(text.find(report->model)), text.substr(text.find(report->model)));
    SimulatedRadio radio;
    RadioLine line(radio);
    behaveLike(*report, radio, line);
    EXPECT_EQ(radio.timesKeyed, 0);
    for (const auto& asked : report->forms) line.hear(0, asked.query);
}

/// A file of the menu: what is taken from it fits into the table, and is in the file again after a save.
FUZZ_TARGET(menu_file) {
    checkItems("menu", input);
    const auto lines = menuFileLines(input);
    if (!lines) return;
    ASSERT_LE(lines->size(), std::size_t{152});
    MenuCommandTable table;
    int row = 0;
    bool plain = true;
    for (const auto& line : *lines) {
        plain = plain && isPlain(line);
        table.setAnswer(++row, line);
    }
    EXPECT_LE(answersInPlace(table), menuItemCount);
    if (!plain) return;
    const auto again = menuFileLines(menuFileText(table));
    ASSERT_TRUE(again) << again.error().text;
    ASSERT_EQ(again->size(), std::size_t{menuItemCount});
    for (int item = 1; item <= menuItemCount; ++item) {
        EXPECT_EQ((*again)[static_cast<std::size_t>(item) - 1], table.answer(item));
    }
}

/// A file of the memories: what is taken from it fits into the table, and is in the file again after a save.
FUZZ_TARGET(memory_file) {
    checkItems("memory", input);
    const auto lines = parseMemoryFile(input);
    if (!lines) return;
    ASSERT_LE(lines->size(), std::size_t{MemoryTable::lastSlot});
    MemoryTable table;
    int slot = 0;
    for (const auto& line : *lines) table.set(++slot, line);
    if (!std::all_of(lines->begin(), lines->end(), isPlain)) return;
    const auto again = parseMemoryFile(memoryFileText(table, slot));
    ASSERT_TRUE(again);
    EXPECT_EQ(*again, *lines);
}

/// A memory list: every record has its row, and the list is in the file again after a save.
FUZZ_TARGET(memory_list_file) {
    checkItems("list", input);
    const auto parsed = parseMemoryListFile(input);
    if (!parsed) return;
    const auto& records = *parsed;
    MemoryList list;
    list.replaceAll(records);
    bool plain = true;
    bool keepable = true;  // a quoted remark can hold a comma, which is told at the save
    std::string sent;
    for (const auto& [row, record] : records) {
        ASSERT_TRUE(row >= 1 && row <= MemoryList::rows);
        plain = plain && isPlain(memoryListLine(record));
        keepable = keepable && record[MemoryField::Remark].find_first_of("\r\n,") == std::string::npos;
        sent.append(memoryListCommand(list, row).value_or("")).append(crLf);
    }
    EXPECT_EQ(fuzz::keysTransmitterWith(sent), "");
    const auto text = memoryListFileText(list);
    EXPECT_EQ(static_cast<bool>(text), keepable);
    if (text && plain) {
        const auto again = parseMemoryListFile(*text);
        ASSERT_TRUE(again);
        EXPECT_EQ(*again, records);
    }
}

/// A file of the band stack: what is sent for its cells keys no transmitter and toggles no antenna, and the cells are
/// given alike by the file that is saved from them.
FUZZ_TARGET(band_stack_file) {
    const auto cells = parseBandStackText(input);
    if (!cells) {
        EXPECT_FALSE(cells.error().text.empty());
        return;
    }
    std::string sent;
    for (int column = 1; column < BandStackCells::columns; ++column) {
        for (int row = 0; row <= BandStackCells::lastQueried; ++row) {
            sent.append(bandStackCommand(cells->at(row, column))).append(crLf);
        }
    }
    EXPECT_EQ(fuzz::keysTransmitterWith(sent), "");
    EXPECT_EQ(sent.find("AN05"), std::string::npos);
    // Without a count in front, rows that are not there cannot be told from empty ones.
    if (cells->rows() != BandStackCells::allRows) return;
    const auto again = parseBandStackText(bandStackFileText(*cells));
    ASSERT_TRUE(again) << again.error().text;
    EXPECT_EQ(*again, *cells);
}

/// A file of the keyer's texts: what the table holds is in the file again after a save, and is told when it cannot be.
FUZZ_TARGET(keyer_file) {
    checkItems("keyer", input);
    const auto rows = parseKeyerFile(input);
    if (!rows) return;
    ASSERT_LE(rows->size(), std::size_t{KeyerTable::rows});
    KeyerTable table;
    table.fill(*rows);
    for (int row = 0; row < KeyerTable::rows; ++row) ASSERT_EQ(table.whyNotStorable(row), "");
    const std::string text = keyerFileText(table.fileRows());
    const auto again = parseKeyerFile(text);
    ASSERT_TRUE(again) << again.error().text;
    KeyerTable other;
    other.fill(*again);
    EXPECT_EQ(keyerFileText(other.fileRows()), text);
}

/// A table of menu descriptions: refused with a reason, or the same again after an export.
FUZZ_TARGET(description) {
    const auto table = parseDescription(input);
    if (!table) {
        EXPECT_FALSE(table.error().text.empty());
        return;
    }
    const auto again = parseDescription(descriptionText(*table));
    ASSERT_TRUE(again) << again.error().text;
    EXPECT_EQ(again->records, table->records);
}

/// The arguments of the programs, one a line.
FUZZ_TARGET(command_line) {
    const auto arguments = fuzz::cutAt('\n', input);
    if (const auto command = cli::parseArguments(arguments)) {
        const bool sends = command->verb == cli::Command::Verb::Send;
        EXPECT_TRUE(!sends || command->allowTransmit || !keysTransmitter(command->text));
        EXPECT_TRUE(!command->settings || parseLineSettings(*command->settings));
        EXPECT_TRUE(!command->handshaking || (*command->handshaking >= 0 && *command->handshaking <= 3));
    } else {
        EXPECT_FALSE(command.error().text.empty());
    }
    if (const auto options = parseStartOptions(arguments)) {
        for (const auto& [number, device] : options->ports) EXPECT_TRUE(number >= 1 && number <= 20 && !device.empty());
    }
    Faults faults;
    for (const auto& argument : arguments) static_cast<void>(setFault(faults, argument));
    EXPECT_TRUE(faults.slowMs >= 0 && faults.glued >= 0);
}

/// The bridge between the text of the line and what a person sees: no byte is lost on the way there and back, and what
/// cannot be expressed is told.
FUZZ_TARGET(text) {
    const std::string text(input);
    const std::string utf8 = utf8FromWire(input);
    EXPECT_TRUE(isUtf8(utf8));
    EXPECT_EQ(utf8Length(utf8), input.size());
    EXPECT_EQ(wireFromUtf8(utf8), text);
    const auto wire = wireFromUtf8(input);
    EXPECT_EQ(wire.has_value(), !firstInexpressible(input).has_value());
    if (wire) {
        EXPECT_EQ(utf8FromWire(*wire), text);
    }
}

}  // namespace korvex
