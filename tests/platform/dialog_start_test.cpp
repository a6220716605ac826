#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/DialogStart.h"

namespace korvex {
namespace {

namespace fs = std::filesystem;

TEST(DialogStart, FindsItsWayFromWhatIsLeftOfTheRememberedPath) {
    const fs::path root = fs::temp_directory_path() / ("korvex-start-" + std::to_string(::getpid()));
    fs::create_directories(root / "files");
    std::ofstream(root / "files/home.mnu") << "EX0011;";
    const std::string folder = (root / "files").string();

    using Mode = FileDialogRequest::Mode;
    const auto start = [](Mode mode, const std::string& remembered) {
        return dialogStart({mode, {}, {}, remembered, {}});
    };
    for (const auto mode : {Mode::Open, Mode::Save}) {
        EXPECT_EQ(start(mode, folder), (DialogStart{folder, ""}));
        EXPECT_EQ(start(mode, folder + "/home.mnu"), (DialogStart{folder, "home.mnu"}));
        EXPECT_EQ(start(mode, folder + "/gone/deeper"), (DialogStart{folder, ""}));
        EXPECT_EQ(start(mode, ""), (DialogStart{"", ""}));
        EXPECT_EQ(start(mode, "never/was"), (DialogStart{"", ""}));
    }
    EXPECT_EQ(start(Mode::Save, folder + "/gone.mnu"), (DialogStart{folder, "gone.mnu"}));
    EXPECT_EQ(start(Mode::Open, folder + "/gone.mnu"), (DialogStart{folder, ""}));
    for (const auto mode : {Mode::Open, Mode::Save}) {
        const auto ofKind = [&](const std::string& remembered, const std::string& filter) {
            return dialogStart({mode, {}, filter, remembered, {}});
        };
        const std::string menus = "Flat File (*.mnu)|*.mnu|All Files (*.*)|*.*";
        const std::string memories = "Flat File (*.mem)|*.mem|All Files (*.*)|*.*";
        EXPECT_EQ(ofKind(folder + "/home.mnu", menus), (DialogStart{folder, "home.mnu"}));
        EXPECT_EQ(ofKind(folder + "/home.mnu", memories), (DialogStart{folder, ""}));
        EXPECT_EQ(ofKind(folder + "/home.mnu", "All Files (*.*)|*.*"), (DialogStart{folder, "home.mnu"}));
    }
    EXPECT_EQ(dialogStart({Mode::Save, {}, "Flat File (*.mnu)|*.mnu;*.txt", folder + "/NEW.MNU", {}}),
              (DialogStart{folder, "NEW.MNU"}));
    fs::remove_all(root);
}

TEST(DialogStart, AnExtensionIsAddedOnlyWhereThereIsNone) {
    EXPECT_EQ(withDefaultExtension("/a.b/home", "mnu"), "/a.b/home.mnu");
    EXPECT_EQ(withDefaultExtension("/a/home.txt", "mnu"), "/a/home.txt");
    EXPECT_EQ(withDefaultExtension("/a/.hidden", "mnu"), "/a/.hidden.mnu");
    EXPECT_EQ(withDefaultExtension("/a/home", ""), "/a/home");
}

}  // namespace
}  // namespace korvex
