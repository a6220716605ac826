#include "cli/JsonReport.h"

#include <optional>

#include <nlohmann/json.hpp>

#include "base/CodePage.h"

namespace korvex::cli {

namespace {

using Json = nlohmann::ordered_json;

void print(std::ostream& out, const Json& json) {
    out << json.dump(2, ' ', false, Json::error_handler_t::replace) << "\n";
}

Json named(std::string_view kind, const std::string& item, const ItemTitles& titles) {
    Json json = {{"item", item}};
    const std::string title = titles ? titles(std::string(kind), item) : std::string();
    if (!title.empty()) json["title"] = title;
    return json;
}

Json valueOf(const std::optional<std::string>& wire) {
    return wire ? Json(utf8FromWire(*wire)) : Json();
}

}  // namespace

void printJson(std::ostream& out, const SaveReport& report, const ItemTitles& titles) {
    Json items = Json::array();
    for (const auto& item : report.items) {
        Json json = named(report.kind, item.name, titles);
        json["value"] = utf8FromWire(item.value);
        if (!item.remark.empty()) json["remark"] = utf8FromWire(item.remark);
        items.push_back(json);
    }
    print(out, {{"kind", report.kind}, {"file", report.file}, {"remarks", report.remarks}, {"items", items}});
}

void printJson(std::ostream& out, const CompareReport& report, const ItemTitles& titles) {
    Json list = Json::array();
    for (const auto& [name, left, right] : report.differences) {
        Json json = named(report.kind, name, titles);
        json["left"] = valueOf(left);
        json["right"] = valueOf(right);
        list.push_back(json);
    }
    print(out, {{"kind", report.kind},
                {"left", report.left},
                {"right", report.right},
                {"alike", report.differences.empty()},
                {"differences", list}});
}

void printJson(std::ostream& out, const std::vector<SerialPortInfo>& ports) {
    Json list = Json::array();
    for (const auto& port : ports) {
        list.push_back({{"number", port.number}, {"device", port.device}, {"description", port.description}});
    }
    print(out, list);
}

}  // namespace korvex::cli
