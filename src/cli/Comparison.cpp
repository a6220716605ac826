#include "cli/Comparison.h"

#include "base/CodePage.h"

namespace korvex::cli {

namespace {

std::string printed(const std::optional<std::string>& value) {
    return value ? "\"" + utf8FromWire(*value) + "\"" : "-";
}

}  // namespace

void print(std::ostream& out, const std::vector<Difference>& list, const std::string& kind, const ItemTitles& titles) {
    for (const auto& [name, left, right] : list) {
        out << titled(kind, name, titles) << ": " << printed(left) << " | " << printed(right) << "\n";
    }
}

}  // namespace korvex::cli
