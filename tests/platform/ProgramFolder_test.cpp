#include "platform/ProgramFolder.h"

#include <gtest/gtest.h>

#include "app/RememberedPaths.h"
#include "fakes/ProgramBench.h"

namespace korvex {
namespace {

namespace fs = std::filesystem;

class ProgramFolder : public ::testing::Test {
protected:
    void write(const fs::path& file, const std::string& content) const {
        fs::create_directories(file.parent_path());
        fakes::writeFile(file, content);
    }
    static std::string content(const fs::path& file) { return fakes::fileContent(file); }
    std::string helpIn(const fs::path& folder) const { return content(folder / "helpfile/help.html"); }
    std::string make(const std::string& named = {}) const {
        const auto made = makeProgramFolder({named, places.program, places.user});
        return made ? made->path : "failed: " + std::to_string(made.error().number);
    }

    fakes::TemporaryFolder temporary;
    const fs::path root = temporary.path();
    const fs::path home = root / "home/Korvex";
    const ProgramPlaces places{{}, (root / "bin").string(), home.string()};
};

TEST_F(ProgramFolder, OfAnUnpackedProgramIsItsOwn) {
    write(root / "bin/helpfile/help.html", "help");
    EXPECT_EQ(make(), (root / "bin").string());
    EXPECT_TRUE(fs::is_directory(root / "bin/files"));
    EXPECT_EQ(helpIn(root / "bin"), "help");
}

TEST_F(ProgramFolder, ItsDatabaseIsFoundWithoutMakingAnything) {
    fs::create_directories(root / "bin");
    EXPECT_EQ(findDescriptionDatabase(places), "");
    EXPECT_TRUE(fs::is_empty(root / "bin"));
    write(root / "share/korvex" / descriptionDatabaseName, "shipped");
    EXPECT_EQ(content(findDescriptionDatabase(places)), "shipped");
    EXPECT_FALSE(fs::exists(root / "home"));
    make();
    EXPECT_EQ(findDescriptionDatabase(places), (home / descriptionDatabaseName).string());
}

TEST_F(ProgramFolder, OfAnInstalledProgramIsTheUsersAndFollowsUpdates) {
    fs::create_directories(root / "bin");
    const fs::path shipped = root / "share/korvex/helpfile/help.html";
    write(shipped, "old");
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

TEST_F(ProgramFolder, OfAProgramInABuildTreeIsTheUsersAndWhatLayThereIsMovedWithAWord) {
    const auto news = [&] { return makeProgramFolder(places)->news; };
    write(root / "CMakeCache.txt", "");
    write(root / "bin/data/FT2000_Menu.mdb", "shipped");
    write(root / "bin/FT2000_Menu.mdb", "shipped");
    EXPECT_EQ(make(), home.string());
    EXPECT_EQ(news(), "");
    EXPECT_FALSE(fs::exists(root / "bin/files"));

    write(root / "bin/FT2000_Menu.mdb", "the owner's");
    write(root / "bin/FT2000_Menu.mdb-journal", "half");
    write(root / "bin/files/mine.mnu", "EX0011;");
    write(root / "bin/files/korvex-2026/summary.txt", "all");
    write(home / "files/mine.mnu", "another");
    write(home / "from-build/FT2000_Menu.mdb", "earlier");
    fs::remove(home / "FT2000_Menu.mdb");
    EXPECT_EQ(findDescriptionDatabase(places), (root / "bin/FT2000_Menu.mdb").string());
    const std::string said = news();
    EXPECT_NE(said.find((home / "from-build-2/files/mine.mnu").string()), std::string::npos) << said;
    EXPECT_EQ(content(home / "FT2000_Menu.mdb"), "the owner's");
    EXPECT_EQ(content(home / "FT2000_Menu.mdb-journal"), "half");
    EXPECT_EQ(content(home / "files/mine.mnu"), "another");
    EXPECT_EQ(content(home / "from-build-2/files/mine.mnu"), "EX0011;");
    EXPECT_EQ(content(home / "files/korvex-2026/summary.txt"), "all");
    EXPECT_TRUE(fs::is_empty(root / "bin/files"));
    EXPECT_EQ(news(), "");

    write(root / "bin/FT2000_Menu.mdb", "newer");
    write(root / "bin/FT2000_Menu.mdb.bak", "newer");
    news();  // the two stay together
    EXPECT_EQ(content(home / "FT2000_Menu.mdb"), "the owner's");
    EXPECT_EQ(content(home / "from-build-3/FT2000_Menu.mdb") + content(home / "from-build-3/FT2000_Menu.mdb.bak"),
              "newernewer");

    write(root / "bin/files/mine.mnu", "kept");
    make((root / "named").string());
    EXPECT_EQ(content(root / "bin/files/mine.mnu"), "kept");  // a named folder moves nothing
}

TEST(RememberedPaths, LeadToWhereTheFilesWereMoved) {
    fakes::FakeSettings settings;
    settings.values = {{"Settings/SavePath", "/k/build/files/my.mnu"},
                       {"Settings/SaveKeyer", "/k/build/files"},
                       {"Settings/SavePath3", "/k/build/filesystem/x.mef"}};
    rememberNewFolder(settings, "", "/home/Korvex");
    rememberNewFolder(settings, "/k/build", "/home/Korvex");
    EXPECT_EQ(settings.values,
              (std::map<std::string, std::string>{{"Settings/SavePath", "/home/Korvex/files/my.mnu"},
                                                  {"Settings/SaveKeyer", "/home/Korvex/files"},
                                                  {"Settings/SavePath3", "/k/build/filesystem/x.mef"}}));
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
