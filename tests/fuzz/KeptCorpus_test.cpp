#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <vector>

#include "fakes/ProgramBench.h"
#include "fuzz/Fuzz.h"

namespace korvex::fuzz {
namespace {

namespace fs = std::filesystem;

const fs::path corpus = fs::path(SOURCE_DIR) / "tests/fuzz/corpus";

class KeptCorpus : public testing::TestWithParam<std::string> {};

/// What once found a fault, and what leads deep into the code, is tried in every build.
TEST_P(KeptCorpus, HoldsForEveryInput) {
    int inputs = 0;
    for (const auto& entry : fs::directory_iterator(corpus / GetParam())) {
        SCOPED_TRACE(entry.path());
        targets().at(GetParam())(fakes::fileContent(entry.path()));
        ++inputs;
    }
    EXPECT_GT(inputs, 0);
}

std::vector<std::string> names() {
    std::vector<std::string> all;
    for (const auto& [name, target] : targets()) all.push_back(name);
    return all;
}

INSTANTIATE_TEST_SUITE_P(Fuzz, KeptCorpus, testing::ValuesIn(names()), [](const auto& test) { return test.param; });

}  // namespace
}  // namespace korvex::fuzz
