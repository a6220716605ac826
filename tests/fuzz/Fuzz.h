#pragma once

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// A fuzz target: what is done with one hostile input, and what must hold whatever the input is.
///
///     FUZZ_TARGET(menu_file) { ... `input` ... EXPECT_EQ(...); }
///
/// With clang every target is a program of its own on libFuzzer, which stops at the first expectation that fails. In
/// the logic's tests every target gets the inputs that are kept for it in tests/fuzz/corpus.
#define FUZZ_TARGET(name)                                                                                 \
    static void name##_target(std::string_view input);                                                    \
    static const bool name##_registered = ::korvex::fuzz::targets().emplace(#name, name##_target).second; \
    static void name##_target(std::string_view input)

namespace korvex::fuzz {

using Target = void (*)(std::string_view input);

/// By name; filled before main.
inline std::map<std::string, Target>& targets() {
    static std::map<std::string, Target> all;
    return all;
}

/// What stands between one `separator` and the next.
inline std::vector<std::string> cutAt(char separator, std::string_view input) {
    std::vector<std::string> parts(1);
    for (const char c : input) {
        if (c == separator) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

}  // namespace korvex::fuzz
