#include <gtest/gtest.h>

#include "app/StartOptions.h"

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
                                                       {"shack.mnu"}}) {
        EXPECT_FALSE(parseStartOptions(bad)) << testing::PrintToString(bad);
    }
}

}  // namespace
}  // namespace korvex
