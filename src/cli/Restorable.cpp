#include "cli/Restorable.h"

#include <algorithm>

#include "bandstack/BandStackFile.h"
#include "keyer/KeyerTexts.h"

namespace korvex::cli {

namespace {

bool isOfItsKind(const std::string& kind, const DataItem& item) {
    if (kind == "menu") return !wasRefused(item);
    if (kind == "keyer") return !item.value.empty();
    return !item.command.empty();
}

}  // namespace

std::string whyNotRestorable(const std::string& kind, const DataItems& items) {
    if (kind != "keyer") return {};
    for (const auto& item : items) {
        if (item.value.size() <= longestKeyerText) continue;
        return item.name + ": the text has " + std::to_string(item.value.size()) +
               " characters, and a memory of the radio takes " + std::to_string(longestKeyerText);
    }
    return {};
}

std::string whyBandStackIncomplete(std::string_view content) {
    const auto cells = parseBandStackText(content);
    const std::string missing = cells ? missingRegisters(*cells) : "";
    return missing.empty() ? "" : missing + " --force restores the others";
}

bool holdsAnything(const std::string& kind, const DataItems& items) {
    return std::any_of(items.begin(), items.end(), [&kind](const DataItem& item) { return isOfItsKind(kind, item); });
}

}  // namespace korvex::cli
