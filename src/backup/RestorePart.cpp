#include "backup/RestorePart.h"

#include <algorithm>
#include <set>
#include <utility>

#include "backup/Differences.h"
#include "base/CodePage.h"

namespace korvex {

namespace {

using Became = RestoredItem::Became;

/// A command without a value, such as the choice of a band, leaves nothing to read back.
bool isSetting(const DataItem& item) {
    return !wasRefused(item) && !item.name.ends_with(" BS");
}

/// A cell that an incomplete band stack does not have.
bool saysNothing(const DataItem& item) {
    return item.value.empty() && item.command.empty();
}

DataItems settingsOf(const DataItems& items) {
    DataItems settings;
    std::copy_if(items.begin(), items.end(), std::back_inserter(settings), isSetting);
    return settings;
}

/// An empty keyer text is a question.
bool changesTheRadio(const DataItem& item) {
    return !item.command.empty() && (!item.value.empty() || !isSetting(item));
}

/// Why an item that the radio has otherwise was not sent.
std::string whyNotSent(const DataItem& item) {
    return item.command.empty() ? "there is nothing in it that could be sent"
                                : "an empty text changes nothing in the radio";
}

std::string bandOf(const std::string& name) {
    return name.substr(0, 2);
}

std::set<std::string> namesOf(const DataItems& items) {
    std::set<std::string> names;
    for (const auto& item : items) names.insert(item.name);
    return names;
}

const DataItem* find(const DataItems& items, const std::string& name) {
    const auto found =
        std::find_if(items.begin(), items.end(), [&](const DataItem& item) { return item.name == name; });
    return found == items.end() ? nullptr : &*found;
}

std::optional<std::string> valueOf(const DataItem* item) {
    return item == nullptr ? std::nullopt : std::optional(item->value);
}

bool alike(const DataItem& item, const DataItem* found) {
    return found != nullptr && differences({item}, {*found}, Remarks::Ignore).empty();
}

std::string listed(const std::set<std::string>& names) {
    constexpr std::size_t most = 12;
    std::string text;
    std::size_t count = 0;
    for (const auto& name : names) {
        if (count++ == most) return text + ", ...";
        text += (text.empty() ? "" : ", ") + utf8FromWire(name);
    }
    return text;
}

}  // namespace

RestorePart::RestorePart(const FileKind& fileKind, DataItems items) : kind(&fileKind), wanted(std::move(items)) {
    if (!kind->isCircle) std::erase_if(wanted, wasRefused);
    std::erase_if(wanted, saysNothing);
    lineItems = kind->takeLineItems(wanted, MenuNumbers::Later);
}

void RestorePart::heed(const KnownRadio& radio) {
    m_radio = radio;
    if (!radio.hasEarlyMenuNumbers) return;
    wanted.insert(wanted.end(), lineItems.begin(), lineItems.end());
    lineItems = kind->takeLineItems(wanted, MenuNumbers::Early);
}

/// The check has found so, and what the radio tells now does not say otherwise.
bool RestorePart::isKnownToBeRefused(const DataItem& item) const {
    if (!kind->hasFixedWidths || !m_radio.refuses(item.name)) return false;
    const DataItem* has = present ? find(*present, item.name) : nullptr;
    return has == nullptr || wasRefused(*has);
}

/// The present items as they are to be compared with those.
DataItems RestorePart::presentLike(const DataItems& items) const {
    const DataItems settings = settingsOf(*present);
    return kind->isCircle ? turnedLike(settingsOf(items), settings) : settings;
}

/// Those that the radio does not have alike; of a band all, for it is written as a whole.
DataItems RestorePart::differing(const DataItems& items) const {
    std::set<std::string> names;
    for (const auto& difference : differences(settingsOf(items), presentLike(items), Remarks::Ignore)) {
        if (difference.left) names.insert(kind->isCircle ? bandOf(difference.name) : difference.name);
    }
    DataItems result;
    for (const auto& item : items) {
        if (names.contains(kind->isCircle ? bandOf(item.name) : item.name)) result.push_back(item);
    }
    return result;
}

void RestorePart::plan(bool all, bool withLineItems) {
    const bool asks = !all && present;
    toWrite = asks ? differing(wanted) : wanted;
    lineItemsToWrite = {};
    if (withLineItems) lineItemsToWrite = asks ? differing(lineItems) : lineItems;
    if (kind->isCircle) return;
    std::erase_if(toWrite, [this](const DataItem& item) { return !changesTheRadio(item) || isKnownToBeRefused(item); });
}

std::string RestorePart::planLine() const {
    const std::string all = std::to_string(settingsOf(wanted).size() + lineItems.size());
    DataItems writes = settingsOf(toWrite);
    writes.insert(writes.end(), lineItemsToWrite.begin(), lineItemsToWrite.end());
    if (writes.empty()) return "nothing of " + all + " items differs";
    const std::string count = std::to_string(writes.size());
    return count + " of " + all + " items are written: " + listed(namesOf(writes));
}

std::vector<std::string> RestorePart::planDetails(const ItemTitles& titles) const {
    const DataItems has = present ? presentLike(wanted) : DataItems();
    std::vector<std::string> lines;
    for (const auto& item : settingsOf(toWrite)) {
        const DataItem* found = find(has, item.name);
        if (alike(item, found)) continue;
        const std::string now = found == nullptr ? "nothing" : "\"" + utf8FromWire(found->value) + "\"";
        const std::string name = std::string(kind->name);
        lines.push_back(name + " " + titled(name, item.name, titles) + ": the radio has " + now + ", the file \"" +
                        utf8FromWire(item.value) + "\"");
    }
    return lines;
}

std::vector<std::string> RestorePart::otherWidths() const {
    std::vector<std::string> names;
    for (const auto& item : toWrite) {
        const DataItem* has = kind->hasFixedWidths && present ? find(*present, item.name) : nullptr;
        if (has != nullptr && !wasRefused(*has) && has->value.size() != item.value.size()) names.push_back(item.name);
    }
    return names;
}

bool RestorePart::hasOtherNumbers() const {
    if (present || !kind->hasFixedWidths) return false;
    std::vector<std::string> commands;
    for (const auto& item : wanted) commands.push_back(item.command);
    return numbersIn(commands).value_or(menuNumbersOf(m_radio)) != menuNumbersOf(m_radio);
}

void RestorePart::noteWritten(const Outcome& outcome, bool wasVerified) {
    refused.insert(refused.end(), outcome.refused.begin(), outcome.refused.end());
    isConfirmed = kind->isCircle && wasVerified && outcome.isFlawless();
    if (isConfirmed) present = wanted;
}

RestoredItem RestorePart::told(const DataItem& item, const DataItem* found) const {
    RestoredItem told{kind, item.name, Became::Unchanged, item.value, valueOf(found)};
    told.isAsTheFileSays = alike(item, found);
    const bool sent = find(toWrite, item.name) != nullptr;
    const bool wasRefusedNow = std::find(refused.begin(), refused.end(), item.name) != refused.end();
    if (told.isAsTheFileSays) {
        told.became = sent ? Became::Written : Became::Unchanged;
    } else if (!sent && isKnownToBeRefused(item)) {
        told.became = Became::LeftAlone;
        told.why = "the radio refuses to tell it, and did so in the check of " + m_radio.checked;
    } else if (sent || changesTheRadio(item)) {  // the latter was alike when the restore began
        told.became = wasRefusedNow ? Became::Refused : Became::Different;
    } else {
        told.became = Became::LeftAlone;
        told.why = whyNotSent(item);
    }
    return told;
}

/// What may cut the line goes out last of all, and is not read back.
RestoredItem RestorePart::toldOfLine(const DataItem& item, const DataItem* found) const {
    RestoredItem told{kind, item.name, Became::Unchanged, item.value, valueOf(found)};
    if (find(lineItemsToWrite, item.name) != nullptr) {
        told.became = Became::Written;
    } else if (!alike(item, found)) {
        told.became = Became::LeftAlone;
        told.why = "the radio's own CAT settings are left as they are";
        told.isAsTheFileSays = false;
    }
    return told;
}

void RestorePart::report(std::vector<RestoredItem>& report) const {
    const DataItems has = present ? presentLike(wanted) : DataItems();
    for (const auto& item : settingsOf(wanted)) report.push_back(told(item, find(has, item.name)));
    for (const auto& item : lineItems) report.push_back(toldOfLine(item, find(has, item.name)));
    for (const auto& item : has) {
        if (find(wanted, item.name) != nullptr || find(lineItems, item.name) != nullptr) continue;
        report.push_back(
            {kind, item.name, Became::LeftAlone, {}, item.value, "the file says nothing of it", !kind->absentIsEmpty});
    }
}

}  // namespace korvex
