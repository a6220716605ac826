// The targets of the tables for other programs.

#include <algorithm>
#include <map>

#include "backup/FileKind.h"
#include "base/CodePage.h"
#include "convert/ChannelWords.h"
#include "convert/Chirp.h"
#include "convert/KindSheets.h"
#include "fuzz/Fuzz.h"
#include "fuzz/Judge.h"

namespace korvex {

namespace {

const std::map<char, std::string>& kinds() {
    static const std::map<char, std::string> all = {
        {'m', "menu"}, {'e', "memory"}, {'l', "list"}, {'b', "bandstack"}, {'k', "keyer"}};
    return all;
}

std::string titleOf(const std::string& item) {
    return item == "042" ? "Anti-VOX, \"gain\"" : "";
}

std::string sentFor(const DataItems& items) {
    std::string sent;
    for (const auto& item : items) sent.append(item.command).append("\r\n");
    return sent;
}

/// A file that was made of a table: its own reader takes it, nothing in it keys, and its table makes it again.
void checkFile(const std::string& kind, const std::string& file) {
    const auto items = fileKind(kind)->items(file);
    ASSERT_TRUE(items) << items.error().text;
    EXPECT_EQ(fuzz::keysTransmitterWith(sentFor(*items)), "");
    const auto sheet = sheetOf(kind, file, titleOf);
    ASSERT_TRUE(sheet) << sheet.error().text;
    const auto again = fileOf(kind, csvText(*sheet));
    ASSERT_TRUE(again) << again.error().text;
    // A band stack's file may leave rows out; its table never does.
    EXPECT_EQ(*sheetOf(kind, *again, titleOf), *sheet);
}

/// The text of a table is read as that table.
void checkText(const Table& sheet) {
    const auto table = NamedTable::read(csvText(sheet), {});
    if (!table) {  // which no spreadsheet shows
        EXPECT_NE(table.error().text.find("control characters"), std::string::npos) << table.error().text;
        return;
    }
    ASSERT_EQ(table->titles(), sheet.front());
    std::size_t row = 0;
    for (auto cells = sheet.begin() + 1; cells != sheet.end(); ++cells) {
        if (std::all_of(cells->begin(), cells->end(), [](const auto& cell) { return cell.empty(); })) continue;
        ASSERT_LT(row, table->rows());
        for (std::size_t i = 0; i < cells->size(); ++i) EXPECT_EQ(table->cellAt(row, i), (*cells)[i]);
        ++row;
    }
}

/// What was taken from CHIRP's table goes there and comes back, with nothing more lost but what was told.
void checkChannels(const ChirpImport& import) {
    for (const auto& loss : import.losses) EXPECT_TRUE(isUtf8(loss)) << loss;
    if (import.channels.empty()) return;
    const auto file = channelFile("list", import.channels);
    ASSERT_TRUE(file) << file.error().text;
    const auto channels = channelsIn("list", *file);
    ASSERT_TRUE(channels) << channels.error().text;
    const auto again = channelsFromChirp(chirpFrom(*channels).csv);
    ASSERT_TRUE(again) << again.error().text;
    ASSERT_EQ(again->channels.size(), import.channels.size());
    for (auto [number, record] : import.channels) {
        auto other = again->channels.at(number);
        record[MemoryField::Remark] = other[MemoryField::Remark];  // which loses the blanks around it
        EXPECT_EQ(other, record);
    }
}

}  // namespace

/// A table that somebody has edited: refused with a reason, or a file that its own reader takes. The first character
/// says which kind; "c" is CHIRP's.
FUZZ_TARGET(convert_table) {
    if (input.empty()) return;
    const std::string_view csv = input.substr(1);
    if (input.front() == 'c') {
        static_cast<void>(isChirp(csv));
        const auto import = channelsFromChirp(csv);
        if (import) return checkChannels(*import);
        EXPECT_FALSE(import.error().text.empty());
        return;
    }
    const auto kind = kinds().find(input.front());
    if (kind == kinds().end()) return;
    const auto file = fileOf(kind->second, csv);
    if (file) return checkFile(kind->second, *file);
    EXPECT_FALSE(file.error().text.empty());
}

/// A data file: the table of it can be read as a table again, whatever stands in its cells.
FUZZ_TARGET(convert_file) {
    if (input.empty()) return;
    const auto kind = kinds().find(input.front());
    if (kind == kinds().end()) return;
    const auto sheet = sheetOf(kind->second, input.substr(1), titleOf);
    if (!sheet) {
        EXPECT_FALSE(sheet.error().text.empty());
        return;
    }
    checkText(*sheet);
    const auto file = fileOf(kind->second, csvText(*sheet));
    if (file) return checkFile(kind->second, *file);
    EXPECT_FALSE(file.error().text.empty());
}

}  // namespace korvex
