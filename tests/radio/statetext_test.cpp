#include "radio/StateText.h"

#include <gtest/gtest.h>
#include <string>

#include "radio/SimulatedRadio.h"

namespace korvex {
namespace {

/// Every set command of the radio: what it changes must be in the text, and come back from it.
constexpr std::string_view everyChange =
    "AC001;AG0001;AG1002;AI1;AN02;AN05;BC01;BI0;BP00001;BP01123;CN007;CO0002;CO0133;CO0244;CT01;EX0300;EX149-1234;"
    "FB07001000;FR2;FS1;FT1;GT02;GT10;IS0-0440;KM1 \"A = #B\" ;KP15;KR0;KS060;LK1;MD13;MG001;ML0001;ML1001;MS1;"
    "NA01;NA11;NB02;NB10;NL0010;NR01;OS02;PA02;PC050;PL001;PR1;RA03;RF02;RG0001;RG1002;RL015;RT1;RU0100;SD1000;"
    "SH031;SQ0100;SQ1200;TX1;VD1000;VG001;VS1;VX1;XT1;FA14250000;MD07;BS03;BS03;FA07199999;"
    "MW00650100000-012301D02490;MC050;FA21286000;";

TEST(StateText, KeepsWhateverACommandCanChange) {
    SimulatedRadio changed;
    EXPECT_EQ(changed.answer(everyChange), "");
    const SimulatedRadio untouched;
    for (const auto& [key, value] : changed.state.radio) {
        const bool settable = !findSetting(key)->readOnly && key != "ID" && key != "PS";
        EXPECT_EQ(value != untouched.state.get(key), settable) << key << ": add it to the changes above";
    }
    RadioState loaded = ownersRadio();
    EXPECT_TRUE(loadState(loaded, stateText(changed.state)).empty());
    EXPECT_EQ(stateText(loaded), stateText(changed.state));
    EXPECT_TRUE(loaded == changed.state);

    // And back: also what was filled and is empty now.
    changed.state.memories.at(1).reset();
    RadioState again = untouched.state;
    EXPECT_TRUE(loadState(again, stateText(changed.state)).empty());
    EXPECT_TRUE(again == changed.state);
    EXPECT_TRUE(loadState(again, stateText(untouched.state)).empty());
    EXPECT_TRUE(again == untouched.state);
}

TEST(StateText, PassesOverWhatMakesNoSense) {
    RadioState state = ownersRadio();
    const auto complaints = loadState(state,
                                      "# a comment\r\n"
                                      "\r\n"
                                      "  menu 042=077\r\n"
                                      "menu 042 = 9999\n"
                                      "menu 150 = 1\n"
                                      "FA = 14000000\n"
                                      "register 05.4 = FA=14000000\n"
                                      "register 05.1 = FA=14001000 MD0=Z   NA0=1\n"
                                      "memory 001 = 1407400\n"
                                      "keyer 1 = CQ\n"
                                      "band\n"
                                      "\xFF = = =\n"
                                      "recalled = \n"
                                      "KS = 031");
    EXPECT_EQ(complaints.size(), 10U);
    EXPECT_EQ(complaints.front(), "line 4 makes no sense: menu 042 = 9999");
    EXPECT_EQ(state.menu.at(42), "077");
    EXPECT_EQ(state.get("FA"), "14001000");  // what made sense on a line with a mistake
    EXPECT_EQ(state.get("MD0"), "2");
    EXPECT_EQ(state.get("KS"), "031");
}

TEST(StateText, IsToldFromAnyOtherText) {
    const std::string written = stateText(RadioState());
    for (const auto& state : {written, std::string(stateHeading) + "\nnonsense\n", std::string("# mine\nKS = 031\n"),
                              std::string(" \r\n\n"), std::string()}) {
        EXPECT_TRUE(isStateText(state)) << state;
    }
    for (const auto* other : {"Dear diary,\n", "# Notes\n", "KS = 031\nDear diary,\n", "a = b\n", "\xFF\xFE"}) {
        EXPECT_FALSE(isStateText(other)) << other;
    }
}

}  // namespace
}  // namespace korvex
