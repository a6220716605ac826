#include "platform/qt/QtChildProgram.h"

#include <chrono>
#include <gtest/gtest.h>

namespace korvex {
namespace {

TEST(QtChildProgram, GetsItsArgumentsAsTheyAreAndGivesBothStreamsAndItsEnd) {
    const auto words = runChildProgram({"printf", {"[%s]", "", "a b", "$HOME; `id`", "-e"}});
    ASSERT_TRUE(words) << words.error().text;
    EXPECT_EQ(words->output, "[][a b][$HOME; `id`][-e]");
    const auto both =
        runChildProgram({"sh", {"-c", "cat; head -c 300000 /dev/zero >&2; head -c 300000 /dev/zero; exit 3"}});
    ASSERT_TRUE(both) << both.error().text;
    EXPECT_EQ(both->output.size(), 300000U);
    EXPECT_EQ(both->errors.size(), 300000U);
    EXPECT_EQ(both->code, 3);
    EXPECT_EQ(runChildProgram({"sh", {"-c", "kill -9 $$"}})->code, 137);
    EXPECT_EQ(runChildProgram({"korvex-no-such-program", {}}).error(),
              (RuntimeError{errors::FileNotFound, "korvex-no-such-program is not installed"}));
}

TEST(QtChildProgram, IsEndedWhenItTakesTooLongOrSaysTooMuch) {
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(runChildProgram({"sleep", {"60"}, 100}).error().text, "sleep took too long and was ended");
    EXPECT_EQ(runChildProgram({"sh", {"-c", "exec >&- 2>&-; sleep 60"}, 100}).error().text,
              "sh took too long and was ended");
    EXPECT_EQ(runChildProgram({"yes", {}, 60'000, 100'000}).error().text, "yes printed too much");
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30));
}

}  // namespace
}  // namespace korvex
