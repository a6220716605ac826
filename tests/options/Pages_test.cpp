#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

#include "cli/CommandLine.h"
#include "desktop/StartOptions.h"
#include "options/ProgramForm.h"

namespace korvex {
namespace {

using Page = std::function<std::string(const std::vector<std::string>& arguments)>;

std::string korvexPage(const std::vector<std::string>& arguments) {
    return parseStartOptions(arguments)->print;
}

std::string korvexctlPage(const std::vector<std::string>& arguments) {
    return cli::parseArguments(arguments)->text;
}

/// "--device" and so on, as the help page of the running parser lists them.
std::set<std::string> optionsIn(const std::string& help) {
    std::set<std::string> names;
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("  -")) continue;
        std::istringstream words(line.substr(0, line.find("   ")));
        std::string first;
        words >> first;
        const auto comma = first.find(',');
        names.insert(first.substr(0, comma));
        if (comma != std::string::npos) names.insert(first.substr(comma + 1));
    }
    return names;
}

std::string withoutHyphenMarks(std::string text) {
    for (auto at = text.find("\\-"); at != std::string::npos; at = text.find("\\-", at)) text.erase(at, 1);
    return text;
}

void expectEveryOption(const Page& page, std::size_t atLeast) {
    const auto options = optionsIn(page({"--help"}));
    EXPECT_GE(options.size(), atLeast);
    const std::string manual = withoutHyphenMarks(page({"--manual"}));
    for (const auto& option : options) {
        EXPECT_NE(manual.find("\\fB" + option + "\\fR"), std::string::npos) << option;
        for (const char* shell : {"bash", "zsh"}) {
            EXPECT_NE(page({"--completion", shell}).find(option), std::string::npos) << shell << " " << option;
        }
        const bool isLong = option.starts_with("--");
        const std::string inFish = (isLong ? " -l " : " -s ") + option.substr(isLong ? 2 : 1) + " ";
        EXPECT_NE(page({"--completion=fish"}).find(inFish), std::string::npos) << option;
    }
}

TEST(Pages, KnowEveryOptionCommandAndExitCode) {
    expectEveryOption(korvexPage, 8);
    expectEveryOption(korvexctlPage, 20);
    const std::string help = korvexctlPage({"--help"});
    const std::string manual = withoutHyphenMarks(korvexctlPage({"--manual"}));
    for (const char* command : {"save", "restore", "backup", "restore-all", "compare", "send", "ports",
                                "description export", "description import"}) {
        EXPECT_NE(help.find("\n  " + std::string(command)), std::string::npos) << command;
        EXPECT_NE(manual.find("\n\\fB" + std::string(command) + "\\fR"), std::string::npos) << command;
    }
    for (const char* code : {"0", "1", "2", "3", "4", "5", "128 + N"}) {
        EXPECT_NE(help.find("\n  " + std::string(code) + " "), std::string::npos) << code << help;
        EXPECT_NE(manual.find("\n\\fB" + std::string(code) + "\\fR"), std::string::npos) << code;
    }
    EXPECT_FALSE(cli::parseArguments({"--completion", "csh"}));
}

TEST(Pages, AManualPageShowsTextAsItIs) {
    ProgramForm form;
    form.name = "try";
    form.about = "try: tries\n\n.so is a word, 'so\\n too";
    form.sections = {{"EXAMPLES", "This:\n\n    try --all \\\n    .x\n\nand that"}};
    const std::string page = manualPage(form);
    EXPECT_NE(page.find("\n\\&.so is a word, 'so\\en too\n"), std::string::npos) << page;
    EXPECT_NE(page.find(".nf\n    try \\-\\-all \\e\n    .x\n.fi\n"), std::string::npos) << page;
}

}  // namespace
}  // namespace korvex
