#include "backup/Differences.h"

#include <algorithm>
#include <cstdint>
#include <map>

#include "base/NumberText.h"

namespace korvex {

namespace {

bool isSigned(const std::string& value) {
    return value.starts_with('+') || value.starts_with('-');
}

bool alike(const std::string& left, const std::string& right) {
    if (left == right) return true;
    if (!isSigned(left) || !isSigned(right)) return false;
    const auto number = parseWhole(left);
    return number && number == parseWhole(right);
}

bool alike(const DataItem& left, const DataItem& right, Remarks remarks) {
    return alike(left.value, right.value) && (remarks == Remarks::Ignore || left.remark == right.remark);
}

std::string shown(const DataItem& item, Remarks remarks) {
    if (remarks == Remarks::Ignore || item.remark.empty()) return item.value;
    return item.value + "  " + item.remark;
}

/// The last of several counts: it is the one that the radio is left with.
std::map<std::string, const DataItem*> byName(const DataItems& items) {
    std::map<std::string, const DataItem*> map;
    for (const auto& item : items) map[item.name] = &item;
    return map;
}

constexpr int registers = 3;

/// "05.2 MD0" turned by one is "05.3 MD0".
std::string turnedName(std::string name, int by) {
    char& digit = name.at(3);
    digit = static_cast<char>('1' + (digit - '1' + by) % registers);
    return name;
}

DataItems turned(const DataItems& band, int by) {
    DataItems result = band;
    for (auto& item : result) item.name = turnedName(item.name, by);
    return result;
}

std::map<std::string, DataItems> byBand(const DataItems& items) {
    std::map<std::string, DataItems> bands;
    for (const auto& item : items) bands[item.name.substr(0, 2)].push_back(item);
    return bands;
}

}  // namespace

std::vector<Difference> differences(const DataItems& left, const DataItems& right, Remarks remarks) {
    std::vector<Difference> list;
    const auto inRight = byName(right);
    const auto inLeft = byName(left);
    for (const auto& [name, item] : inLeft) {
        const auto other = inRight.find(name);
        if (other == inRight.end()) {
            list.push_back({name, shown(*item, remarks), std::nullopt});
        } else if (!alike(*item, *other->second, remarks)) {
            list.push_back({name, shown(*item, remarks), shown(*other->second, remarks)});
        }
    }
    for (const auto& [name, item] : inRight) {
        if (!inLeft.contains(name)) list.push_back({name, std::nullopt, shown(*item, remarks)});
    }
    std::sort(list.begin(), list.end(), [](const auto& one, const auto& two) { return one.name < two.name; });
    return list;
}

DataItems turnedLike(const DataItems& wanted, const DataItems& other) {
    const auto wantedBands = byBand(wanted);
    DataItems result;
    for (const auto& [band, items] : byBand(other)) {
        const auto like = wantedBands.find(band);
        DataItems best = items;
        std::size_t fewest = SIZE_MAX;
        for (int by = 0; by < registers && like != wantedBands.end(); ++by) {
            DataItems candidate = turned(items, by);
            const auto count = differences(like->second, candidate, Remarks::Ignore).size();
            if (count >= fewest) continue;
            fewest = count;
            best = std::move(candidate);
        }
        result.insert(result.end(), best.begin(), best.end());
    }
    return result;
}

}  // namespace korvex
