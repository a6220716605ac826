#include "cli/Verification.h"

#include <algorithm>
#include <map>

#include "base/CodePage.h"

namespace korvex::cli {

namespace {

/// Commands without a value, such as the choice of a band, leave nothing to read back, and what the saved radio refused
/// to tell was never a setting.
DataItems settingsOf(const DataItems& items) {
    DataItems settings;
    for (const auto& item : items) {
        if (!wasRefused(item) && !item.name.ends_with(" BS")) settings.push_back(item);
    }
    return settings;
}

std::map<std::string, Difference> byName(const std::vector<Difference>& list) {
    std::map<std::string, Difference> map;
    for (const auto& difference : list) map[difference.name] = difference;
    return map;
}

std::string verdict(const DataItem& item, const std::vector<std::string>& refused) {
    if (item.command.empty() || item.value.empty()) return "not sent";  // an empty keyer text is a question
    return std::find(refused.begin(), refused.end(), item.name) == refused.end() ? "different" : "refused";
}

}  // namespace

bool reportWritten(std::ostream& out, const Written& written, const ItemTitles& titles) {
    const DataItems wanted = settingsOf(written.wanted);
    const DataItems found = written.kind == "bandstack" ? turnedLike(wanted, settingsOf(written.found)) : written.found;
    const auto missed = byName(differences(wanted, found, Remarks::Ignore));
    std::map<std::string, int> counts;
    for (const auto& item : wanted) {
        const auto difference = missed.find(item.name);
        const std::string word = difference == missed.end() ? "written" : verdict(item, written.refused);
        ++counts[word];
        out << titled(written.kind, item.name, titles) << ": " << word;
        if (difference != missed.end()) {
            out << ", wanted \"" << utf8FromWire(item.value) << "\", the radio has "
                << (difference->second.right ? "\"" + utf8FromWire(*difference->second.right) + "\"" : "nothing");
        }
        out << "\n";
    }
    out << written.kind << ":";
    for (const auto& [word, count] : counts) out << " " << count << " " << word;
    out << "\n";
    return counts.size() <= 1 && (counts.empty() || counts.contains("written"));
}

}  // namespace korvex::cli
