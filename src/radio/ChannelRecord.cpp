#include "radio/ChannelRecord.h"

#include <array>

namespace korvex::channelrecord {

namespace {

constexpr std::string_view source = {};  // no setting: tells where the record comes from

struct Field {
    std::string_view key;
    std::size_t width;
};
constexpr std::array<Field, 9> fields = {
    {{"FA", 8}, {"clarifier", 5}, {"RT", 1}, {"XT", 1}, {"MD0", 1}, {source, 1}, {"CT0", 1}, {"CN0", 2}, {"OS0", 1}}};

}  // namespace

std::string compose(const Values& values) {
    std::string record;
    for (const auto& field : fields) {
        if (field.key == source) {
            record += '0';
        } else if (const auto found = values.find(field.key); found != values.end()) {
            record += found->second;
        }
    }
    return record;
}

std::optional<Values> parse(std::string_view record) {
    if (record.size() != length) return std::nullopt;
    Values values;
    for (const auto& field : fields) {
        const auto text = record.substr(0, field.width);
        record.remove_prefix(field.width);
        if (field.key == source) continue;
        if (!findSetting(field.key)->rule.accepts(text)) return std::nullopt;
        values.emplace(field.key, text);
    }
    return values;
}

}  // namespace korvex::channelrecord
