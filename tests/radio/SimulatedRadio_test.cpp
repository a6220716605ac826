#include "radio/SimulatedRadio.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

#include "radio/ChannelRecord.h"
#include "radio/MenuItems.h"
#include "radio/StateText.h"

namespace korvex {
namespace {

/// The command that sets what an answer tells. What the radio chose by itself goes back as "automatic".
std::string asCommand(std::string answer) {
    if (answer.starts_with("AN0")) return answer.substr(0, 4) + ";";
    if (answer.starts_with("GT") && answer[3] > '4') answer[3] = '4';
    if (answer.starts_with("RF0") && answer[3] > '3') answer[3] = '0';
    return answer;
}

TEST(SimulatedRadio, StartsAsARadioInUse) {
    const SimulatedRadio radio;
    for (const auto& setting : allSettings()) {
        EXPECT_TRUE(setting.rule.accepts(radio.state.get(setting))) << setting.key;
    }
    for (const auto& values : radio.state.registers) {
        for (const auto& [key, value] : values) EXPECT_TRUE(findSetting(key)->rule.accepts(value)) << key << value;
    }
    int filled = 0;
    for (const auto& memory : radio.state.memories) {
        if (!memory) continue;
        EXPECT_TRUE(channelrecord::parse(*memory)) << *memory;
        ++filled;
    }
    EXPECT_GT(filled, 20);
    std::set<std::size_t> widths;
    for (int number = 1; number <= RadioState::menuItems; ++number) {
        const auto& value = radio.state.menu.at(static_cast<std::size_t>(number));
        EXPECT_TRUE(menuRule(number).accepts(value)) << number;
        widths.insert(value.size());
    }
    EXPECT_EQ(widths, (std::set<std::size_t>{1, 2, 3, 4, 5}));
}

TEST(SimulatedRadio, TakesCommandsAsTheyCome) {
    SimulatedRadio radio;
    EXPECT_EQ(radio.answer("ID;FA;"), "ID0251;FA14195000;");
    EXPECT_EQ(radio.answer("id;fa0710"), "ID0251;");
    EXPECT_EQ(radio.answer("0000;\r\nmd0a;MD0;\r\n"), "MD0A;");
    EXPECT_EQ(radio.answer("\r\nFA;IF;"), "FA07100000;IF00107100000+000000A00080;");
    EXPECT_EQ(radio.answer("OI;"), "OI00107074000+000000100000;");
    EXPECT_EQ(radio.answer(std::string(100'000, 'x') + ";ID;"), "?;ID0251;");
    EXPECT_EQ(radio.answer("PS0;ID;PS;FA07000000;PS1;FA;"), "FA07100000;");
}

TEST(SimulatedRadio, RefusesWhatIsWrongAndChangesNothing) {
    SimulatedRadio radio;
    const RadioState before = radio.state;
    for (const char* wrong :
         {"",         "F",       "FA 7000000", "FA7000000", "FA007000000", "FA00029999",  "FA60000001", "FA+7000000",
          "F\rA",     "XX",      "ID1",        "IF0",       "OI1",         "MD",          "MD2",        "MD00",
          "MD0E",     "MD022",   "GT05",       "RF04",      "RF13",        "SH1",         "SH000",      "SH0032",
          "AN1",      "AN03",    "AN010",      "IS1",       "IS00000",     "IS0+1001",    "BP00002",    "BP01401",
          "BP02",     "CO0003",  "KS003",      "KS061",     "PC004",       "SM0100",      "AC010",      "AC003",
          "AC1",      "TX3",     "MX2",        "KY",        "KYB",         "BS",          "BS11",       "BS5",
          "BS005",    "AB1",     "VM0",        "FT4",       "FR4",         "MC000",       "MC118",      "MC006",
          "MR",       "MR000",   "MR1",        "MR0001",    "MR006",       "MR118",       "EX",         "EX1",
          "EX000",    "EX150",   "EX042101",   "EX04250",   "EX042+50",    "EX126+11",    "EX126-21",   "EX12605",
          "EX1260+5", "EX133 5", "EX13311",    "EX12508",   "EX0284",      "EX043123456", "EX043-",     "EX04312.5",
          "KM",       "KM0",     "KM6",        "KM1A\rB",   "RU",          "RC1",         "RU10000"}) {
        EXPECT_EQ(radio.obey(wrong), "?;") << wrong;
    }
    EXPECT_EQ(radio.obey("KM1" + std::string(51, 'E')), "?;");
    EXPECT_TRUE(radio.state == before);
    EXPECT_EQ(radio.timesSet, 0);
    EXPECT_EQ(radio.timesKeyed, 0);
}

TEST(SimulatedRadio, EveryAnswerGoesBackAsASilentCommand) {
    SimulatedRadio radio;
    for (const auto& setting : allSettings()) {
        const std::string query = setting.key.starts_with("AC") ? "AC" : std::string(setting.key);
        if (setting.readOnly || query == "clarifier" || query == "AN5" || query == "PS") continue;
        const std::string answer = radio.obey(query);
        EXPECT_TRUE(answer.starts_with(query) && answer.ends_with(';')) << answer;
        EXPECT_EQ(radio.answer(asCommand(answer)), "") << answer;
        EXPECT_EQ(radio.obey(query), answer);
    }
    EXPECT_EQ(radio.timesKeyed, 0);
}

TEST(SimulatedRadio, AutomaticTellsWhatItChose) {
    SimulatedRadio radio;
    EXPECT_EQ(radio.answer("MD02;GT04;RF00;GT0;RF0;"), "GT06;RF06;");
    EXPECT_EQ(radio.answer("MD04;GT0;RF0;MD05;GT0;RF0;GT01;RF02;GT0;RF0;"), "GT04;RF04;GT04;RF05;GT01;RF02;");
    radio.quirks.automaticIsResolved = false;
    EXPECT_EQ(radio.answer("GT04;RF00;GT0;RF0;"), "GT04;RF00;");
}

TEST(SimulatedRadio, AntennasAndReceiveAntenna) {
    SimulatedRadio radio;
    EXPECT_EQ(radio.answer("AN02;AN0;AN05;AN0;AN01;AN0;AN05;AN0;"), "AN020;AN021;AN011;AN010;");
    radio.quirks.antennaAnswerTellsRxAntenna = false;
    EXPECT_EQ(radio.answer("AN0;"), "AN01;");
}

TEST(SimulatedRadio, BandStackStepsAndComesBack) {
    SimulatedRadio radio;
    EXPECT_EQ(radio.answer("FA;BS05;FA;BS03;FA;BS05;FA;"), "FA14195000;FA14025000;FA07012000;FA14025000;");
    EXPECT_EQ(radio.answer("BS05;BS05;FA;"), "FA14195000;");
    // What is tuned belongs to the register, wherever it leads.
    EXPECT_EQ(radio.answer("FA07123000;MD01;RA03;BS05;BS05;BS05;FA;MD0;RA0;BS03;FA;"),
              "FA07123000;MD01;RA03;FA07012000;");
    radio.quirks.hasSixtyMetres = false;
    EXPECT_EQ(radio.answer("BS02;"), "?;");
}

TEST(SimulatedRadio, MemoriesAreReadWrittenAndRecalled) {
    SimulatedRadio radio;
    EXPECT_EQ(radio.answer("MR001;MR006;MR031;"), "MR00114074000+000000C00000;?;MR03129660000+000000402122;");
    EXPECT_EQ(radio.answer("MW00607030000-012510310000;"), "?;");  // the source is not the writer's to tell
    for (const char* wrong :
         {"MW00600000000+000000300000;", "MW00607030000-01251030000;", "MW00607030000 012510300000;",
          "MW11807030000-012510300000;", "MW00607030000-012510E00000;", "MW00607030000-012510300500;"}) {
        EXPECT_EQ(radio.answer(wrong), "?;") << wrong;
    }
    EXPECT_EQ(radio.answer("MR006;MW00607030000-012510300492;MR006;MC;"), "?;MR00607030000-012510300492;MC001;");

    EXPECT_EQ(radio.answer("MC006;IF;FA;MD0;"), "IF00607030000-012510310492;FA07030000;MD03;");
    EXPECT_EQ(radio.answer("FA07031000;IF;VM;IF;VM;FA;"),
              "IF00607031000-012510320492;IF00614195000+000000200080;FA07030000;");
    EXPECT_EQ(radio.answer("BS05;FA;MA;FA;MD0;"), "FA14195000;FA07030000;MD03;");
    EXPECT_EQ(radio.answer("FA07032000;AM;MR006;"), "MR00607032000-012510300492;");

    radio.quirks.sourceInMemoryRead = '1';
    EXPECT_EQ(radio.answer("MR001;MW00614074000+000000C10000;"), "MR00114074000+000000C10000;");
    radio.quirks.emptyChannelAnswersZeros = true;
    EXPECT_EQ(radio.answer("MR009;"), "MR00900000000+000000010000;");
    radio.quirks.readsCurrentChannel = true;
    EXPECT_EQ(radio.answer("MR001;"), "MR00614074000+000000C10000;");
    radio.quirks.writeEntersMemoryMode = true;
    EXPECT_EQ(radio.answer("MW00950313000+000000200000;FA;"), "FA50313000;");
}

TEST(SimulatedRadio, MenuItemsKeepTheFormTheyWereSetIn) {
    SimulatedRadio radio;
    EXPECT_EQ(radio.answer("EX042;EX042100;EX042;EX0291;EX029;"), "EX042050;EX042100;EX0291;");
    EXPECT_EQ(radio.answer("EX126-00;EX126;EX141-20;EX141;EX13118;EX131;"), "EX126-00;EX141-20;EX13118;");
    EXPECT_EQ(radio.answer("EX043;EX04312345;EX043;EX043-1;EX043;"), "EX0430;EX04312345;EX043-1;");
    EXPECT_EQ(radio.answer("EX149;EX150;"), "EX1490;?;");
    radio.quirks.menuItems = 148;
    EXPECT_EQ(radio.answer("EX148;EX149;"), "EX1483;?;");
}

TEST(SimulatedRadio, KeyerTextsKeepTheirLetters) {
    SimulatedRadio radio;
    const std::string longest(50, 'T');
    EXPECT_EQ(radio.answer("KM2;KM4;KM3" + longest + ";KM3;km1cq De \xC4 ?;KM1;"),
              "KM2DE DL1XYZ;KM4;KM3" + longest + ";KM1cq De \xC4 ?;");
    radio.quirks.keyerTextEndsWithBrace = true;
    EXPECT_EQ(radio.answer("KM2;KM3;"), "KM2DE DL1XYZ};KM3" + longest + ";");
}

TEST(SimulatedRadio, CountsWhatWouldHaveTransmitted) {
    SimulatedRadio radio;
    EXPECT_EQ(radio.answer("TX;TX0;MX0;AC001;AC000;KR1;BI1;VX1;PR1;"), "TX0;");
    EXPECT_EQ(radio.timesKeyed, 0);
    EXPECT_EQ(radio.answer("TX1;TX;TX2;TX0;TX;MX1;MX;MX0;KY6;KYA;AC002;AC;"), "TX1;TX0;MX1;AC001;");
    EXPECT_EQ(radio.timesKeyed, 6);
}

TEST(SimulatedRadio, RemainingSwitches) {
    SimulatedRadio radio;
    EXPECT_EQ(radio.answer("MD04;BC01;BC0;FT3;FT;FT2;FT;"), "BC01;FT1;FT0;");
    radio.quirks.refusesNotchInAmAndFm = true;
    EXPECT_EQ(radio.answer("BC00;BC0;MD02;BC00;BC0;"), "?;BC01;BC00;");
    EXPECT_EQ(radio.answer("AB;FB;MD1;FA14200000;SV;FA;FB;"), "FB14195000;MD12;FA14195000;FB14200000;");
    EXPECT_EQ(radio.answer("RU9999;RU0001;RD0001;IF;RC;IF;"),
              "?;IF00114195000+999800200080;IF00114195000+000000200080;");
}

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
