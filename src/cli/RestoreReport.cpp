#include "cli/RestoreReport.h"

#include <string>

#include <nlohmann/json.hpp>

#include "backup/RestoreText.h"
#include "base/CodePage.h"

namespace korvex::cli {

namespace {

using Json = nlohmann::ordered_json;

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
    for (const auto& line : itemLines(report, titles, everyItem)) out << line << "\n";
    for (const auto& line : countLines(report)) out << line << "\n";
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
