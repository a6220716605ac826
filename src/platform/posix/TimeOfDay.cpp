#include "platform/TimeOfDay.h"

#include <array>
#include <ctime>

namespace korvex {

std::string localTimeOfDay() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    ::localtime_r(&now, &parts);
    std::array<char, 32> text{};
    const auto length = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &parts);
    return {text.data(), length};
}

}  // namespace korvex
