#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "backup/DataItems.h"

namespace korvex::cli {

/// An item that two sides do not have alike; nothing where a side lacks it.
struct Difference {
    std::string name;
    std::optional<std::string> left;
    std::optional<std::string> right;
};

/// What a person calls an item of a kind of file, in UTF-8; empty when nobody knows.
using ItemTitles = std::function<std::string(const std::string& kind, const std::string& item)>;

enum class Remarks { Count, Ignore };

/// In the order of the items. Signed numbers are alike when they are equal as numbers: a radio may say -00 for +00.
std::vector<Difference> differences(const DataItems& left, const DataItems& right, Remarks remarks);

/// The registers of a band stack are read in a circle, beginning where the radio stood. So each band of `other` may be
/// turned by one register or two: this turns them to where most is alike.
DataItems turnedLike(const DataItems& wanted, const DataItems& other);

/// A line for each: number, title where there is one, both values.
void print(std::ostream& out, const std::vector<Difference>& list, const std::string& kind, const ItemTitles& titles);

/// "042 (Anti-VOX)", or the number alone.
std::string titled(const std::string& kind, const std::string& item, const ItemTitles& titles);

}  // namespace korvex::cli
