#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

#include "platform/ProgramFolder.h"

namespace korvex {
namespace {

namespace fs = std::filesystem;

class ProgramFolder : public ::testing::Test {
protected:
    ~ProgramFolder() override { fs::remove_all(root); }

    void write(const fs::path& file, const std::string& content) const {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << content;
    }
    static std::string content(const fs::path& file) {
        std::ostringstream text;
        text << std::ifstream(file).rdbuf();
        return text.str();
    }
    std::string helpIn(const fs::path& folder) const { return content(folder / "helpfile/help.html"); }
    std::string make(const std::string& named = {}) const {
        const auto folder = makeProgramFolder({named, (root / "bin").string(), (root / "home/Korvex").string()});
        return folder ? *folder : "failed: " + std::to_string(folder.error().number);
    }

    fs::path root = fs::temp_directory_path() / ("korvex-folder-" + std::to_string(::getpid()));
};

TEST_F(ProgramFolder, OfAnUnpackedProgramIsItsOwn) {
    write(root / "bin/helpfile/help.html", "help");
    EXPECT_EQ(make(), (root / "bin").string());
    EXPECT_TRUE(fs::is_directory(root / "bin/files"));
    EXPECT_EQ(helpIn(root / "bin"), "help");
}

TEST_F(ProgramFolder, ItsDatabaseIsFoundWithoutMakingAnything) {
    const ProgramPlaces places{{}, (root / "bin").string(), (root / "home/Korvex").string()};
    fs::create_directories(root / "bin");
    EXPECT_EQ(findDescriptionDatabase(places), "");
    EXPECT_TRUE(fs::is_empty(root / "bin"));
    write(root / "share/korvex" / descriptionDatabaseName, "shipped");
    EXPECT_EQ(content(findDescriptionDatabase(places)), "shipped");
    EXPECT_FALSE(fs::exists(root / "home"));
    make();
    EXPECT_EQ(findDescriptionDatabase(places), (root / "home/Korvex" / descriptionDatabaseName).string());
}

TEST_F(ProgramFolder, OfAnInstalledProgramIsTheUsersAndFollowsUpdates) {
    fs::create_directories(root / "bin");
    const fs::path shipped = root / "share/korvex/helpfile/help.html";
    write(shipped, "old");
    const fs::path home = root / "home/Korvex";
    EXPECT_EQ(make(), home.string());
    EXPECT_TRUE(fs::is_directory(home / "files"));
    EXPECT_EQ(helpIn(home), "old");
    write(home / "files/mine.mnu", "EX0011;");
    write(shipped, "new");
    fs::last_write_time(shipped, fs::file_time_type::clock::now() + std::chrono::seconds(5));
    EXPECT_EQ(make(), home.string());
    EXPECT_EQ(helpIn(home), "new");
    EXPECT_TRUE(fs::exists(home / "files/mine.mnu"));
}

TEST_F(ProgramFolder, GetsTheShippedDatabaseWhereThereIsNone) {
    write(root / "bin/data/FT2000_Menu.mdb", "shipped");
    fs::permissions(root / "bin/data/FT2000_Menu.mdb", fs::perms::owner_read);
    make();
    const fs::path own = root / "bin/FT2000_Menu.mdb";
    EXPECT_EQ(content(own), "shipped");
    write(own, "the owner's");
    make();
    EXPECT_EQ(content(own), "the owner's");
    fs::remove(own);
    fs::create_symlink(root / "stick/mine.mdb", own);  // the stick is not plugged in
    make();
    EXPECT_TRUE(fs::is_symlink(own));
    EXPECT_FALSE(fs::exists(root / "bin/FT2000_Menu.mdb.new"));
}

TEST_F(ProgramFolder, MayBeNamedAndIsRefusedWhereNothingCanBeWritten) {
    fs::create_directories(root / "bin");
    EXPECT_EQ(make((root / "a/b/").string()), (root / "a/b").string());
    write(root / "a/file", "");
    EXPECT_EQ(make((root / "a/file").string()), "failed: 75");
    EXPECT_EQ(make("/proc/korvex"), "failed: 75");
}

}  // namespace
}  // namespace korvex
