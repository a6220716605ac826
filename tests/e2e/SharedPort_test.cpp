#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

#include "Shell.h"
#include "fakes/ProgramBench.h"
#include "fakes/SimulatorProcess.h"

namespace korvex {
namespace {

/// hamlib at both faces of the shared port, beside each other.
TEST(SharedPort, LetsHamlibInByBothDoors) {
    if (!hasKorvexctl() || run("command -v rigctl").code != 0) GTEST_SKIP();
    fakes::SimulatorProcess radio(BINARY_DIR "/ft2000sim");
    ASSERT_FALSE(radio.device().empty());
    const fakes::TemporaryFolder folder;
    const std::string server = std::to_string(20'000 + ::getpid() % 10'000);
    fakes::SimulatorProcess share(BINARY_DIR "/korvexctl", {"-r", radio.device(), "-s", "38400,n,8,2", "--settings",
                                                            folder.file("korvex.ini"), "share", "--rigctld", server});
    ASSERT_NE(share.device(), "");
    const std::string byCable = "rigctl -m 1029 -r " + share.device() + " -s 38400 ";
    const std::string byNetwork = "rigctl -m 2 -r 127.0.0.1:" + server + " ";
    EXPECT_EQ(run(byNetwork + "F 14250000").code, 0);
    EXPECT_EQ(run(byCable + "f").output, "14250000\n");
    EXPECT_EQ(run(byNetwork + "M PKTUSB 0").code, 0);
    EXPECT_EQ(run(byCable + "m").output.substr(0, 7), "PKTUSB\n");
    EXPECT_EQ(run(byCable + "f & " + byNetwork + "f; wait").output, "14250000\n14250000\n");
    const std::string refused = run(byNetwork + "T 1").output;
    EXPECT_NE(refused.find("rejected"), std::string::npos) << refused;
    EXPECT_EQ(share.end(), 0);
}

}  // namespace
}  // namespace korvex
