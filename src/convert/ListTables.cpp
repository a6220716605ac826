#include "convert/ListTables.h"

#include <algorithm>

#include "convert/ChannelWords.h"
#include "convert/Chirp.h"
#include "convert/KindSheets.h"
#include "memory/MemoryListFile.h"
#include "memory/MemoryListWriter.h"

namespace korvex {

namespace {

constexpr std::size_t mostShown = 10;

std::string channelsInWords(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " channel" : " channels");
}

std::string lines(const std::vector<std::string>& all, std::size_t most) {
    std::string text;
    for (std::size_t i = 0; i < std::min(all.size(), most); ++i) text += all[i] + "\r\n";
    return text;
}

/// The first of them and how many more.
std::string shortened(const std::vector<std::string>& losses) {
    if (losses.size() <= mostShown) return lines(losses, mostShown);
    return lines(losses, mostShown) + "and " + std::to_string(losses.size() - mostShown) + " more\r\n";
}

std::string nameOf(const std::string& file) {
    return file.substr(file.rfind('/') + 1);
}

Result<ChirpImport> channelsOf(std::string_view csv) {
    if (isChirp(csv)) return channelsFromChirp(csv);
    const auto file = fileOf("list", csv);
    if (!file) return file.error();
    auto channels = parseMemoryListFile(*file);
    if (!channels) return channels.error();
    return ChirpImport{std::move(*channels), {}};
}

}  // namespace

void ListTables::importTable() {
    const FileEnd end =
        files.read({"Import Channels in to List", "csv"}, [this](const std::string& content) { return take(content); });
    if (end.failure) return files.tell(*end.failure);
    if (!end.file) return;
    m_told = m_taken + " from " + nameOf(*end.file);
    tellLosses(m_taken + " from " + nameOf(*end.file) + ". Not everything in it could be taken as it was:");
}

Failure ListTables::take(std::string_view csv) {
    auto import = channelsOf(csv);
    if (!import) return RuntimeError{import.error().number, import.error().text + ". The list stays as it is."};
    m_losses = std::move(import->losses);
    if (import->channels.empty()) {
        return RuntimeError{errors::TypeMismatch,
                            shortened(m_losses) + "There is no channel for this radio in it. The list stays as it is."};
    }
    place(import->channels);
    return {};
}

void ListTables::place(const std::map<int, MemoryRecord>& channels) {
    std::size_t replaced = 0;
    m_taken = channelsInWords(channels.size()) + " imported";
    const MemoryList::Step step(m_list, "import of " + channelsInWords(channels.size()));
    for (const auto& [row, record] : channels) {
        const MemoryRow before = m_list.row(row);
        m_list.place(row, record);
        if (before.filled() && before.cells != m_list.row(row).cells) ++replaced;
    }
    if (replaced > 0) m_taken += ", " + std::to_string(replaced) + " of them in place of others,";
}

Result<std::string> ListTables::listFile() {
    m_losses.clear();
    MemoryList whole;
    std::size_t channels = 0;
    whole.clearRow(1);
    for (int row = 1; row <= MemoryList::rows; ++row) {
        if (!m_list.filled(row)) continue;
        if (memoryListCommand(m_list, row)) {
            whole.setRow(row, m_list.row(row));
            ++channels;
        } else {
            m_losses.push_back("row " + std::to_string(row) + ": left out, it is no whole channel");
        }
    }
    if (channels > 0) return memoryListFileText(whole);
    return RuntimeError{errors::TypeMismatch, "The list has no channels. No file was written."};
}

void ListTables::exportForChirp() {
    const auto file = listFile();
    const auto channels = file ? channelsIn("list", *file) : file.error();
    if (!channels) return write({}, channels.error());
    ChirpExport made = chirpFrom(*channels);
    m_losses.insert(m_losses.end(), made.losses.begin(), made.losses.end());
    write("Export Memory List for CHIRP", made.csv);
}

void ListTables::exportSheet() {
    const auto file = listFile();
    const auto table = file ? sheetOf("list", *file, nullptr) : file.error();
    write("Export Memory List as Spreadsheet", table ? Result<std::string>(csvText(*table)) : table.error());
}

void ListTables::write(const std::string& title, const Result<std::string>& csv) {
    if (!csv) return files.msgBox().exclamation(csv.error().text);
    const FileEnd end =
        files.write({title, "csv"}, *csv, [this](const RuntimeError& error) { files.tell(error, "Path wrong "); });
    if (!end.file || end.failure) return;
    m_told = "List exported to " + nameOf(*end.file);
    tellLosses("The list is in " + nameOf(*end.file) + ". A table of this kind cannot hold everything:");
}

void ListTables::tellLosses(const std::string& intro) {
    if (m_losses.empty()) return;
    files.msgBox().show({intro + "\r\n\r\n" + shortened(m_losses), "", MsgIcon::Information, MsgButtons::Ok,
                         m_losses.size() > mostShown ? lines(m_losses, m_losses.size()) : ""});
}

}  // namespace korvex
