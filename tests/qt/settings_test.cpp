#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/stat.h>

#include "platform/qt/QtClock.h"
#include "platform/qt/QtSettingsStore.h"

namespace korvex {
namespace {

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
    const std::vector<std::string> values = {"",
                                             " ",
                                             "4800,n,8,2",
                                             "  two blanks  ",
                                             "a;b#c=d",
                                             "\"quoted\"",
                                             "back\\slash\\x41 \\n",
                                             "two\r\nlines",
                                             "@Invalid()",
                                             "@Variant(x)",
                                             "%20",
                                             "Ärger Ω",
                                             "[Settings]",
                                             "1e5"};
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

}  // namespace
}  // namespace korvex
