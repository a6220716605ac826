#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/qt/DesktopEntry.h"
#include "platform/qt/QtShell.h"

namespace korvex {
namespace {

namespace fs = std::filesystem;

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
    EXPECT_TRUE(shell.openBrowser("/help.html"));
    EXPECT_TRUE(shell.openSystemInformation());
    installNoting("xdg-open");
    EXPECT_FALSE(shell.openBrowser("/my folder/help.html"));
    EXPECT_EQ(noted(), "xdg-open file:///my%20folder/help.html");
    installNoting("gnome-control-center");
    EXPECT_FALSE(shell.openSystemInformation());
    EXPECT_EQ(noted(), "gnome-control-center info-overview");
}

}  // namespace
}  // namespace korvex
