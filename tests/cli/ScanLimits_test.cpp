#include "cli/BackupTest.h"

namespace korvex::cli {
namespace {

using ScanLimits = BackupTest;

/// Where the radio has them; one that has not is asked for the first pair alone, and nothing is missing.
TEST_F(ScanLimits, ScanLimitsAreSavedAndRestoredWhereTheRadioTellsThem) {
    ASSERT_EQ(bench.run({"backup", dir}), ExitCode::Done);
    EXPECT_EQ(saved("scanlimits.pms"), "MR10014000000+000000300000;\r\nMR10114070000+000000300000;\r\n");
    EXPECT_NE(saved("summary.txt").find("scanlimits.pms    2 scan limits"), std::string::npos) << saved("summary.txt");
    EXPECT_NE(bench.sent.find("MR117;"), std::string::npos);
    auto& memories = bench.ports.radio().state.memories;
    const auto before = memories;
    memories.at(101) = "07074000+000000200000";
    EXPECT_EQ(bench.run({"compare", file("scanlimits.pms"), "radio"}), ExitCode::Different);
    EXPECT_EQ(bench.run({"restore-all", backup}), ExitCode::Done) << bench.out.str();
    EXPECT_TRUE(said("memory: 25 unchanged\nscanlimits: 1 unchanged, 1 written\n")) << bench.out.str();
    EXPECT_EQ(memories, before);
    EXPECT_EQ(saved("../korvex-2026-11-22-234254-before-restore/scanlimits.pms").substr(28, 14), "\nMR10107074000");
    memories.at(100).reset();  // as after a reset of the radio
    memories.at(101).reset();
    EXPECT_EQ(bench.run({"restore-all", backup}), ExitCode::Done) << bench.out.str();
    EXPECT_TRUE(said("scanlimits: 2 written\n")) << bench.out.str();
    EXPECT_EQ(memories, before);
    fakes::writeFile(file("scanlimits.pms"), saved("memory.mem"));
    EXPECT_EQ(bench.run({"restore-all", backup}), ExitCode::File);
    EXPECT_NE(bench.err.str().find("Channel 001 is no scan limit"), std::string::npos) << bench.err.str();
}

TEST_F(ScanLimits, ARadioWithoutScanLimitsIsAskedForTheFirstPairAlone) {
    ASSERT_EQ(bench.run({"backup", dir}), ExitCode::Done);
    std::filesystem::rename(backup, dir + "/with");
    bench.ports.faults().refusesItems = {"MR1", "MW1"};
    ASSERT_EQ(bench.run({"backup", dir}), ExitCode::Done) << bench.err.str();
    EXPECT_NE(bench.sent.find("MR100;\nMR101;\n"), std::string::npos);
    EXPECT_EQ(bench.sent.find("MR102;"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(file("scanlimits.pms")));
    EXPECT_NE(saved("summary.txt").find("scan limits (channels 100 to 117)"), std::string::npos);
    EXPECT_EQ(saved("summary.txt").find("not complete"), std::string::npos);
    EXPECT_EQ(bench.run({"restore-all", backup}), ExitCode::Done) << bench.out.str();
    EXPECT_EQ(bench.err.str().find("scanlimits"), std::string::npos) << bench.err.str();
    EXPECT_EQ(bench.run({"restore-all", dir + "/with"}), ExitCode::Different);
    EXPECT_TRUE(said("100: refused, wanted \"14000000")) << bench.out.str();
    EXPECT_TRUE(said("scanlimits: 2 refused\n")) << bench.out.str();
}

/// It passes over a channel that it does not have; a line that is dead is something else.
TEST_F(ScanLimits, SilenceIsNoMissingScanLimit) {
    for (const bool all : {false, true}) {
        SCOPED_TRACE(all);
        std::filesystem::remove_all(dir);
        bool begun = false;
        bench.ports.swallows = [&](std::string_view wire) {
            begun = begun || wire.starts_with("MR100");
            return begun && (all || wire.starts_with("MR1"));
        };
        EXPECT_EQ(bench.run({"backup", dir}), all ? ExitCode::Answers : ExitCode::Done) << bench.err.str();
        EXPECT_FALSE(std::filesystem::exists(file("scanlimits.pms")));
        EXPECT_EQ(std::filesystem::exists(file("summary.txt")), !all);
    }
}

}  // namespace
}  // namespace korvex::cli
