#include <gtest/gtest.h>
#include <string>

#include "Shell.h"
#include "fakes/ProgramBench.h"

namespace korvex {
namespace {

/// CHIRP itself reads what we write and writes what we read, where it is installed.
TEST(Chirp, ReadsAndWritesOurTables) {
    if (!hasKorvexctl()) GTEST_SKIP();
    const fakes::TemporaryFolder folder;
    const std::string list = folder.file("list.mef");
    fakes::writeFile(list,
                     "MW00114250000+000000200080;DX window\r\n"
                     "MW00729620000+000000401082;Berg Nord\r\n"
                     "MW00807035500+000000300080;a remark that is longer than the fifty characters of a keyer text\r\n"
                     "MW09907035500+000000300080;\r\n\r\n");
    const std::string table = folder.file("list.csv");
    const std::string korvexctl = BINARY_DIR "/korvexctl convert ";
    EXPECT_EQ(run(korvexctl + "--chirp " + list + " " + table).code, 1);  // the offset of the shift is told
    const auto chirp =
        run("python3 " SOURCE_DIR "/tests/e2e/chirp_round_trip.py " + table + " " + folder.file("chirp.csv"));
    if (chirp.code == 77) GTEST_SKIP() << "CHIRP is not installed";
    EXPECT_EQ(chirp.output,
              "1 14250000 USB none none 88.5 DX window\n"
              "7 29620000 FM - TSQL 88.5 Berg Nord\n"
              "8 7035500 CW none none 88.5 a remark that is longer than the fifty characters of a keyer text\n"
              "99 7035500 CW none none 88.5 \n");
    EXPECT_EQ(run(korvexctl + folder.file("chirp.csv") + " " + folder.file("again.mef")).output, "");
    EXPECT_EQ(fakes::fileContent(folder.file("again.mef")),
              "MW00114250000+000000200080;DX window\r\n"
              "MW00729620000+000000401082;Berg Nord\r\n"
              "MW00807035500+000000300080;a remark that is longer than the fifty characters of a keyer text\r\n"
              "MW09907035500+000000300080;\r\n\r\n");
}

}  // namespace
}  // namespace korvex
