#include "backup/BackupText.h"

#include <algorithm>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "cat/RadioModel.h"
#include "eq/EqItems.h"
#include "memory/MemoryTables.h"
#include "menu/MenuCommandTable.h"

namespace korvex {

namespace {

std::string column(std::string text, std::size_t width) {
    text.resize(std::max(text.size() + 2, width), ' ');
    return text;
}

std::string radioName(const std::string& answer) {
    if (answer.empty()) return "(did not tell its model)";
    if (isFt2000(answer)) return answer + " (" + std::string(ft2000Named(answer)) + ")";
    return answer;
}

std::string count(std::size_t number, const std::string& what) {
    return std::to_string(number) + " " + what;
}

std::string holds(const BackupSummary::Part& part) {
    DataItems told = part.items;
    std::erase_if(told, wasRefused);
    return part.kind->holds(told, part.missing.size());
}

/// The names of the refused items, and what is missing as a whole.
std::vector<std::string> refusals(const BackupSummary::Part& part) {
    const std::string kind = std::string(part.kind->name) + " ";
    std::vector<std::string> lines;
    for (const auto& item : part.items) {
        if (wasRefused(item)) lines.push_back(kind + utf8FromWire(item.name));
    }
    for (const auto& name : part.missing) lines.push_back(kind + name);
    const auto whole = part.kind->refusedAsAWhole(part.items);
    lines.insert(lines.end(), whole.begin(), whole.end());
    return lines;
}

std::string equalizerLine(const EqItem& item, const std::string& menu, const std::string& told) {
    const auto value = eq::valueFromAnswer(item, told);
    return menu + "  " + column(std::string(item.name), 26) + (value ? eq::displayText(item, *value) : told) + "\n";
}

}  // namespace

std::vector<std::string> savedLines(const BackupSummary& summary) {
    std::vector<std::string> lines;
    for (const auto& part : summary.parts) lines.push_back(part.file + ": " + holds(part));
    return lines;
}

std::vector<std::string> missingLines(const BackupSummary& summary) {
    std::vector<std::string> lines;
    for (const auto& part : summary.parts) {
        for (auto& line : refusals(part)) lines.push_back(std::move(line));
    }
    return lines;
}

std::vector<std::string> refusedLines(const BackupSummary& summary) {
    auto lines = missingLines(summary);
    for (const auto& part : summary.parts) {
        const std::size_t told = part.items.size() + part.missing.size();
        if (part.kind->name != "memory" || told >= std::size_t{lastMemoryChannel}) continue;
        lines.push_back(count(std::size_t{lastMemoryChannel} - told, "memory channels: they are empty"));
    }
    lines.insert(lines.end(), summary.leftOut.begin(), summary.leftOut.end());
    return lines;
}

namespace {

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const auto& word : words) text += (text.empty() ? "" : " and ") + word;
    return text;
}

std::string timesText(const BackupSummary& summary) {
    if (summary.resumed.empty()) return {};
    std::string text =
        "\nIt was cut off, and gone on with on " + joined(summary.resumed) + ". Its parts were read by the backup of\n";
    for (const auto& part : summary.parts) text += "  " + column(part.file, 16) + joined(part.times) + "\n";
    return text;
}

}  // namespace

std::string summaryText(const BackupSummary& summary) {
    std::string text = "Backup of " + summary.timeOfDay + "\n\n";
    text += "Radio  " + radioName(summary.radio) + "\n";
    text += "Port   " + summary.port + "\n\n";
    for (const auto& part : summary.parts) text += column(part.file, 18) + holds(part) + "\n";
    std::string refused;
    for (const auto& line : refusedLines(summary)) refused += "  " + line + "\n";
    text += column("equalizer.txt", 18) + "menu items 125 to 142 by name; what is restored is in the menu file\n";
    if (!missingLines(summary).empty()) text += "\nThis backup is not complete.";
    text += "\nThe radio refused to tell" + (refused.empty() ? " nothing\n" : ":\n" + refused);
    text += timesText(summary);
    for (const auto& remark : summary.remarks) text += "\n" + remark + "\n";
    return text;
}

std::string equalizerText(const DataItems& menu) {
    std::string text;
    for (const int offset : {0, processorMenuOffset}) {
        text += offset == 0 ? "Speech processor off\n" : "\nSpeech processor on\n";
        for (std::size_t i = 0; i < eqItemCount; ++i) {
            const std::string name = zeroPadded(firstEqMenu + offset + static_cast<int>(i), 3);
            const auto item =
                std::find_if(menu.begin(), menu.end(), [&](const DataItem& one) { return one.name == name; });
            text += equalizerLine(eqItems.at(i), name, item == menu.end() ? "" : utf8FromWire(item->value));
        }
    }
    return text;
}

}  // namespace korvex
