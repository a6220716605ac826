#include "platform/Settings.h"

#include <gtest/gtest.h>

#include "fakes/FakeDialogs.h"

namespace korvex {
namespace {

TEST(Settings, StandUnderTheNamesThatTheOwnersFilesHold) {
    fakes::FakeSettings store;
    writeSetting(store, keys::lineSettings, "38400,n,8,2");
    writeSetting(store, keys::commPort, 7);
    writeSetting(store, keys::echo, false);
    writeSetting(store, keys::savePath, "/home/Jürg/my.mnu");
    writeSetting(store, keys::place("frmEQ_Set", "Top"), -15);
    writeSetting(store, keys::device(20), "/dev/ttyUSB0");
    EXPECT_EQ(store.values, (std::map<std::string, std::string>{{"Einstellungen/Einstellungen", "38400,n,8,2"},
                                                                {"Einstellungen/COM-Anschluß", "7"},
                                                                {"Einstellungen/Echo", "False"},
                                                                {"Settings/SavePath", "/home/Jürg/my.mnu"},
                                                                {"Settings/frmEQ_SetTop", "-15"},
                                                                {"Ports/20", "/dev/ttyUSB0"}}));
}

TEST(Settings, CountAsTheirFallbackWhileNothingIsStoredOrNothingThatMakesSense) {
    fakes::FakeSettings store;
    EXPECT_EQ(readSetting(store, keys::keyerPath, "/k"), "/k/files");
    for (const char* text : {"", "7x", "0x7", "7.0", "99999999999"}) {
        store.values["Einstellungen/COM-Anschluß"] = text;
        store.values["Einstellungen/Handshaking"] = text;
        EXPECT_EQ(readSetting(store, keys::commPort), 1) << text;
        EXPECT_EQ(readSetting(store, keys::handshaking), *text == 0 ? 0 : -1) << text;
    }
    store.values = {{"Einstellungen/Echo", "true"}, {"Einstellungen/COM-Anschluß", " 07 "}, {"Settings/SaveKeyer", ""}};
    EXPECT_FALSE(readSetting(store, keys::echo));
    EXPECT_EQ(readSetting(store, keys::commPort), 7);
    EXPECT_EQ(readSetting(store, keys::keyerPath, "/k"), "");
    store.values["Einstellungen/Echo"] = "True";
    EXPECT_TRUE(readSetting(store, keys::echo));
}

}  // namespace
}  // namespace korvex
