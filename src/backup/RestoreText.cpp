#include "backup/RestoreText.h"

#include "base/CodePage.h"

namespace korvex {

namespace {

using Became = RestoredItem::Became;

bool isFine(const RestoredItem& item) {
    return item.became == Became::Written || item.became == Became::Unchanged;
}

std::string lineOf(const RestoredItem& item, const ItemTitles& titles) {
    std::string line = titled(std::string(item.kind->name), item.name, titles) + ": " + wordFor(item.became);
    if (!isFine(item)) {
        line += ", wanted \"" + utf8FromWire(item.wanted) + "\", the radio has ";
        line += item.found ? "\"" + utf8FromWire(*item.found) + "\"" : "nothing";
    }
    return item.why.empty() ? line : line + " (" + item.why + ")";
}

}  // namespace

std::string wordFor(Became became) {
    switch (became) {
        case Became::Written: return "written";
        case Became::Unchanged: return "unchanged";
        case Became::Refused: return "refused";
        case Became::Different: return "different";
        case Became::LeftAlone: break;
    }
    return "left alone";
}

std::vector<std::string> itemLines(const std::vector<RestoredItem>& report, const ItemTitles& titles, bool everyItem) {
    std::vector<std::string> lines;
    for (const auto& item : report) {
        if (everyItem || !isFine(item)) lines.push_back(lineOf(item, titles));
    }
    return lines;
}

RestoreCounts countsOf(const std::vector<RestoredItem>& report) {
    RestoreCounts counts;
    for (const auto& item : report) {
        if (counts.empty() || counts.back().first != item.kind->name)
            counts.push_back({std::string(item.kind->name), {}});
        ++counts.back().second[wordFor(item.became)];
    }
    return counts;
}

std::vector<std::string> countLines(const std::vector<RestoredItem>& report) {
    std::vector<std::string> lines;
    for (const auto& [kind, counts] : countsOf(report)) {
        std::string line;
        for (const auto& [word, count] : counts)
            line += (line.empty() ? "" : ", ") + std::to_string(count) + " " + word;
        lines.push_back(kind + ": " + line);
    }
    return lines;
}

}  // namespace korvex
