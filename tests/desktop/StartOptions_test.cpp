#include "desktop/StartOptions.h"

#include <gtest/gtest.h>

namespace korvex {
namespace {

TEST(StartOptions, TakesPortsFoldersAndRefusesNonsense) {
    const auto options = parseStartOptions({"--demo", "--port", "3=/dev/ttyUSB0", "--port=20=/dev/a=b", "--settings",
                                            "my.ini", "--program-folder=/tmp/x"});
    ASSERT_TRUE(options) << options.error().text;
    EXPECT_EQ(options->ports, (std::map<int, std::string>{{3, "/dev/ttyUSB0"}, {20, "/dev/a=b"}}));
    EXPECT_TRUE(options->demo);
    EXPECT_EQ(options->settingsFile, "my.ini");
    EXPECT_EQ(options->programFolder, "/tmp/x");
    using Arguments = std::vector<std::string>;
    for (const Arguments& bad : std::vector<Arguments>{{"--port"},
                                                       {"--port", "0=/dev/x"},
                                                       {"--port", "21=/dev/x"},
                                                       {"--port", "x=/dev/x"},
                                                       {"--port", "1"},
                                                       {"--port", "1="},
                                                       {"--settings"},
                                                       {"--demo", "--port", "1=/dev/x"},
                                                       {"-platforms", "xcb"},
                                                       {"--style=fusion", "--styl=x"}}) {
        EXPECT_FALSE(parseStartOptions(bad)) << testing::PrintToString(bad);
    }
}

TEST(StartOptions, TakeFilesWhereverTheyStand) {
    const auto options = parseStartOptions({"shack.mnu", "--demo", "b c.kem", "--", "--demo"});
    ASSERT_TRUE(options) << options.error().text;
    EXPECT_EQ(options->files, (std::vector<std::string>{"shack.mnu", "b c.kem", "--demo"}));
    EXPECT_NE(parseStartOptions({"--help"})->print.find("korvex [options] [FILE]"), std::string::npos);
}

TEST(StartOptions, LeaveToQtWhatIsQts) {
    const auto options =
        parseStartOptions({"-platform", "offscreen", "--style=fusion", "-session", "--demo", "-reverse",
                           "--stylesheet=x", "--stylesheet", "-style", "--port=1=/dev/x", "--settings", "x.ini"});
    ASSERT_TRUE(options) << options.error().text;
    EXPECT_FALSE(options->demo) << "that was the session's name";
    EXPECT_EQ(options->settingsFile, "x.ini");
}

}  // namespace
}  // namespace korvex
