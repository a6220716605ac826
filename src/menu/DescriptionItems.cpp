#include "menu/DescriptionItems.h"

#include <map>
#include <set>

#include "base/NumberText.h"
#include "base/SheetText.h"
#include "menu/DescriptionTable.h"
#include "menu/MenuCommandTable.h"
#include "menu/MenuRows.h"

namespace korvex {

namespace {

const std::string& numberOf(const NumberedRecord& record) {
    return record.fields[description::numberField];
}

Failure whyNoTitles(const NumberedRecord& first) {
    if (!isMenuNumber(numberOf(first))) return {};
    return refusedLine(first.line,
                       "the row with the lowest number holds the titles, and this one is menu item " + numberOf(first));
}

std::string namesOf(const std::vector<std::string>& items) {
    std::string text = items.size() == 1 ? "menu item " : "menu items ";
    for (std::size_t i = 0; i < items.size(); ++i) text += (i == 0 ? "" : ", ") + items[i];
    return text;
}

Failure whatIsMissing(const std::map<std::string, int>& lineOfItem) {
    std::vector<std::string> missing;
    for (int item = 1; item <= menuItemCount; ++item) {
        if (!lineOfItem.contains(zeroPadded(item, 3))) missing.push_back(zeroPadded(item, 3));
    }
    if (missing.empty()) return {};
    return RuntimeError{errors::TypeMismatch, "there is no row for " + namesOf(missing)};
}

}  // namespace

Failure whyNoMenuTable(const std::vector<NumberedRecord>& records) {
    if (records.empty()) return RuntimeError{errors::TypeMismatch, "there is no record in it"};
    if (auto failure = whyNoTitles(records.front())) return failure;
    std::map<std::string, int> lineOfItem;
    for (std::size_t row = 1; row < records.size(); ++row) {
        const auto& record = records[row];
        const std::string& number = numberOf(record);
        const auto refused = [&record](const std::string& why) { return refusedLine(record.line, why); };
        if (record.id == records[row - 1].id) {
            return refused("record number " + std::to_string(record.id) + " stands in line " +
                           std::to_string(records[row - 1].line) + " already");
        }
        if (number.empty()) continue;
        if (!isMenuNumber(number)) return refused("\"" + number + "\" is no menu number (001 to 149)");
        if (row >= description::recordCount) return refused("the Menu Manager has no row for item " + number);
        const auto [before, isNew] = lineOfItem.emplace(number, record.line);
        if (!isNew)
            return refused("menu item " + number + " stands in line " + std::to_string(before->second) + " already");
    }
    return whatIsMissing(lineOfItem);
}

}  // namespace korvex
