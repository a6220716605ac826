#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/Settings.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtSettingsStore.h"
#include "platform/qtwidgets/DesktopEntry.h"
#include "platform/qtwidgets/QtShell.h"

namespace korvex {
namespace {

namespace fs = std::filesystem;

class Settings : public ::testing::Test {
protected:
    std::string get(std::string_view section, std::string_view key, std::string_view fallback = "(default)") {
        return QtSettingsStore(file).get(applicationName, section, key, fallback);
    }
    void write(const char* content) { std::ofstream(file) << content; }

    QTemporaryDir folder;
    std::string file = folder.filePath(QStringLiteral("sub/Korvex.ini")).toStdString();
};

TEST_F(Settings, KeepEveryTextAndTheFileIsThereAtOnce) {
    std::vector<std::string> values = {"", " ", "  two blanks  ", "4800,n,8,2", "a;b#c=d", "\"quoted\"", "%20", "1e5"};
    for (const char* text :
         {"back\\slash\\x41 \\n", "two\r\nlines", "@Invalid()", "@Variant(x)", "Ärger Ω", "[Settings]"})
        values.emplace_back(text);
    QtSettingsStore store(file);
    for (std::size_t i = 0; i < values.size(); ++i) {
        store.save(applicationName, settingsSection, "Key" + std::to_string(i), values[i]);
    }
    store.save(applicationName, portSection, "COM-Anschluß", "3");
    store.save("Other", settingsSection, "Key0", "other");
    QtClock().letEventsRun(1);
    EXPECT_TRUE(std::filesystem::exists(file));
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(get(settingsSection, "Key" + std::to_string(i)), values[i]);
    }
    EXPECT_EQ(get(portSection, "COM-Anschluß"), "3");
    EXPECT_EQ(get(settingsSection, "COM-Anschluß"), "(default)");
    EXPECT_EQ(QtSettingsStore(file).get("Other", settingsSection, "Key0", ""), "other");
}

TEST_F(Settings, MayBeWrittenByHand) {
    std::filesystem::create_directories(std::filesystem::path(file).parent_path());
    write("[Einstellungen]\nEinstellungen=4800,n,8,2\nCOM-Anschluß=7\nHandshaking=\n[Settings]\nSavePath=/home/Jürg\n");
    EXPECT_EQ(get(portSection, "Einstellungen"), "4800,n,8,2");
    EXPECT_EQ(get(portSection, "COM-Anschluß"), "7");
    EXPECT_EQ(get(portSection, "Handshaking"), "");
    EXPECT_EQ(get(settingsSection, "SavePath"), "/home/Jürg");
    QtSettingsStore(file).save(applicationName, portSection, "COM-Anschluß", "8");
    EXPECT_EQ(get(portSection, "COM-Anschluß"), "8");
}

TEST_F(Settings, SurviveNonsenseAndFilesOutOfReach) {
    std::filesystem::create_directories(std::filesystem::path(file).parent_path());
    write("no section\n[[[\n=\xFF\xFE\n[Settings\nTermLeft=200\n\"\n[Settings]\nTermTop=\\x\n");
    QtSettingsStore store(file);
    EXPECT_EQ(store.get(applicationName, settingsSection, "TermWidth", "6500"), "6500");
    store.save(applicationName, settingsSection, "TermWidth", "7000");
    EXPECT_EQ(store.get(applicationName, settingsSection, "TermWidth", ""), "7000");

    for (const char* place : {"/proc/none/Korvex.ini", "/dev/full/Korvex.ini", "/tmp"}) {
        QtSettingsStore unreachable(place);
        unreachable.save(applicationName, settingsSection, "TermLeft", "17");
        QtClock().letEventsRun(1);
        EXPECT_EQ(unreachable.get(applicationName, settingsSection, "TermLeft", ""), "17") << place;
    }
}

TEST(DesktopEntry, TellsHowItsProgramOpensAFile) {
    const auto commandOf = [](const char* entry) {
        return commandOfDesktopEntry(QString::fromUtf8(entry), QStringLiteral("/a b.mnu"))
            .join(QLatin1Char('|'))
            .toStdString();
    };
    EXPECT_EQ(commandOf("[Desktop Entry]\nName=x\nExec=gedit --new-window %U\n[Desktop Action new]\nExec=gedit\n"),
              "gedit|--new-window|/a b.mnu");
    EXPECT_EQ(commandOf("[Other]\nExec=no\n[Desktop Entry]\nExec = \"/opt/my editor/run\" %i --at=50%%\n"),
              "/opt/my editor/run|--at=50%|/a b.mnu");
    EXPECT_EQ(commandOf("[Desktop Entry]\nExec=vim %F\nTerminal=true\n"), "");
    EXPECT_EQ(commandOf("nonsense"), "");
}

/// A folder of programs that write down what they were started with.
class Shell : public ::testing::Test {
protected:
    void SetUp() override { qputenv("PATH", folder.path().toUtf8()); }
    ~Shell() override {
        qputenv("PATH", path);
        qunsetenv("KORVEX_EDITOR");
        qunsetenv("KORVEX_BROWSER");
    }
    void install(const std::string& name, const std::string& script) const {
        const fs::path file = root / name;
        std::ofstream(file) << "#!/bin/sh\n" << script << "\n";
        fs::permissions(file, fs::perms::owner_all);
    }
    void installNoting(const std::string& name) const {
        install(name, "echo \"" + name + " $*\" > '" + (root / "new").string() + "'; /bin/mv '" +
                          (root / "new").string() + "' '" + (root / "noted").string() + "'");
    }
    std::string noted() const {
        std::string line;
        for (int i = 0; i < 500 && line.empty(); ++i) {
            ::usleep(10'000);
            std::ifstream file(root / "noted");
            std::getline(file, line);
        }
        fs::remove(root / "noted");
        return line;
    }

    const QByteArray path = qgetenv("PATH");
    QTemporaryDir folder;
    fs::path root = folder.path().toStdString();
    QtShell shell;
};

TEST_F(Shell, FindsTheTextEditor) {
    const auto none = shell.openTextEditor("/x.mnu");
    ASSERT_TRUE(none);
    EXPECT_EQ(none->number, errors::FileNotFound);
    EXPECT_NE(none->text.find("KORVEX_EDITOR"), std::string::npos);

    installNoting("mousepad");
    EXPECT_FALSE(shell.openTextEditor("/x.mnu"));
    EXPECT_EQ(noted(), "mousepad /x.mnu");

    installNoting("favourite");
    install("xdg-mime", "[ \"$*\" = 'query default text/plain' ] && echo favourite.desktop");
    const fs::path entries = fs::path(qgetenv("XDG_DATA_HOME").toStdString()) / "applications";
    fs::create_directories(entries);
    std::ofstream(entries / "favourite.desktop") << "[Desktop Entry]\nExec=favourite --edit %f\n";
    EXPECT_FALSE(shell.openTextEditor("/x.mnu"));
    EXPECT_EQ(noted(), "favourite --edit /x.mnu");

    installNoting("mine");
    qputenv("KORVEX_EDITOR", "mine -w");
    EXPECT_FALSE(shell.openTextEditor("/two words.mnu"));
    EXPECT_EQ(noted(), "mine -w /two words.mnu");
    qputenv("KORVEX_EDITOR", "missing");
    EXPECT_TRUE(shell.openTextEditor("/x.mnu"));
}

TEST_F(Shell, OpensPagesAndTellsAboutTheComputer) {
    EXPECT_TRUE(shell.openBrowser("/help.html")) << "there is no desktop here that could";
    EXPECT_TRUE(shell.openSystemInformation());
    installNoting("browser");
    qputenv("KORVEX_BROWSER", "browser --new");
    EXPECT_FALSE(shell.openBrowser("/my folder/help.html"));
    EXPECT_EQ(noted(), "browser --new file:///my%20folder/help.html");
    installNoting("gnome-control-center");
    EXPECT_FALSE(shell.openSystemInformation());
    EXPECT_EQ(noted(), "gnome-control-center info-overview");
}

}  // namespace
}  // namespace korvex
