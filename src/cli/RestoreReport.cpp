#include "cli/RestoreReport.h"

#include <map>
#include <string>

#include <nlohmann/json.hpp>

#include "base/CodePage.h"

namespace korvex::cli {

namespace {

using Json = nlohmann::ordered_json;
using Became = RestoredItem::Became;

std::string wordFor(Became became) {
    switch (became) {
        case Became::Written: return "written";
        case Became::Unchanged: return "unchanged";
        case Became::Refused: return "refused";
        case Became::Different: return "different";
        case Became::LeftAlone: break;
    }
    return "left alone";
}

bool isFine(const RestoredItem& item) {
    return item.became == Became::Written || item.became == Became::Unchanged;
}

void printItem(std::ostream& out, const RestoredItem& item, const ItemTitles& titles) {
    out << titled(std::string(item.kind->name), item.name, titles) << ": " << wordFor(item.became);
    if (!isFine(item)) {
        out << ", wanted \"" << utf8FromWire(item.wanted) << "\", the radio has "
            << (item.found ? "\"" + utf8FromWire(*item.found) + "\"" : "nothing");
    }
    if (!item.why.empty()) out << " (" << item.why << ")";
    out << "\n";
}

/// By kind and word, the kinds in their order.
std::vector<std::pair<std::string, std::map<std::string, int>>> countsOf(const std::vector<RestoredItem>& report) {
    std::vector<std::pair<std::string, std::map<std::string, int>>> counts;
    for (const auto& item : report) {
        if (counts.empty() || counts.back().first != item.kind->name)
            counts.push_back({std::string(item.kind->name), {}});
        ++counts.back().second[wordFor(item.became)];
    }
    return counts;
}

Json jsonOf(const RestoredItem& item, const ItemTitles& titles) {
    Json json = {{"item", item.name}, {"result", wordFor(item.became)}};
    if (titles) json["title"] = titles(std::string(item.kind->name), item.name);
    json["wanted"] = utf8FromWire(item.wanted);
    json["found"] = item.found ? Json(utf8FromWire(*item.found)) : Json();
    if (!item.why.empty()) json["why"] = item.why;
    return json;
}

}  // namespace

void printReport(std::ostream& out, const std::vector<RestoredItem>& report, const ItemTitles& titles, bool everyItem) {
    for (const auto& item : report) {
        if (everyItem || !isFine(item)) printItem(out, item, titles);
    }
    for (const auto& [kind, counts] : countsOf(report)) {
        out << kind << ":";
        const char* separator = " ";
        for (const auto& [word, count] : counts) {
            out << separator << count << " " << word;
            separator = ", ";
        }
        out << "\n";
    }
}

void printJson(std::ostream& out, const Restore& restore, const ItemTitles& titles) {
    Json json = {{"result", restore.why().empty() ? "done" : "broken off"}};
    json["asTheFilesSay"] = restore.why().empty() && restore.isAsTheFilesSay();
    if (!restore.safetyCopy().empty()) json["safetyCopy"] = restore.safetyCopy();
    if (!restore.why().empty()) json["why"] = restore.why();
    json["kinds"] = Json::array();
    for (const auto& [kind, counts] : countsOf(restore.report())) {
        Json items = Json::array();
        for (const auto& item : restore.report()) {
            if (item.kind->name == kind) items.push_back(jsonOf(item, titles));
        }
        json["kinds"].push_back({{"kind", kind}, {"counts", counts}, {"items", items}});
    }
    out << json.dump(2, ' ', false, Json::error_handler_t::replace) << "\n";
}

}  // namespace korvex::cli
