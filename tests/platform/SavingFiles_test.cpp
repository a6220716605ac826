#include <array>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "fakes/ProgramBench.h"
#include "platform/DialogStart.h"
#include "platform/OwnersFiles.h"
#include "platform/TextFile.h"
#include "platform/posix/Descriptor.h"

namespace korvex {
namespace {

namespace fs = std::filesystem;

TEST(DialogStart, FindsItsWayFromWhatIsLeftOfTheRememberedPath) {
    const fakes::TemporaryFolder root;
    const std::string folder = root.path();
    fakes::writeFile(folder + "/home.mnu", "EX0011;");

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
        const auto ofKind = [&](const std::string& filter) {
            return dialogStart({mode, {}, filter + "All Files (*.*)|*.*", folder + "/home.mnu", {}});
        };
        EXPECT_EQ(ofKind("Flat File (*.mnu)|*.mnu|"), (DialogStart{folder, "home.mnu"}));
        EXPECT_EQ(ofKind("Flat File (*.mem)|*.mem|"), (DialogStart{folder, ""}));
        EXPECT_EQ(ofKind(""), (DialogStart{folder, "home.mnu"}));
    }
    EXPECT_EQ(dialogStart({Mode::Save, {}, "Flat File (*.mnu)|*.mnu;*.txt", folder + "/NEW.MNU", {}}),
              (DialogStart{folder, "NEW.MNU"}));
}

TEST(DialogStart, AnExtensionIsAddedOnlyWhereThereIsNone) {
    EXPECT_EQ(withDefaultExtension("/a.b/home", "mnu"), "/a.b/home.mnu");
    EXPECT_EQ(withDefaultExtension("/a/home.txt", "mnu"), "/a/home.txt");
    EXPECT_EQ(withDefaultExtension("/a/.hidden", "mnu"), "/a/.hidden.mnu");
    EXPECT_EQ(withDefaultExtension("/a/home", ""), "/a/home");
}

TEST(OwnersFiles, AFailureIsToldAndAnotherNameAskedForUntilItIsSavedOrCancelled) {
    fakes::TemporaryFolder folder;
    fakes::FakeSettings settings;
    fakes::FakeFileDialog dialog;
    fakes::FakeMsgBox msgBox;
    OwnersFiles files({settings, dialog, msgBox, "/start"}, keys::keyerPath);
    std::vector<int> told;
    const auto save = [&] {
        return files.write({"", "mnu"}, "EX0011;\r\n",
                           [&](const RuntimeError& error) { told.push_back(error.number); });
    };
    const std::string gone = folder.file("gone/my.mnu");
    dialog.choose(gone);
    dialog.choose(folder.path());
    dialog.choose(folder.file("my.mnu"));
    const FileEnd saved = save();
    EXPECT_EQ(saved.file, folder.file("my.mnu"));
    EXPECT_FALSE(saved.failure);
    EXPECT_EQ(fakes::fileContent(folder.file("my.mnu")), "EX0011;\r\n");
    EXPECT_EQ(told, (std::vector{errors::PathNotFound, errors::PathFileAccess}));
    EXPECT_EQ(dialog.shown.at(0).start, "/start/files");
    EXPECT_EQ(dialog.shown.at(1).start, gone);

    dialog.choose(gone);
    dialog.cancel();
    EXPECT_TRUE(save().failure);
    dialog.cancel();
    const FileEnd cancelled = save();
    EXPECT_FALSE(cancelled.file || cancelled.failure);
}

struct TextFile : testing::Test {
    fakes::TemporaryFolder folder;

    std::set<std::string> names() const {
        std::set<std::string> all;
        for (const auto& entry : fs::directory_iterator(folder.path())) all.insert(entry.path().filename().string());
        return all;
    }
};

TEST_F(TextFile, LeftoversOfKilledSavesGoWithTheNextSaveButNothingElseDoes) {
    const std::string file = folder.file("shack.mnu");
    fakes::writeFile(folder.file("shack.mnu.unfinished-Ab12Cd"), "EX00");
    fakes::writeFile(folder.file("shack.mnu.unfinished-Ef34Gh"), "");
    const std::set<std::string> others = {"shack.mnu.unfinished-1", "shack.mnu.unfinished-mycopy.txt",
                                          "other.mnu.unfinished-Ab12Cd", "shack.mnu.unfinished-Folder"};
    for (const auto& name : others) fakes::writeFile(folder.file(name), "");
    fs::remove(folder.file("shack.mnu.unfinished-Folder"));
    fs::create_directory(folder.file("shack.mnu.unfinished-Folder"));
    const std::string written = folder.file("shack.mnu.unfinished-InWork");
    const Descriptor lock(::open(written.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600));
    ASSERT_EQ(::flock(lock.get(), LOCK_EX), 0);
    EXPECT_FALSE(textfile::write(file, "EX0011;\r\n"));
    std::set<std::string> left = others;
    left.insert({"shack.mnu", "shack.mnu.unfinished-InWork"});
    EXPECT_EQ(names(), left);
}

TEST_F(TextFile, TellsWhatWouldKeepItFromWritingWithoutTouchingAnything) {
    fakes::writeFile(folder.file("old"), "old");
    fs::create_symlink("nowhere/new", folder.file("lost"));
    for (const char* good : {"old", "new"}) EXPECT_FALSE(textfile::whyNotWritable(folder.file(good))) << good;
    for (const char* bad : {"no/folder", "old/file", "lost", ""}) {
        const auto why = textfile::whyNotWritable(folder.file(bad));
        ASSERT_TRUE(why) << bad;
        EXPECT_EQ(*why, *textfile::write(folder.file(bad), "new"));
    }
    EXPECT_FALSE(textfile::whyNotWritable("/dev/null"));
    EXPECT_EQ(names(), (std::set<std::string>{"lost", "old"}));
}

TEST_F(TextFile, GoesIntoAPipeThatStandardOutputLeadsTo) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const Descriptor out(ends[0]);
    const Descriptor in(ends[1]);
    const std::string name = "/proc/self/fd/" + std::to_string(in.get());
    EXPECT_FALSE(textfile::whyNotWritable(name));
    EXPECT_FALSE(textfile::write(name, "EX0011;"));
    std::array<char, 16> got{};
    EXPECT_EQ(::read(out.get(), got.data(), got.size()), 7);
}

TEST_F(TextFile, GoesIntoWhatIsOpenAlreadyAndReplacesNothing) {
    const std::string file = folder.file("log");
    fakes::writeFile(file, "before\n");
    const Descriptor open(::open(file.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC));
    const Descriptor reading(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    const std::string number = std::to_string(open.get());
    fs::create_symlink("/dev/fd/" + number, folder.file("link"));
    for (const std::string& name : {"/dev/fd/" + number, "/proc/self/fd/" + number, folder.file("link")}) {
        EXPECT_FALSE(textfile::whyNotWritable(name)) << name;
        EXPECT_FALSE(textfile::write(name, "x")) << name;
    }
    EXPECT_EQ(open.writeAll(" after"), 0);
    EXPECT_EQ(fakes::fileContent(file), "before\nxxx after");
    EXPECT_TRUE(fs::is_symlink(folder.file("link")));
    for (const std::string& bad : {"/dev/fd/" + std::to_string(reading.get()), std::string("/dev/fd/987")}) {
        EXPECT_TRUE(textfile::whyNotWritable(bad)) << bad;
        EXPECT_TRUE(textfile::write(bad, "x")) << bad;
    }
}

TEST_F(TextFile, KeepsPermissionsAndOwner) {
    const std::string file = folder.file("shack.mnu");
    fakes::writeFile(file, "old");
    fs::permissions(file, fs::perms{0640});
    const bool isRoot = ::geteuid() == 0;
    if (isRoot && ::chown(file.c_str(), 65534, 65534) != 0) GTEST_SKIP() << "no other user in this container";
    EXPECT_FALSE(textfile::write(file, "new"));
    struct stat status {};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
    EXPECT_EQ(status.st_uid, isRoot ? 65534U : ::geteuid());
    const std::string fresh = folder.file("fresh.mnu");
    const mode_t mask = ::umask(027);
    EXPECT_FALSE(textfile::write(fresh, "new"));
    ::umask(mask);
    ASSERT_EQ(::stat(fresh.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_F(TextFile, TakesEveryNameThatTheSystemTakes) {
    const std::string longest = std::string(119, 'x') + "ä" + std::string(130, 'y') + ".mnu";
    EXPECT_FALSE(textfile::write(folder.file(longest), "EX0011;\r\n"));
    EXPECT_EQ(*textfile::read(folder.file(longest)), "EX0011;\r\n");
    EXPECT_EQ(textfile::write(folder.file("x" + longest), "")->number, errors::DeviceIo);
    fs::create_symlink("loop", folder.file("loop"));
    EXPECT_EQ(textfile::write(folder.file("loop"), "")->number, errors::DeviceIo);
    EXPECT_TRUE(fs::is_symlink(folder.file("loop")));
    EXPECT_EQ(names(), (std::set<std::string>{longest, "loop"}));
}

}  // namespace
}  // namespace korvex
