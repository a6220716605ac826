#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/NumberText.h"
#include "base/Printable.h"
#include "base/Property.h"
#include "base/Signal.h"

namespace korvex {
namespace {

TEST(Signal, CallsInOrderAndEndsWithTheOwner) {
    Signal<int> signal;
    std::vector<std::string> heard;
    auto first = signal.connect([&](int n) { heard.push_back("first " + std::to_string(n)); });
    {
        auto second = signal.connect([&](int n) { heard.push_back("second " + std::to_string(n)); });
        signal.emit(1);
    }
    signal.emit(2);
    EXPECT_EQ(heard, (std::vector<std::string>{"first 1", "second 1", "first 2"}));
}

TEST(Signal, SurvivesHandlersThatEndConnectionsAndDestroyTheSignal) {
    auto signal = std::make_unique<Signal<>>();
    int calls = 0;
    Connection later;
    Connection self = signal->connect([&] {
        ++calls;
        self.end();   // its own connection
        later.end();  // one that has not been called yet
        signal.reset();
    });
    later = signal->connect([&] { calls += 100; });
    signal->emit();
    EXPECT_EQ(calls, 1);
}

TEST(Property, TellsOnlyRealChanges) {
    Property<int> property(3);
    std::vector<int> heard;
    auto connection = property.bind([&](int value) { heard.push_back(value); });
    property = 3;
    property = 4;
    EXPECT_EQ(heard, (std::vector<int>{3, 4}));
}

TEST(NumberText, ParsesStrictlyAndPads) {
    EXPECT_EQ(zeroPadded(7, 3), "007");
    EXPECT_EQ(zeroPadded(1234, 3), "1234");
    EXPECT_EQ(parseWhole(" +05 "), 5);
    EXPECT_EQ(parseWhole("-20"), -20);
    for (const char* bad : {"", " ", "+", "+-3", "1.5", "12a", "99999999999", "0x10"}) {
        EXPECT_FALSE(parseWhole(bad)) << bad;
    }
}

TEST(CodePage, KeepsAll256BytesAndRefusesTheRest) {
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    EXPECT_EQ(wireFromUtf8(utf8FromWire(all)), all);
    EXPECT_EQ(utf8FromWire("\x80\xE4\xB0"), "€ä°");
    EXPECT_EQ(utf8Length("€ä°"), 3U);
    EXPECT_FALSE(wireFromUtf8("Ω"));
    EXPECT_EQ(firstInexpressible("ab€Ωc"), "Ω");
    EXPECT_FALSE(wireFromUtf8("\xC3"));              // cut off
    EXPECT_FALSE(wireFromUtf8("\xC0\x80"));          // overlong
    EXPECT_FALSE(wireFromUtf8("\xF0\x9F\x93\xBB"));  // beyond the basic plane
}

TEST(Printable, LeavesNothingThatATerminalObeys) {
    EXPECT_EQ(printable("a\r\nb\tc\rd\x1B[2J\x7F"), "a\nb\tc\u240Dd\u241B[2J\u2421");
    EXPECT_EQ(printable("\u009B \xC2 \x9B \xE2\x90 Ä€\U0001F4FB"), "\uFFFD \uFFFD \uFFFD \uFFFD\uFFFD Ä€\U0001F4FB");
    std::ostringstream shown;
    PrintableStream stream(shown);
    for (const char c : std::string("Ä\r\n\x1B")) stream << c;
    EXPECT_EQ(shown.str(), "Ä\n");
    EXPECT_TRUE(stream.flush());
    EXPECT_EQ(shown.str(), "Ä\n\u241B");
    shown.setstate(std::ios::badbit);
    EXPECT_FALSE(stream << "lost\n");
}

std::vector<std::string> allFields(std::string_view content) {
    FieldReader reader(content);
    std::vector<std::string> fields;
    while (auto field = reader.next()) fields.emplace_back(*field);
    return fields;
}

TEST(FieldReader, ReadsValuesWhateverTheLineEnds) {
    using Fields = std::vector<std::string>;
    EXPECT_EQ(allFields(""), Fields{});
    EXPECT_EQ(allFields("EX0011;\r\nEX0022;\nEX0033;\rEX0044;"), (Fields{"EX0011;", "EX0022;", "EX0033;", "EX0044;"}));
    EXPECT_EQ(allFields("a\r\n\r\nb\r\n"), (Fields{"a", "", "b"}));
    EXPECT_EQ(allFields("  one , two three ,\"four, still\" x,five"),
              (Fields{"one", "two three", "four, still", "five"}));
    EXPECT_EQ(allFields("\"never closed\r\nmore"), Fields{"never closed\r\nmore"});
}

}  // namespace
}  // namespace korvex
