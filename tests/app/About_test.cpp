#include "app/About.h"

#include <chrono>
#include <fstream>
#include <gtest/gtest.h>

#include "app/HelpPage.h"
#include "base/Version.h"
#include "fakes/FakeDialogs.h"

namespace korvex {
namespace {

namespace fs = std::filesystem;

struct Folder {
    Folder() { fs::create_directories(path); }
    ~Folder() { fs::remove_all(path); }
    fs::path path = fs::temp_directory_path() /
                    ("korvex_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
};

TEST(About, TellsReleaseAndTheDayOfTheProgramFile) {
    EXPECT_EQ(about::versionLabel(), " Release  " + std::string(versionText));
    const Folder folder;
    const fs::path program = folder.path / "korvex";
    std::ofstream(program) << "x";
    const std::chrono::sys_seconds noon{std::chrono::seconds(1709208000)};  // 2024-02-29 12:00 UTC
    fs::last_write_time(program, std::chrono::file_clock::from_sys(noon));
    EXPECT_EQ(about::builtLabel(program), "Built: 2024-02-29");
    EXPECT_EQ(about::builtLabel(folder.path / "missing"), "Built: ");
}

TEST(About, SaysWhenThereIsNoSystemInformation) {
    fakes::FakeShell shell;
    fakes::FakeMsgBox boxes;
    about::startSystemInfo(shell, boxes);
    EXPECT_TRUE(boxes.shown.empty());
    shell.fails = RuntimeError{errors::FileNotFound, "none"};
    boxes.foresee("Systeminformationsprogramm zur Zeit nicht verfügbar.");
    about::startSystemInfo(shell, boxes);
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0].icon, MsgIcon::None);
}

TEST(HelpPage, IsFoundBesideTheProgramAndWhereItIsInstalled) {
    const Folder folder;
    const fs::path bin = folder.path / "bin";
    EXPECT_EQ(helpPage(bin), bin / "helpfile" / "help.html");
    const auto put = [](const fs::path& page) {
        fs::create_directories(page.parent_path());
        std::ofstream(page) << "help";
        return page;
    };
    const fs::path installed = put(folder.path / "share/korvex/helpfile/help.html");
    EXPECT_EQ(helpPage(bin), installed);
    const fs::path beside = put(bin / "helpfile/help.html");
    EXPECT_EQ(helpPage(bin), beside);
}

}  // namespace
}  // namespace korvex
