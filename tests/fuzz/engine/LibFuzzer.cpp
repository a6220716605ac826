// The way from libFuzzer to the target that this program, "fuzz_NAME", is called after.

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>

#include "fuzz/Fuzz.h"

static korvex::fuzz::Target target;

extern "C" int LLVMFuzzerInitialize(int*, char*** arguments) {
    const std::string program = **arguments;
    const std::string prefix = "fuzz_";
    target = korvex::fuzz::targets().at(program.substr(program.rfind(prefix) + prefix.size()));
    // An expectation that fails ends the program at once, by a signal that libFuzzer knows: then it keeps the input.
    GTEST_FLAG_SET(break_on_failure, true);
    std::signal(SIGTRAP, [](int) { std::abort(); });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(data, data + size);  // of exactly this size, so that the sanitizers see a step beyond it
    target(input);
    return 0;
}
