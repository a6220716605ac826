#include <cstdlib>
#include <future>
#include <gtest/gtest.h>

#include "Shell.h"
#include "fakes/ProgramBench.h"
#include "fakes/SimulatorProcess.h"
#include "fakes/WholeRestore.h"
#include "radio/StateText.h"

namespace korvex {
namespace {

/// korvexctl with a simulated radio of its own; what the radio has at the end.
std::string stateAfter(const std::string& stateFile, const std::string& command, std::string& output) {
    fakes::SimulatorProcess radio(BINARY_DIR "/ft2000sim", {"--state", stateFile});
    const auto outcome =
        run(BINARY_DIR "/korvexctl --settings /dev/null -s 38400,n,8,2 -r " + radio.device() + " " + command);
    EXPECT_EQ(outcome.code, 0) << outcome.output;
    EXPECT_EQ(radio.end(), 0);
    output = outcome.output;
    return fakes::fileContent(stateFile);
}

/// The radio is served at its own pace, so that this takes four minutes.
TEST(WholeRadioOnPty, GoesIntoAnotherRadioButForWhatIsListed) {
    if (std::getenv("KORVEX_SLOW_TESTS") == nullptr) GTEST_SKIP() << "takes four minutes; KORVEX_SLOW_TESTS=1 runs it";
    fakes::TemporaryFolder folder;
    std::string printed;
    const std::string saved = stateAfter(folder.file("saved"), "backup " + folder.file("backups"), printed);
    const std::string backup = printed.substr(printed.rfind('\n', printed.size() - 2) + 1, std::string::npos);
    const auto restore = [&](const std::string& name, const std::string& option) {
        return std::async(std::launch::async, [&, name, option] {
            fakes::writeFile(folder.file(name), stateText(fakes::radioUnlike(ownersRadio())));
            std::string ignored;
            return stateAfter(folder.file(name), "restore-all " + option + backup, ignored);
        });
    };
    auto usual = restore("usual", "");
    auto withCat = restore("with-cat", "--with-cat ");
    EXPECT_EQ(fakes::whatDiffers(saved, usual.get()), fakes::leftByWholeRestore(saved, false));
    EXPECT_EQ(fakes::whatDiffers(saved, withCat.get()), fakes::leftByWholeRestore(saved, true));
}

}  // namespace
}  // namespace korvex
