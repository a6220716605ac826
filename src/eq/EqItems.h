#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// The nine settings of the radio's three-band microphone equalizer: centre frequency, gain and Q of the low, the
/// middle and the high band, in this order. The radio keeps them in menus 125..133 for the speech processor off and
/// again in 134..142 for the speech processor on.
struct EqItem {
    enum class Kind { Centre, Gain, Q };

    Kind kind;
    int lowest;
    int highest;
    int step;
    int initial;
    std::string_view initialDisplay;
    std::string_view name;  ///< for people who cannot see the slider
    int firstFrequency;     ///< Hz; a centre below it is the band's OFF position
};

inline constexpr std::size_t eqItemCount = 9;
/// One set: the nine slider positions in the order of `eqItems`.
using EqValues = std::array<int, eqItemCount>;

inline constexpr int firstEqMenu = 125;
inline constexpr int processorMenuOffset = 9;

inline constexpr std::array<EqItem, eqItemCount> eqItems{{
    {EqItem::Kind::Centre, 0, 700, 100, 0, "00", "Low center frequency", 100},
    {EqItem::Kind::Gain, -20, 10, 1, 0, "00", "Low gain", 0},
    {EqItem::Kind::Q, 1, 10, 1, 1, "01", "Low Q", 0},
    {EqItem::Kind::Centre, 600, 1500, 100, 600, "00", "Middle center frequency", 700},
    {EqItem::Kind::Gain, -20, 10, 1, 0, "00", "Middle gain", 0},
    {EqItem::Kind::Q, 1, 10, 1, 1, "01", "Middle Q", 0},
    {EqItem::Kind::Centre, 1400, 3200, 100, 1400, "00", "High center frequency", 1500},
    {EqItem::Kind::Gain, -20, 10, 1, 0, "00", "High gain", 0},
    {EqItem::Kind::Q, 1, 10, 1, 1, "01", "High Q", 0},
}};

namespace eq {

/// "0" for a centre that is OFF, else the frequency rounded down to 100 Hz; "+05" and "-12" for gains; "01" for Q.
std::string displayText(const EqItem& item, int value);

/// What the radio calls the value: the two-digit code of a centre ("00" is OFF, then one for each 100 Hz), else the
/// display text.
std::string parameter(const EqItem& item, int value);

/// The value in an answer's text between the menu number and the ";". Nothing for a code that the band does not have,
/// for what is no number and for a value outside the item's range.
std::optional<int> valueFromAnswer(const EqItem& item, std::string_view answer);

/// "EX125": the item in the processor's set.
std::string menuItem(std::size_t item, bool processorOn);
/// "EX12503;": sets it.
std::string commandFor(std::size_t item, int value, bool processorOn);
/// "EX12503;EX125;": sets it and asks for it.
std::string commandAndQuery(std::size_t item, int value, bool processorOn);

struct ItemValue {
    std::size_t item = 0;
    int value = 0;
};
/// What a whole answer, "EX12503;", says of a set; nothing for another one and for what valueFromAnswer does not take.
std::optional<ItemValue> readAnswer(std::string_view answer, bool processorOn);

/// A centre on which its band does nothing.
bool isOff(const EqItem& item, int value);
/// "Hz", "dB", "Q"; "OFF" for a centre that is.
std::string_view unitText(const EqItem& item, int value);
/// "Low 300 Hz +05 dB Q 04, Middle OFF, High ...", for those who do not see the curve.
std::string inWords(const EqValues& values);

struct ScaleMark {
    int value;
    std::string text;
};
/// What stands beside a slider, from above.
std::vector<ScaleMark> scaleMarks(const EqItem& item);

}  // namespace eq

}  // namespace korvex
