#include <gtest/gtest.h>

#include "cli/CliBench.h"
#include "fakes/WholeRestore.h"
#include "radio/StateText.h"

namespace korvex::cli {
namespace {

struct RestoredRadio : testing::Test {
    CliBench bench;
    std::string sent;  ///< by the restore

    /// Of a radio that is restored from the backup of another one, which has nothing in common with it.
    std::pair<std::string, std::string> savedAndRestored(const std::vector<std::string>& options) {
        EXPECT_EQ(bench.run({"backup", bench.folder.path()}), ExitCode::Done) << bench.err.str();
        const RadioState saved = bench.ports.radio().state;
        std::vector<std::string> command = {"restore-all", bench.out.str().substr(0, bench.out.str().find('\n'))};
        command.insert(command.end(), options.begin(), options.end());
        bench.ports.radio().state = fakes::radioUnlike(saved);
        EXPECT_EQ(bench.run(command), ExitCode::Different) << bench.err.str();  // what no command empties
        EXPECT_EQ(bench.ports.radio().timesKeyed, 0);
        sent = bench.sent;
        return {stateText(saved), stateText(bench.ports.radio().state)};
    }
};

TEST_F(RestoredRadio, IsTheSavedOneButForWhatIsListed) {
    const auto [saved, restored] = savedAndRestored({});
    EXPECT_EQ(fakes::whatDiffers(saved, restored), fakes::leftByWholeRestore(saved, false));
}

TEST_F(RestoredRadio, HasTheSavedCatSettingsTooWhenThatIsAskedFor) {
    const auto [saved, restored] = savedAndRestored({"--with-cat"});
    EXPECT_EQ(fakes::whatDiffers(saved, restored), fakes::leftByWholeRestore(saved, true));
    EXPECT_TRUE(sent.ends_with("EX0291;EX029;\nEX0300;EX030;\nEX0283;\n")) << sent.substr(sent.size() - 60);
}

TEST_F(RestoredRadio, ThePageForOwnersTellsWhatIsListed) {
    const std::string page = fakes::fileContent(std::string(SOURCE_DIR) + "/docs/RELIABILITY.md");
    for (const auto& left : fakes::leftByWholeRestore()) {
        std::string settings;
        for (const auto& setting : left.settings) settings += (settings.empty() ? "`" : ", `") + setting + "`";
        const std::string row = "| " + left.what + " | " + settings + " |\n";
        EXPECT_NE(page.find(row), std::string::npos) << "docs/RELIABILITY.md lacks this row:\n" << row;
    }
}

}  // namespace
}  // namespace korvex::cli
