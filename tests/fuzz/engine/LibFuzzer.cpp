// The way from libFuzzer to the one target that this program has.

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>

#include "fuzz/Fuzz.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // An expectation that fails ends the program at once, by a signal that libFuzzer knows: then it keeps the input.
    GTEST_FLAG_SET(break_on_failure, true);
    std::signal(SIGTRAP, [](int) { std::abort(); });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(data, data + size);  // of exactly this size, so that the sanitizers see a step beyond it
    korvex::fuzz::targets().begin()->second(input);
    return 0;
}
