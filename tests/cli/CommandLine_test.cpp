#include "cli/CommandLine.h"

#include <gtest/gtest.h>

namespace korvex::cli {
namespace {

TEST(CommandLine, RefusesWhatItDoesNotUnderstand) {
    for (const std::vector<std::string>& bad : std::vector<std::vector<std::string>>{
             {},
             {"fly"},
             {"send"},
             {"save", "menu"},
             {"restore", "menu", "a", "b"},
             {"-s", "9600", "ports"},
             {"--handshaking", "7", "ports"},
             {"--colour", "ports"},
             {"-r"},
             {"--demo", "-r", "/dev/ttyS0", "send", "FA;"},
             {"send", "Ω;"},
             {"send", "TX1;"},
             {"backup"},
             {"backup", "a", "b"},
             {"save", "menu", "a", "--verify"},
             {"restore", "menu", "a", "--verify", "--dry-run"},
             {"restore", "memory", "a", "--with-cat"},
             {"save", "menu", "a", "--force"},
             {"send", "FA\nTX1;"},
             {"send", "--allow-transmit", "FA\nTX1;"},
             {"send", "FA;\tFB;"},
             {"send", "FA;", "--force"},
             {"description", "import", "a", "--verify"},
             {"save", "menu", "a", "--with-settings"},
             {"description"},
             {"--settings=", "x", "ports"},
             {"--database", "", "ports"},
             {"--handshaking=0x2", "ports"},
             {"backup", "a", "--", "--demo"},
             {"save", "menu", "a", "--dry-run"},
             {"save", "menu", "a", "ports"},
             {"--handshaking=-1", "ports"},
             {"send", "FA;", "--json"},
             {"save", "menu", "-", "--json"},
             {"restore", "menu", "a", "--json", "--dry-run"},
         }) {
        EXPECT_FALSE(parseArguments(bad)) << testing::PrintToString(bad);
    }
    EXPECT_TRUE(parseArguments({"--allow-transmit", "send", "TX1;"}));
    EXPECT_TRUE(parseArguments({"send", "FA;\r\n"}));
}

TEST(CommandLine, TakesAValueInEveryFormAndOptionsOnBothSidesOfTheCommand) {
    using Arguments = std::vector<std::string>;
    for (const Arguments& given :
         std::vector<Arguments>{{"--device", "/dev/a=b", "-s", "9600,n,8,2", "save", "keyer", "k"},
                                {"save", "--device=/dev/a=b", "keyer", "-s9600,n,8,2", "k"},
                                {"save", "keyer", "k", "-r/dev/a=b", "-s", "9600,n,8,2"},
                                {"-r", "/dev/x", "-r", "/dev/a=b", "-s9600,n,8,2", "--", "save", "keyer", "k"}}) {
        const auto command = parseArguments(given);
        ASSERT_TRUE(command) << command.error().text;
        EXPECT_EQ(command->verb, Command::Verb::Save);
        EXPECT_EQ(command->kind + " " + command->file, "keyer k");
        EXPECT_EQ(command->device, "/dev/a=b");
        EXPECT_EQ(command->settings, "9600,n,8,2");
    }
    EXPECT_EQ(parseArguments({"--verify", "restore-all", "--", "--demo"})->file, "--demo");
    EXPECT_EQ(parseArguments({"compare", "-", "ports"})->otherFile, "ports");
    EXPECT_EQ(parseArguments({"--handshaking=2", "ports"})->verb, Command::Verb::Ports);
    EXPECT_EQ(parseArguments({"ports", "--handshaking=2"})->handshaking, 2);
    EXPECT_EQ(parseArguments({"ports"})->pace, Pace::Answered);
    EXPECT_EQ(parseArguments({"ports", "--pace", "100"})->pace, Pace::Every100Ms);
    const auto command = parseArguments({"--database", "x.mdb", "description", "--settings", "x.ini", "export", "t"});
    ASSERT_TRUE(command) << command.error().text;
    EXPECT_EQ(command->verb, Command::Verb::DescriptionExport);
    EXPECT_EQ(*command->database + " " + *command->settingsFile + " " + command->file, "x.mdb x.ini t");
}

TEST(CommandLine, NamesTheArgumentThatIsWrongAndTellsEveryCommandAndOption) {
    const auto why = [](const std::vector<std::string>& arguments) {
        const auto command = parseArguments(arguments);
        return command ? "nothing" : command.error().text;
    };
    EXPECT_EQ(why({"fly"}), "unknown argument \"fly\"");
    EXPECT_EQ(why({"save", "--verifi", "menu"}), "unknown argument \"--verifi\"");
    EXPECT_EQ(why({"--dem", "ports"}), "unknown argument \"--dem\"");
    EXPECT_EQ(why({"--", "-x"}), "unknown argument \"-x\"");
    EXPECT_EQ(why({"save", "menu"}), "FILE is required");
    EXPECT_EQ(why({"ports", "-r"}), "--device wants a value");
    EXPECT_EQ(why({"--handshaking", "4", "ports"}), "--handshaking: a whole number from 0 to 3 is wanted");
    EXPECT_EQ(why({"-s", "fast", "ports"}).substr(0, 4), "-s: ");
    EXPECT_EQ(parseArguments({"save", "--version"})->text.substr(0, 10), "korvexctl ");
    const auto help = parseArguments({"restore", "--help", "--nonsense"});
    EXPECT_EQ(help->verb, Command::Verb::Print);
    for (const char* line : {"\n  description import FILE   table", "\n  restore-all DIR ", "\n  -r,--device DEVICE ",
                             "\n  --with-cat ", "\n  128 + N   ended by"}) {
        EXPECT_NE(help->text.find(line), std::string::npos) << line << help->text;
    }
}

}  // namespace
}  // namespace korvex::cli
