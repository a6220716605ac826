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

TEST_F(KorvexctlOnPty, CallsMenuItemsByTheNamesOfTheDescriptionDatabase) {
    fakes::TemporaryFolder folder;
    const std::string one = folder.file("one.mnu");
    const std::string other = folder.file("other.mnu");
    const std::string database = folder.file("names.mdb");
    fakes::writeFile(one, "EX0010;\r\nEX0020;\r\nEX0420;\r\n");
    fakes::writeFile(other, "EX0011;\r\nEX0021;\r\nEX0421;\r\n");
    const auto compared = [&] { return run(korvexctl + "--database " + database + " compare " + one + " " + other); };
    const std::string numbers = "001: \"0\" | \"1\"\n002: \"0\" | \"1\"\n042: \"0\" | \"1\"\n";
    EXPECT_EQ(compared().output, numbers);
    EXPECT_FALSE(std::filesystem::exists(database));
    std::string names = "1\tMenu\tGroup\tName\n2\t001\tAGC\tAGC Fast\\nDelay\n3\t\t\tmore\n";
    for (int item = 2; item <= 149; ++item) names += std::to_string(item + 2) + "\t" + std::to_string(item) + "\n";
    fakes::writeFile(folder.file("names.tsv"), names);
    const auto import = korvexctl + "--database " + database + " description import " + folder.file("names.tsv");
    EXPECT_EQ(run(import).output, folder.file("names.tsv") + ": 151 rows taken, " + database + " is new\n");
    EXPECT_NE(run(import).output.find("nothing in it is new"), std::string::npos);
    const std::string before = fakes::fileContent(database);
    EXPECT_EQ(compared().output, "001 (AGC Fast Delay)" + numbers.substr(3));
    EXPECT_EQ(compared().code, 1);
    EXPECT_EQ(fakes::fileContent(database), before);
    fakes::writeFile(database, "no database");
    EXPECT_EQ(compared().output, numbers);
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
