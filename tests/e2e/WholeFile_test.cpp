#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <sys/ptrace.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "Shell.h"
#include "fakes/ProgramBench.h"

namespace korvex {
namespace {

namespace fs = std::filesystem;

/// A program that is killed, as by a power switch, at a moment that the test chooses.
class KilledProgram {
public:
    explicit KilledProgram(std::vector<std::string> arguments) : m_arguments(std::move(arguments)) {}
    KilledProgram(const KilledProgram&) = delete;
    KilledProgram& operator=(const KilledProgram&) = delete;
    ~KilledProgram() { kill(); }

    /// Whether this machine lets one program watch another one's system calls.
    static bool canBeWatched() { return KilledProgram({"/bin/true"}).killAtSystemCall("", 0); }

    /// Lets it run to a moment between two system calls and kills it there: 0 is before the first one that names a file
    /// in `folder`, 1 after it, 2 before the next one. False when it came to its end before that.
    bool killAtSystemCall(const std::string& folder, int moment) {
        start();
        int status = 0;
        if (::waitpid(m_pid, &status, 0) != m_pid || !WIFSTOPPED(status)) return false;
        ::ptrace(PTRACE_SETOPTIONS, m_pid, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
        bool counts = false;
        while (toNextSystemCall()) {
            counts = counts || names(folder);
            if (counts && moment-- == 0) {
                kill();
                return true;
            }
        }
        return false;
    }

private:
    void start() {
        std::vector<char*> pointers;
        for (auto& text : m_arguments) pointers.push_back(text.data());
        pointers.push_back(nullptr);
        m_pid = ::fork();
        if (m_pid != 0) return;
        const int nowhere = ::open("/dev/null", O_RDWR);
        ::dup2(nowhere, STDOUT_FILENO);
        ::dup2(nowhere, STDERR_FILENO);
        // The leak checker is such a watcher itself and cannot work beside one.
        ::setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(126);
        ::execv(pointers.front(), pointers.data());
        ::_exit(127);
    }

    void kill() {
        if (m_pid <= 0) return;
        ::kill(m_pid, SIGKILL);
        ::waitpid(m_pid, nullptr, 0);
        m_pid = -1;
    }

    bool toNextSystemCall() {
        constexpr int atSystemCall = SIGTRAP | 0x80;
        for (int signal = 0;;) {
            int status = 0;
            if (::ptrace(PTRACE_SYSCALL, m_pid, nullptr, signal) != 0) return false;
            if (::waitpid(m_pid, &status, 0) != m_pid) return false;
            if (!WIFSTOPPED(status)) {
                m_pid = -1;
                return false;
            }
            if (WSTOPSIG(status) == atSystemCall) return true;
            signal = WSTOPSIG(status);
        }
    }

    bool names(const std::string& folder) const {
        __ptrace_syscall_info call{};
        if (::ptrace(PTRACE_GET_SYSCALL_INFO, m_pid, sizeof call, &call) <= 0) return false;
        if (call.op != PTRACE_SYSCALL_INFO_ENTRY) return false;
        // A path is the first or the second argument, whatever the call is.
        return textAt(call.entry.args[0]).starts_with(folder) || textAt(call.entry.args[1]).starts_with(folder);
    }

    /// The text that an argument of a system call may point to; empty when it points nowhere.
    std::string textAt(std::uint64_t address) const {
        constexpr std::uint64_t page = 4096;
        std::array<char, page> text{};
        const iovec local = {text.data(), text.size()};
        const std::uint64_t first = page - address % page;
        // NOLINTNEXTLINE(performance-no-int-to-ptr): an address of the other program
        const auto pointer = [](std::uint64_t place) { return reinterpret_cast<void*>(place); };
        const std::array<iovec, 2> remote = {{{pointer(address), first}, {pointer(address + first), page - first}}};
        const auto got = ::process_vm_readv(m_pid, &local, 1, remote.data(), remote.size(), 0);
        if (got <= 0) return {};
        const std::string_view all(text.data(), static_cast<std::size_t>(got));
        return std::string(all.substr(0, all.find('\0')));
    }

    std::vector<std::string> m_arguments;
    pid_t m_pid = -1;
};

/// Large enough that writing it takes a while and many pages.
std::string longDescriptions() {
    std::ifstream shipped(SOURCE_DIR "/data/menu-description.tsv");
    std::string text;
    for (std::string line; std::getline(shipped, line);) {
        if (!line.starts_with('#')) line += std::string(1500, 'x');
        text += line + "\n";
    }
    return text;
}

/// Whatever happens to the program while it saves, its target holds the old file or the whole new one. The export of
/// the descriptions needs no radio and writes in the way of every other save.
class WholeFile : public testing::Test {
protected:
    static constexpr int fileExit = 5;

    void SetUp() override {
        if (!fs::exists(korvexctl)) GTEST_SKIP() << "the build without Qt has no korvexctl";
        fs::create_directory(dir);
        fakes::writeFile(outside.file("long.tsv"), longDescriptions());
        const auto imported = run(databaseOption + " description import " + outside.file("long.tsv"));
        ASSERT_EQ(imported.code, 0) << imported.output;
        ASSERT_EQ(save().code, 0);
        content = fakes::fileContent(target);
        putOldFile();
    }

    void putOldFile() const { fakes::writeFile(target, oldContent); }
    Ended save(const std::string& before = "") const { return run(before + program + target); }
    KilledProgram exporting(const std::string& file) const {
        return KilledProgram(
            {korvexctl, "--settings", "/dev/null", "--database", database, "description", "export", file});
    }

    /// "old" or "new"; when it is anything else, what.
    std::string kept(const std::string& file) const {
        if (!fs::exists(file)) return "absent";
        const std::string found = fakes::fileContent(file);
        if (found == oldContent) return "old";
        return found == content ? "new" : "mixture of " + std::to_string(found.size()) + " bytes";
    }
    std::string kept() const { return kept(target); }
    static std::vector<std::string> names(const std::string& folder) {
        std::vector<std::string> all;
        for (const auto& entry : fs::directory_iterator(folder)) all.push_back(entry.path().filename().string());
        std::sort(all.begin(), all.end());
        return all;
    }
    /// What a killed program left stands in nobody's way: the next save goes through and leaves the file alone.
    void expectNextSaveWhole() const {
        const auto next = save();
        EXPECT_EQ(next.code, 0) << next.output;
        EXPECT_EQ(kept(), "new");
        EXPECT_EQ(names(dir), std::vector<std::string>{"shack.tsv"});
    }

    const std::string korvexctl = std::string(BINARY_DIR) + "/korvexctl";
    const std::string oldContent = std::string(100'000, 'o');
    fakes::TemporaryFolder outside;
    const std::string dir = outside.file("dir");
    const std::string target = dir + "/shack.tsv";
    const std::string database = outside.file("descriptions.mdb");
    const std::string databaseOption = korvexctl + " --settings /dev/null --database " + database;
    const std::string program = databaseOption + " description export ";
    std::string content;  ///< what a save writes
};

TEST_F(WholeFile, KilledAtEverySystemCallOfASave) {
    if (!KilledProgram::canBeWatched()) GTEST_SKIP() << "no program may watch another one here (ptrace)";
    const std::string link = outside.file("link");
    fs::create_symlink("dir/shack.tsv", link);
    const auto killEverywhere = [this](const std::string& file, const std::string& before) {
        std::string story;  // the first letters of what was there, moment by moment
        for (bool killed = true; killed;) {
            fs::remove(target);
            if (before == "old") putOldFile();
            KilledProgram saving = exporting(file);
            killed = saving.killAtSystemCall(file, static_cast<int>(story.size()));
            const std::string found = kept();
            story += found.front();
            EXPECT_TRUE(found == "new" || found == before) << found << " after " << story;
            expectNextSaveWhole();
        }
        EXPECT_GT(story.find('n'), 10U) << story;
        EXPECT_TRUE(story.ends_with("nnn")) << story;
    };
    killEverywhere(target, "old");
    killEverywhere(link, "absent");
    EXPECT_TRUE(fs::is_symlink(link));
}

/// The shell's children may only write files up to so many blocks of 512 bytes: the write fails in its middle, or the
/// system kills the program there.
TEST_F(WholeFile, StoppedInTheMiddleOfTheWrite) {
    for (const int blocks : {0, 1, 300, 560}) {
        const std::string limit = "ulimit -f " + std::to_string(blocks) + "; ";
        const auto failed = save("trap '' XFSZ; " + limit);
        EXPECT_EQ(failed.code, fileExit);
        EXPECT_NE(failed.output.find("File too large"), std::string::npos) << failed.output;
        EXPECT_EQ(kept(), "old");
        EXPECT_EQ(names(dir), std::vector<std::string>{"shack.tsv"});
        EXPECT_NE(save(limit).code, 0);
        EXPECT_EQ(kept(), "old");
        expectNextSaveWhole();
        putOldFile();
    }
}

/// A save onto a small disk of its own, where the machine allows to mount one.
TEST_F(WholeFile, OntoAFullDisk) {
    const std::string script = outside.file("disk.sh");
    fakes::writeFile(script, R"(dir=$1 options=$2 room=$3
shift 3
cp "$dir/shack.tsv" "$0.old" && mount -t tmpfs -o "$options" none "$dir" || exit 77
cp "$0.old" "$dir/shack.tsv"
if [ "$room" = ro ]; then
    mount -o remount,bind,ro "$dir"
elif [ -n "$room" ]; then
    head -c $(($(stat -f -c '%a * %S' "$dir") - room)) /dev/zero >"$dir/filler"
fi
"$@"
code=$?
cp "$dir/shack.tsv" "$0.kept"
ls -A "$dir" >"$0.names"
exit $code
)");
    const auto saveOnto = [&](const std::string& unshare, const std::string& options, const std::string& room) {
        return run(unshare + " --mount sh " + script + " " + dir + " " + options + " '" + room + "' " + program +
                   target);
    };
    const bool asRoot = saveOnto("unshare", "size=4m", "").code == 0;
    const std::string unshare = asRoot ? "unshare" : "unshare --user --map-root-user";
    if (const auto all = saveOnto(unshare, "size=4m", ""); all.code != 0) {
        GTEST_SKIP() << "no disk can be mounted here: " << all.output;
    }
    EXPECT_EQ(kept(script + ".kept"), "new");
    struct Case {
        const char* options;
        const char* room;
        const char* told;
        const char* left;
    };
    for (const Case& bad : {Case{"size=4m", "0", "Disk full", "filler\nshack.tsv\n"},
                            Case{"size=4m", "4096", "Disk full", "filler\nshack.tsv\n"},
                            Case{"size=4m", "200000", "Disk full", "filler\nshack.tsv\n"},
                            Case{"size=4m,nr_inodes=2", "", "Disk full", "shack.tsv\n"},
                            Case{"size=4m", "ro", "no permission", "shack.tsv\n"}}) {
        const auto failed = saveOnto(unshare, bad.options, bad.room);
        EXPECT_EQ(failed.code, fileExit) << bad.options << " " << bad.room;
        EXPECT_NE(failed.output.find(bad.told), std::string::npos) << failed.output;
        EXPECT_EQ(kept(script + ".kept"), "old");
        EXPECT_EQ(fakes::fileContent(script + ".names"), bad.left);
    }
    EXPECT_EQ(saveOnto(unshare, "size=4m", "400000").code, 0);
    EXPECT_EQ(kept(script + ".kept"), "new");
    EXPECT_EQ(run(program + "/dev/full").code, fileExit);
}

TEST_F(WholeFile, WhereNothingMayBeWritten) {
    // Root may write everywhere, unless that is taken away.
    const std::string bound =
        ::geteuid() == 0 ? "setpriv --bounding-set=-dac_override --inh-caps=-dac_override -- " : "";
    const auto expectRefused = [&](const std::string& file, const std::string& told) {
        const auto failed = run(bound + program + file);
        EXPECT_EQ(failed.code, fileExit) << failed.output;
        EXPECT_NE(failed.output.find(told), std::string::npos) << failed.output;
    };
    fs::permissions(dir, fs::perms{0555});
    if (run(bound + "touch " + dir + "/probe").code == 0) {
        fs::permissions(dir, fs::perms{0755});
        GTEST_SKIP() << "nothing keeps this user from writing into a read-only folder";
    }
    expectRefused(target, "no permission for " + target);
    expectRefused(dir + "/new.tsv", "no permission");
    fs::permissions(dir, fs::perms{0755});
    fs::permissions(target, fs::perms{0444});
    expectRefused(target, "no permission for " + target);
    EXPECT_EQ(kept(), "old");
    EXPECT_EQ(names(dir), std::vector<std::string>{"shack.tsv"});
}

TEST_F(WholeFile, OntoFoldersAndThroughLinks) {
    fs::create_directory(dir + "/folder");
    fs::create_symlink("folder/missing.tsv", dir + "/dangling");
    fs::create_symlink("nowhere/missing.tsv", dir + "/lost");
    fs::create_symlink("shack.tsv", outside.file("dir/link"));
    for (const std::string bad : {"folder", "folder/", "lost", "shack.tsv/x", ""}) {
        const auto failed = run(program + "'" + dir + "/" + bad + "'");
        EXPECT_EQ(failed.code, fileExit) << bad;
        EXPECT_TRUE(failed.output.find("Path not found") != std::string::npos ||
                    failed.output.find("is a folder") != std::string::npos)
            << failed.output;
    }
    EXPECT_TRUE(fs::is_empty(dir + "/folder"));
    EXPECT_EQ(kept(), "old");
    for (const std::string name : {"dangling", "link"}) {
        EXPECT_EQ(run("cd " + dir + " && " + program + name).code, 0) << name;
        EXPECT_TRUE(fs::is_symlink(dir + "/" + name));
        EXPECT_EQ(kept(dir + "/" + name), "new");
    }
    EXPECT_EQ(names(dir + "/folder"), std::vector<std::string>{"missing.tsv"});
    EXPECT_EQ(names(dir), (std::vector<std::string>{"dangling", "folder", "link", "lost", "shack.tsv"}));
}

}  // namespace
}  // namespace korvex
