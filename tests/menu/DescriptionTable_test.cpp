#include "menu/DescriptionTable.h"

#include <gtest/gtest.h>

#include "base/CodePage.h"
#include "fakes/ProgramBench.h"

namespace korvex {
namespace {

using Records = std::vector<std::vector<std::string>>;

std::string shippedText() {
    return fakes::fileContent(SOURCE_DIR "/data/menu-description.tsv");
}

/// The shipped table with what people write into cells.
DatabaseTable filledTable() {
    DatabaseTable table = *parseDescription(shippedText());
    auto& record = table.records[1];
    record[3] = "a; b, c";
    record[4] = "line\nbreak";
    record[5] = "\"Fast\" or \"slow\"";
    record[6] = "für 5 €";
    record[7] = "#1";
    return table;
}

std::string utf16(const std::string& text, bool littleEndian) {
    std::string units = littleEndian ? "\xFF\xFE" : "\xFE\xFF";
    const std::string wire = *wireFromUtf8(text);
    for (const char c : wire) {
        const char32_t unit = unicodeFromWire(static_cast<unsigned char>(c));
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        units += littleEndian ? std::string{low, high} : std::string{high, low};
    }
    return units;
}

/// As a spreadsheet saves it: every row as long as the longest, quotes where they must be, numbers without zeros.
std::string asSheet(const Records& records, char separator, const std::string& lineEnd) {
    const std::string padding(16, separator);
    std::string text =
        "\"# a remark" + std::string(1, separator) + " and more\"" + padding + lineEnd + padding + lineEnd;
    for (const auto& record : records) {
        for (std::size_t i = 0; i < record.size(); ++i) {
            std::string cell = record[i];
            if (i == 1)
                cell.erase(0, cell.find_first_not_of('0') == std::string::npos ? 0 : cell.find_first_not_of('0'));
            const bool quoted = cell.find_first_of("\"\n;,") != std::string::npos;
            if (quoted) {
                for (std::size_t at = 0; (at = cell.find('"', at)) != std::string::npos; at += 2)
                    cell.insert(at, 1, '"');
                cell = '"' + cell + '"';
            }
            text += (i == 0 ? "" : std::string(1, separator)) + cell;
        }
        text += std::string(3, separator) + lineEnd;
    }
    return text;
}

TEST(DescriptionTable, ComesBackAsItWasWrittenAndFromEverySpreadsheet) {
    DatabaseTable table = filledTable();
    const std::vector<std::string> saved = {
        descriptionText(table),
        asSheet(table.records, ',', "\n"),
        "\xEF\xBB\xBF" + asSheet(table.records, ';', "\r\n"),
        *wireFromUtf8(asSheet(table.records, ';', "\r\n")),  // what a spreadsheet calls plain CSV
        utf16(asSheet(table.records, '\t', "\r\n"), true),
        utf16(asSheet(table.records, '\t', "\r"), false),
        utf16(asSheet(table.records, '\t', "\n"), true).substr(2),  // without a mark
    };
    for (std::size_t i = 0; i < saved.size(); ++i) {
        const auto again = parseDescription(saved[i]);
        ASSERT_TRUE(again) << i << ": " << again.error().text;
        EXPECT_EQ(again->records, table.records) << i;
    }
    table.records[2][3] = "a\tb\r\nback\\slash";
    EXPECT_EQ(parseDescription(descriptionText(table))->records, table.records);

    const auto wide = parseDescription(utf16(descriptionText(table), true) + std::string("#\0\x3D\xD8\x00\xDE", 6));
    EXPECT_TRUE(wide) << wide.error().text;  // a character of two units, in a remark
}

TEST(DescriptionTable, RefusesWhatWouldNameAnotherItemByItsLine) {
    const std::string shipped = shippedText();
    const auto with = [&](const std::string& row, const std::string& instead) {
        std::string text = shipped;
        const auto at = text.find("\n" + row);
        EXPECT_NE(at, std::string::npos) << row;
        return text.replace(at + 1, row.size(), instead);
    };
    std::string many = shipped;
    for (int id = 1000; id < 2000; ++id) many += std::to_string(id) + "\tx\n";
    std::string pushed = with("189\t149", "9000\t149");
    for (int id = 300; id < 310; ++id) pushed += std::to_string(id) + "\n";
    const std::vector<std::pair<std::string, std::string>> refused = {
        {"", "no record"},
        {"# only remarks\n", "no record"},
        {with("3\t002", "3\t1"), "line 6: menu item 001 stands in line 5 already"},
        {with("3\t002", "3\t"), "there is no row for menu item 002"},
        {"1\tMenu\n2\t001\n", "there is no row for menu items 002, 003, 004"},
        {with("3\t002", "3\t150"), "line 6: \"150\" is no menu number"},
        {with("3\t002", "3\tO02"), "line 6: \"O02\" is no menu number"},
        {with("3\t002", "2\t002"), "line 6: record number 2 stands in line 5 already"},
        {with("1\tMenu", "1000\tMenu"), "line 5: the row with the lowest number holds the titles"},
        {with("3\t002", "x\t002"), "line 6: the first field is the record's number"},
        {with("3\t002", "0\t002"), "line 6: the first field"},
        {with("3\t002", "\t002"), "line 6: the first field"},
        {with("3\t002", "3\t002\t\\q"), "line 6: a backslash"},
        {with("3\t002", "3\t002\tx\\\t"), "line 6: a backslash"},
        {with("3\t002", "3\t002\t\"open"), "line 6: a quoted cell has no closing quote"},
        {with("3\t002", "3\t002\t\"a\nb\" c"), "line 6: something stands behind the closing quote"},
        {with("3\t002", "3\t002\t\"two\r\nlines\"\n4\t2"), "line 8: menu item 002 stands in line 6 already"},
        {with("3\t002", "3\t002" + std::string(14, '\t') + "x"), "line 6: there are more than 15 fields"},
        {with("3\t002", std::string("3\t002\tx\0y", 9)), "line 6: there are control characters"},
        {many, "more than 1000"},
        {pushed, "the Menu Manager has no row for item 149"},
        {utf16(shipped, true) + "\n", "UTF-16"},
        {utf16(shipped, true) + std::string("\x3D\xD8", 2), "UTF-16"},
        {utf16(shipped, true) + std::string("\x00\xDE", 2), "UTF-16"},
    };
    for (const auto& [text, why] : refused) {
        const auto table = parseDescription(text);
        ASSERT_FALSE(table) << why;
        EXPECT_NE(table.error().text.find(why), std::string::npos) << table.error().text << " for " << why;
    }
}

}  // namespace
}  // namespace korvex
