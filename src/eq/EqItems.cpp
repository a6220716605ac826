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

}  // namespace korvex::eq
