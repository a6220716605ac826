#pragma once

#include <optional>
#include <string>
#include <vector>

#include "backup/DataItems.h"

namespace korvex {

/// An item that two sides do not have alike; nothing where a side lacks it.
struct Difference {
    std::string name;
    std::optional<std::string> left;
    std::optional<std::string> right;
};

enum class Remarks { Count, Ignore };

/// By name. Signed numbers are alike when they are equal as numbers: a radio may say -00 for +00.
std::vector<Difference> differences(const DataItems& left, const DataItems& right, Remarks remarks);

/// The registers of a band stack are read in a circle, beginning where the radio stood. So each band of `other` may be
/// turned by one register or two: this turns them to where most is alike.
DataItems turnedLike(const DataItems& wanted, const DataItems& other);

}  // namespace korvex
