#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "convert/ChannelWords.h"
#include "convert/Chirp.h"
#include "convert/KindSheets.h"

namespace korvex {
namespace {

const std::string list =
    "MW00114250000+000000200080;DX window\r\n"
    "MW00729620000-012510410082;Relais \xDC"
    "ber \"Berg\"; Nord\r\n"
    "MW09950125000+000000C02491;\r\n\r\n";

std::string table(std::string_view kind, const std::string& content) {
    const auto sheet =
        sheetOf(kind, content, [](const std::string& item) { return item == "042" ? "Anti-VOX, gain" : ""; });
    EXPECT_TRUE(sheet) << sheet.error().text;
    return sheet ? csvText(*sheet) : "";
}

std::string back(std::string_view kind, const std::string& csv) {
    const auto file = fileOf(kind, csv);
    return file ? *file : "refused: " + file.error().text;
}

void replace(std::string& text, std::string_view what, std::string_view with) {
    const auto at = text.find(what);
    ASSERT_NE(at, std::string::npos) << what << " is not in\n" << text;
    text.replace(at, what.size(), with);
}

TEST(KindSheets, ComeBackAsTheyWere) {
    EXPECT_EQ(back("list", table("list", list)), list);
    const std::string memory = "MR00114250000+000000210080;\r\nMR00729620000-012510410082;\r\n";
    EXPECT_EQ(back("memory", table("memory", memory)), memory);
    std::string menu = "EX0011;\r\n?;\r\n\r\n";
    for (int item = 4; item < 149; ++item)
        menu += "EX" + std::string(item < 100 ? item < 10 ? "00" : "0" : "") + std::to_string(item) + "0020;\r\n";
    menu += "EX149+05;\r\n";
    EXPECT_EQ(back("menu", table("menu", menu)), menu);
    const std::string keyer =
        "|Mem.|Keyer Text|Char. Count|\r\n|KM1;| CQ, \"DE\" =|11|\r\n|KM2;||0|\r\n|KM3;||0|\r\n|KM4;||0|\r\n"
        "|KM5;|TU |3|\r\n|\r\n\r\n";
    EXPECT_EQ(back("keyer", table("keyer", keyer)), keyer);
}

/// What becomes of a table when a spreadsheet has had it.
TEST(KindSheets, UnderstandWhatSpreadsheetsDoToNumbers) {
    std::string menu = table("menu", "EX0010020;\r\nEX002+05;\r\nEX003-10;\r\n");
    replace(menu, "001,,0020", "1,,20");
    replace(menu, "002,,+05", "2,,5");
    EXPECT_EQ(back("menu", menu).substr(0, 33), "EX0010020;\r\nEX002+05;\r\nEX003-10;\r");
    EXPECT_EQ(back("menu", "Item,Value,Command\n3,0,EX003-00;\n").substr(4, 9), "EX003-00;");
    replace(menu, "1,,20", "1,,40");
    replace(menu, "2,,5", "2,,-7");
    EXPECT_EQ(back("menu", menu).substr(0, 33), "EX0010040;\r\nEX002-07;\r\nEX003-10;\r");
    replace(menu, "1,,40", "1,,40000");
    EXPECT_NE(back("menu", menu).find("refused: line 2:"), std::string::npos);

    std::string channels = table("list", list);
    replace(channels, "254.1", "254,1");
    replace(channels, "001,14250000", "1,7100000");
    EXPECT_EQ(back("list", channels).substr(0, 12), "refused: lin") << "a comma more is a column more";
    replace(channels, "254,1", "\"254,1\"");
    EXPECT_EQ(back("list", channels).substr(0, 14), "MW00107100000+");
    replace(channels, "USB", "SSB");
    EXPECT_EQ(back("list", channels), "refused: line 2: Mode cannot be \"SSB\"");
}

TEST(KindSheets, RefuseWhatNoFileCouldHold) {
    EXPECT_NE(back("menu", "Item,Value,Command\n1,1,EX0021;\n").find("of another item"), std::string::npos);
    EXPECT_NE(back("menu", "Item,Value,Command\n1,1,\n1,2,\n").find("twice"), std::string::npos);
    EXPECT_NE(back("menu", "Item,Value,Command\n150,1,\n").find("no such menu item"), std::string::npos);
    EXPECT_NE(back("menu", "Item,Value\n1,1\n").find("no column \"Command\""), std::string::npos);
    EXPECT_NE(back("keyer", "Memory,Text\n6,CQ\n").find("refused"), std::string::npos);
    EXPECT_NE(back("keyer", "Memory,Text\n1,A|B\n").find("refused"), std::string::npos);
    EXPECT_NE(back("bandstack", "Register,Band,FA;\n00.1,TX1;,\n").find("refused"), std::string::npos);
}

TEST(Chirp, RoundTripSaysWhatIsLost) {
    const auto channels = channelsIn("list", list);
    ASSERT_TRUE(channels);
    const ChirpExport out = chirpFrom(*channels);
    EXPECT_TRUE(isChirp(out.csv));
    EXPECT_EQ(out.losses, (std::vector<std::string>{
                              "channel 007: the clarifier -0125 Hz is left out",
                              "channel 007: the shift has no offset: menu items 076 and 077 of the radio hold it",
                              "channel 099: the shift has no offset: menu items 076 and 077 of the radio hold it"}));
    const auto in = channelsFromChirp(out.csv);
    ASSERT_TRUE(in);
    EXPECT_TRUE(in->losses.empty()) << in->losses.front();
    EXPECT_EQ(*channelFile("list", in->channels),
              "MW00114250000+000000200080;DX window\r\n"
              "MW00729620000+000000400082;Relais \xDC"
              "ber \"Berg\"; Nord\r\n"
              "MW09950125000+000000C02491;\r\n\r\n");
}

TEST(Chirp, TakesWhatTheRadioCanHoldAndTellsTheRest) {
    const auto in = channelsFromChirp(
        "Location,Name,Frequency,Duplex,Offset,Tone,rToneFreq,cToneFreq,DtcsCode,DtcsPolarity,Mode,TStep,Skip,Comment\n"
        "0,zero,14.1,,0,,88.5,88.5,023,NN,USB,5,,\n"
        "1,PSRG,145.500000,,0,,88.5,88.5,023,NN,FM,5,,\n"
        "2,DV,29.600000,,0,,88.5,88.5,023,NN,DV,5,,\n"
        "3,\"a,b\",29.620000,-,0.100000,TSQL,88.5,103.5,023,NN,NFM,5,S,c\xE2\x82\xAC\xE2\x98\x85\n"
        "4,x,7.0,split,7.1,DTCS,88.5,88.5,023,NN,NCW,5,,\n"
        "3,again,7.0,,,,,,,,LSB,,,\n"
        "5,y,14.2500001,,,,,,,,LSB,,,\n");
    ASSERT_TRUE(in);
    EXPECT_EQ(*channelFile("list", in->channels),
              "MW00329620000+000000B01132;a b c\x80?\r\nMW00407000000+000000300080;x\r\n\r\n");
    EXPECT_EQ(
        in->losses,
        (std::vector<std::string>{
            "channel 0: left out, the radio has the channels 1 to 99",
            "channel 1: left out, the radio does not tune 145.500000 MHz",
            "channel 2: left out, the radio has no mode DV",
            "channel 3: the offset 0.100000 MHz is left out: menu items 076 and 077 of the radio hold it",
            "channel 3: commas and line ends of the remark became blanks",
            "channel 3: the remark's character \"\xE2\x98\x85\" became \"?\"", "channel 3: Skip \"S\" is left out",
            "channel 4: the mode NCW is taken as CW", "channel 4: the tone mode DTCS is left out",
            "channel 4: the duplex \"split\" is left out", "channel 3: left out, it is there twice",
            "channel 5: left out, the radio does not tune 14.2500001 MHz"}));
    EXPECT_FALSE(channelsFromChirp("Memory,Hz\n1,2\n"));
}

}  // namespace
}  // namespace korvex
