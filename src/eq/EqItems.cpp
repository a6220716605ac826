#include "eq/EqItems.h"

#include <cstdlib>

#include "base/NumberText.h"

namespace korvex::eq {

namespace {

constexpr int hertzPerCode = 100;

int centreCode(const EqItem& item, int hertz) {
    return hertz < item.firstFrequency ? 0 : (hertz - item.firstFrequency) / hertzPerCode + 1;
}

int centreHertz(const EqItem& item, int code) {
    return code == 0 ? item.lowest : item.firstFrequency + (code - 1) * hertzPerCode;
}

std::string signedText(int value) {
    return (value < 0 ? "-" : "+") + zeroPadded(std::abs(value), 2);
}

std::optional<int> centreFromAnswer(const EqItem& item, std::string_view answer) {
    if (answer.size() < 2 || !isDigit(answer[0]) || !isDigit(answer[1])) return {};
    return centreHertz(item, (answer[0] - '0') * 10 + (answer[1] - '0'));
}

std::optional<int> qFromAnswer(std::string_view answer) {
    return parseWhole(answer.starts_with('0') ? answer.substr(1, 1) : answer);
}

std::optional<int> anyValue(const EqItem& item, std::string_view answer) {
    switch (item.kind) {
        case EqItem::Kind::Centre: return centreFromAnswer(item, answer);
        case EqItem::Kind::Gain: return parseWhole(answer.substr(0, 3));
        case EqItem::Kind::Q: break;
    }
    return qFromAnswer(answer);
}

}  // namespace

std::string displayText(const EqItem& item, int value) {
    switch (item.kind) {
        case EqItem::Kind::Centre: {
            const int code = centreCode(item, value);
            return code == 0 ? "0" : std::to_string(centreHertz(item, code));
        }
        case EqItem::Kind::Gain: return signedText(value);
        case EqItem::Kind::Q: break;
    }
    return zeroPadded(value, 2);
}

std::string parameter(const EqItem& item, int value) {
    return item.kind == EqItem::Kind::Centre ? zeroPadded(centreCode(item, value), 2) : displayText(item, value);
}

std::optional<int> valueFromAnswer(const EqItem& item, std::string_view answer) {
    const auto value = anyValue(item, answer);
    if (!value || *value < item.lowest || *value > item.highest) return {};
    return value;
}

std::string menuItem(std::size_t item, bool processorOn) {
    const int offset = processorOn ? processorMenuOffset : 0;
    return "EX" + std::to_string(firstEqMenu + offset + static_cast<int>(item));
}

std::string commandFor(std::size_t item, int value, bool processorOn) {
    return menuItem(item, processorOn) + parameter(eqItems.at(item), value) + ";";
}

std::string commandAndQuery(std::size_t item, int value, bool processorOn) {
    return commandFor(item, value, processorOn) + menuItem(item, processorOn) + ";";
}

std::optional<ItemValue> readAnswer(std::string_view answer, bool processorOn) {
    for (std::size_t item = 0; item < eqItemCount; ++item) {
        const std::string menu = menuItem(item, processorOn);
        if (!answer.starts_with(menu)) continue;
        const auto value = valueFromAnswer(eqItems[item], answer.substr(menu.size(), answer.size() - menu.size() - 1));
        if (value) return ItemValue{item, *value};
    }
    return {};
}

bool isOff(const EqItem& item, int value) {
    return item.kind == EqItem::Kind::Centre && value < item.firstFrequency;
}

std::string_view unitText(const EqItem& item, int value) {
    switch (item.kind) {
        case EqItem::Kind::Centre: return isOff(item, value) ? "OFF" : "Hz";
        case EqItem::Kind::Gain: return "dB";
        case EqItem::Kind::Q: break;
    }
    return "Q";
}

std::string inWords(const EqValues& values) {
    constexpr std::array bands = {"Low ", ", Middle ", ", High "};
    std::string text;
    for (std::size_t band = 0; band < bands.size(); ++band) {
        const std::size_t item = 3 * band;
        const auto shown = [&](std::size_t at) { return displayText(eqItems[at], values[at]); };
        text += bands[band];
        text += isOff(eqItems[item], values[item])
                    ? "OFF"
                    : shown(item) + " Hz " + shown(item + 1) + " dB Q " + shown(item + 2);
    }
    return text;
}

std::vector<ScaleMark> scaleMarks(const EqItem& item) {
    const auto plain = [](int value) { return ScaleMark{value, std::to_string(value)}; };
    switch (item.kind) {
        case EqItem::Kind::Centre:
            return {plain(item.highest), plain((item.firstFrequency + item.highest) / 200 * 100), {item.lowest, "OFF"}};
        case EqItem::Kind::Gain: return {{10, "+10"}, plain(0), plain(-10), plain(-20)};
        case EqItem::Kind::Q: break;
    }
    return {plain(10), plain(5), plain(1)};
}

}  // namespace korvex::eq
