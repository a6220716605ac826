#include "report/RadioReport.h"

#include <algorithm>

namespace korvex {

namespace {

/// The first one that is called so; null where none is.
template <class Item>
const Item* called(const std::vector<Item>& items, std::string Item::*name, std::string_view wanted) {
    const auto found = std::find_if(items.begin(), items.end(), [&](const Item& one) { return one.*name == wanted; });
    return found == items.end() ? nullptr : &*found;
}

}  // namespace

const AskedForm* RadioReport::form(std::string_view query) const {
    return called(forms, &AskedForm::query, query);
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

int RadioReport::longestMs() const {
    int longest = 0;
    for (const auto& delay : delays) longest = std::max(longest, delay.withinMs);
    return longest;
}

const JudgedBelief* RadioReport::belief(std::string_view id) const {
    return called(beliefs, &JudgedBelief::id, id);
}

bool RadioReport::isRefuted(std::string_view id) const {
    const auto* judged = belief(id);
    return judged != nullptr && judged->verdict == "refuted";
}

}  // namespace korvex
