#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "Shell.h"
#include "fakes/ProgramBench.h"
#include "fakes/SimulatorProcess.h"

namespace korvex {
namespace {

const std::string simulator = std::string(BINARY_DIR) + "/ft2000sim";
const std::string korvexctl = std::string(BINARY_DIR) + "/korvexctl --settings /dev/null ";

/// The build without Qt has no korvexctl.
class KorvexctlOnPty : public testing::Test {
protected:
    void SetUp() override {
        if (!std::filesystem::exists(std::string(BINARY_DIR) + "/korvexctl")) GTEST_SKIP();
    }
};

TEST_F(KorvexctlOnPty, SavesTheMenuAndRestoresItIntoAnotherRadio) {
    fakes::TemporaryFolder folder;
    const std::string file = folder.file("shack.mnu");
    {
        fakes::SimulatorProcess radio(simulator);
        const auto saved = run(korvexctl + "-r " + radio.device() + " -s 38400,n,8,2 save menu " + file);
        ASSERT_EQ(saved.code, 0) << saved.output;
    }
    const std::string content = fakes::fileContent(file);
    EXPECT_EQ(std::count(content.begin(), content.end(), '\n'), 149);
    fakes::SimulatorProcess other(simulator);
    const std::string port = korvexctl + "-r " + other.device() + " -s 38400,n,8,2 ";
    EXPECT_EQ(run(port + "send 'EX0010001;EX042099;'").code, 0);
    EXPECT_EQ(run(port + "restore menu " + file).code, 0);
    const auto line42 = content.substr(content.find("EX042"), 10);
    EXPECT_EQ(run(port + "send 'EX042;'").output.substr(0, 9), line42.substr(0, 9));
}

TEST_F(KorvexctlOnPty, TellsTroubleApart) {
    fakes::TemporaryFolder folder;
    EXPECT_EQ(run(korvexctl + "-r /dev/ttyNoSuchPort send 'FA;'").code, 3);
    fakes::SimulatorProcess deaf(simulator, {"--fault", "deaf"});
    EXPECT_EQ(run(korvexctl + "-r " + deaf.device() + " save menu " + folder.file("a.mnu")).code, 4);
    fakes::SimulatorProcess leaving(simulator, {"--fault", "unplugged=40"});
    EXPECT_EQ(run(korvexctl + "-r " + leaving.device() + " save menu " + folder.file("b.mnu")).code, 3);
    EXPECT_EQ(run("timeout -s INT 3 " + korvexctl + "--demo save menu " + folder.file("c.mnu")).code, 124);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

}  // namespace
}  // namespace korvex
