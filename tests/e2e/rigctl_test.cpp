#include <filesystem>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <string>
#include <unistd.h>

#include "Shell.h"
#include "fakes/SimulatorProcess.h"
#include "platform/TextFile.h"

namespace korvex {
namespace {

/// The simulated radio as any program finds it, with hamlib's rigctl as that program.
class RigctlTest : public testing::Test {
protected:
    void SetUp() override {
        if (run("command -v rigctl").code != 0) GTEST_SKIP() << "rigctl is not installed (libhamlib-utils)";
        std::string folder = std::filesystem::temp_directory_path() / "korvex-rigctl-XXXXXX";
        ASSERT_NE(::mkdtemp(folder.data()), nullptr);
        m_folder = folder;
    }
    void TearDown() override {
        if (!m_folder.empty()) std::filesystem::remove_all(m_folder);
    }

    std::string inFolder(const std::string& name) const { return m_folder + "/" + name; }

    static Ended rigctl(const std::string& device, const std::string& commands) {
        return run("rigctl -m 1029 -r " + device + " -s 38400 " + commands);
    }

    const std::string binary = BINARY_DIR "/ft2000sim";

private:
    std::string m_folder;
};

TEST_F(RigctlTest, ReadsTheRadio) {
    fakes::SimulatorProcess simulator(binary);
    const auto& device = simulator.device();
    EXPECT_EQ(rigctl(device, "f m").output, "14195000\nUSB\n2400\n");
    EXPECT_EQ(rigctl(device, "_").output, "ID0251\n");

    const auto memory = rigctl(device, "h 2 1").output;
    EXPECT_NE(memory.find("Freq:   7.0300000 MHz\tMode:   CW"), std::string::npos) << memory;
    EXPECT_NE(memory.find("RIT: -125.0 Hz"), std::string::npos) << memory;
    const auto empty = rigctl(device, "h 9 1");
    EXPECT_EQ(empty.code, 0);
    EXPECT_NE(empty.output.find("Freq:   0.0 Hz"), std::string::npos) << empty.output;

    EXPECT_EQ(rigctl(device, "W 'EX042;' ';' W 'EX126;' ';' W 'EX150;' ';'").output, "EX042050;\nEX126+05;\n?;\n");
    EXPECT_EQ(simulator.end(), 0);
}

TEST_F(RigctlTest, SetsTheRadio) {
    fakes::SimulatorProcess simulator(binary, {"--turnaround", "5"});
    const auto& device = simulator.device();
    EXPECT_EQ(rigctl(device, "F 7040000 f M CW 500 m").output, "7040000\nCW\n500\n");
    EXPECT_EQ(rigctl(device, "f m L KEYSPD 31 l KEYSPD U MN 1 u MN Y 2 0 t").output, "7040000\nCW\n500\n31\n1\n0\n");
    EXPECT_EQ(rigctl(device, "E 2 e").output, "2\n");
    EXPECT_EQ(simulator.end(), 0);
}

TEST_F(RigctlTest, AStateOutlivesTheRadio) {
    const auto state = inFolder("state");
    const auto link = inFolder("radio");
    std::filesystem::create_symlink("/dev/pts/gone", link);
    {
        fakes::SimulatorProcess simulator(binary, {"--state", state, "--link", link, "--turnaround", "0"});
        EXPECT_EQ(rigctl(link, "F 14195500 W 'EX042077;EX042;' ';'").output, "EX042077;\n");
        EXPECT_EQ(simulator.end(), 0);
    }
    EXPECT_FALSE(std::filesystem::is_symlink(link));
    const auto kept = textfile::read(state);
    ASSERT_TRUE(kept);
    EXPECT_NE(kept->find("menu 042 = 077\n"), std::string::npos);
    fakes::SimulatorProcess again(binary, {"--state", state});
    EXPECT_EQ(rigctl(again.device(), "f W 'EX042;' ';'").output, "14195500\nEX042077;\n");
}

TEST_F(RigctlTest, FaultsReachTheProgram) {
    fakes::SimulatorProcess gone(binary, {"--fault", "unplugged=3"});
    EXPECT_NE(rigctl(gone.device(), "f").code, 0);
    EXPECT_EQ(gone.waitForEnd(5000), 0);
    fakes::SimulatorProcess inPieces(binary, {"--fault", "split", "--turnaround=0"});
    EXPECT_EQ(rigctl(inPieces.device(), "W 'FA;' ';'").output, "FA14195000;\n");
    const auto wrong = run(binary + " --fault mute");
    EXPECT_EQ(wrong.code, 2);
    EXPECT_NE(wrong.output.find("There is no fault \"mute\"."), std::string::npos);
    EXPECT_EQ(run(binary + " --turnaround -1").code, 2);
    EXPECT_EQ(run(binary + " --link " + inFolder("")).code, 1);
}

}  // namespace
}  // namespace korvex
