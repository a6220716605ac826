#include "report/RadioReport.h"

#include <algorithm>

#include "base/NumberText.h"

namespace korvex {

const AskedForm* RadioReport::form(std::string_view query) const {
    const auto found =
        std::find_if(forms.begin(), forms.end(), [&](const AskedForm& one) { return one.query == query; });
    return found == forms.end() ? nullptr : &*found;
}

bool RadioReport::wasRefused(std::string_view query) const {
    const auto* asked = form(query);
    return asked != nullptr && asked->form == "?;";
}

bool RadioReport::wasAnswered(std::string_view query) const {
    const auto* asked = form(query);
    return asked != nullptr && !asked->form.empty() && asked->form != "?;";
}

std::string RadioReport::value(std::string_view query) const {
    const auto found = told.find(std::string(query));
    const std::size_t head = query.size() - 1;
    if (found == told.end() || found->second.size() <= head + 1) return {};
    return found->second.substr(head, found->second.size() - head - 1);
}

std::vector<int> RadioReport::refusedItems() const {
    std::vector<int> items;
    constexpr int last = 149;
    for (int item = 1; item <= last; ++item) {
        if (wasRefused("EX" + zeroPadded(item, 3) + ";")) items.push_back(item);
    }
    return items;
}

int RadioReport::longestMs() const {
    int longest = 0;
    for (const auto& delay : delays) longest = std::max(longest, delay.withinMs);
    return longest;
}

const JudgedBelief* RadioReport::belief(std::string_view id) const {
    const auto found =
        std::find_if(beliefs.begin(), beliefs.end(), [&](const JudgedBelief& one) { return one.id == id; });
    return found == beliefs.end() ? nullptr : &*found;
}

bool RadioReport::isRefuted(std::string_view id) const {
    const auto* judged = belief(id);
    return judged != nullptr && judged->verdict == "refuted";
}

}  // namespace korvex
