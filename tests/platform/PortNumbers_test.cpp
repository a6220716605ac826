#include "platform/PortNumbers.h"

#include <gtest/gtest.h>

namespace korvex {
namespace {

const FoundPort onBoard{"/dev/ttyS0", {"/dev/ttyS0"}, ""};
const FoundPort adapter{"/dev/ttyUSB0", {"/dev/serial/by-id/usb-A", "/dev/serial/by-path/1", "/dev/ttyUSB0"}, ""};
const FoundPort second{"/dev/ttyUSB1", {"/dev/serial/by-id/usb-B", "/dev/ttyUSB1"}, ""};

/// "1=/dev/ttyS0 2=/dev/ttyUSB0": the numbers that have a device now.
std::string plan(const PortNumbers& numbers) {
    std::string text;
    for (int number = PortNumbers::first; number <= PortNumbers::last; ++number) {
        const auto* port = numbers.foundAt(number);
        if (port != nullptr) text += (text.empty() ? "" : " ") + std::to_string(number) + "=" + port->device;
    }
    return text;
}

TEST(PortNumbers, GivenAndRememberedOnesComeFirstTheRestFillsUp) {
    PortNumbers numbers;
    numbers.give(3, "/dev/ttyS0");
    numbers.remember(3, "/dev/serial/by-id/usb-A");  // the command line wins
    numbers.remember(1, "/dev/serial/by-id/usb-B");
    numbers.reserve(2);
    numbers.setFound({onBoard, adapter, second});
    EXPECT_EQ(plan(numbers), "1=/dev/ttyUSB1 3=/dev/ttyS0 4=/dev/ttyUSB0");
    EXPECT_EQ(numbers.nameToRemember(4), "/dev/serial/by-id/usb-A");
    EXPECT_EQ(numbers.nameToRemember(3), "") << "what was given holds for this run alone";
    EXPECT_EQ(numbers.nameToRemember(2), "");
}

TEST(PortNumbers, ANumberNeverChangesItsMeaningByItself) {
    PortNumbers numbers;
    numbers.setFound({onBoard, adapter});
    numbers.remember(2, numbers.nameToRemember(2));

    numbers.setFound({onBoard, second});  // the adapter is away, another one there
    EXPECT_EQ(plan(numbers), "1=/dev/ttyS0 3=/dev/ttyUSB1");
    EXPECT_EQ(numbers.deviceOf(2), "/dev/serial/by-id/usb-A");

    FoundPort moved = adapter;  // and comes back under another name, before the other
    moved.device = "/dev/ttyUSB7";
    numbers.setFound({moved, second, onBoard});
    EXPECT_EQ(plan(numbers), "1=/dev/ttyS0 2=/dev/ttyUSB7 3=/dev/ttyUSB1");
}

TEST(PortNumbers, EndAtTwenty) {
    std::vector<FoundPort> many;
    for (int i = 0; i < 25; ++i) many.push_back({"/dev/ttyS" + std::to_string(i), {}, ""});
    PortNumbers numbers;
    numbers.setFound(many);
    EXPECT_EQ(numbers.deviceOf(20), "/dev/ttyS19");
    EXPECT_EQ(numbers.deviceOf(21), "");
    numbers.setFound({});
    EXPECT_EQ(plan(numbers), "");
    EXPECT_EQ(numbers.deviceOf(1), "");
}

}  // namespace
}  // namespace korvex
