#include "platform/qt/QtSerialPorts.h"

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "fakes/FakeDialogs.h"
#include "fakes/ScriptedDevice.h"
#include "platform/PortScan.h"
#include "qt/Pty.h"

namespace korvex {
namespace {

namespace fs = std::filesystem;

/// A system's files in a folder of its own.
class SystemFiles {
public:
    void file(const std::string& path, const std::string& content = {}) const {
        fs::create_directories((root / path).parent_path());
        std::ofstream(root / path) << content;
    }
    void link(const std::string& path, const std::string& target) const {
        fs::create_directories((root / path).parent_path());
        fs::create_symlink(root / target, root / path);
    }
    void onBoard(const std::string& name, const std::string& type) const {
        file("devices/" + name + "/x");
        link("sys/class/tty/" + name + "/device", "devices/" + name);
        file("sys/class/tty/" + name + "/type", type);
        file("dev/" + name);
    }
    void adapter(const std::string& name, const std::string& product, const std::string& serial) const {
        file("usb/" + name + "/port/x");
        file("usb/" + name + "/product", product + "\n");
        file("usb/" + name + "/manufacturer", "Acme\n");
        if (!serial.empty()) file("usb/" + name + "/serial", serial + "\n");
        link("sys/class/tty/" + name + "/device", "usb/" + name + "/port");
        file("dev/" + name);
    }

    QTemporaryDir folder;
    fs::path root = folder.path().toStdString();
};

TEST(PortScan, FindsWhatHasHardwareInAStableOrder) {
    const SystemFiles system;
    system.adapter("ttyUSB10", "Cable", "");
    system.adapter("ttyUSB2", "Cable", "A5028");
    system.adapter("ttyACM0", "Modem", "");
    system.onBoard("ttyS0", "4\n");
    system.onBoard("ttyS1", "0\n");
    system.file("sys/class/tty/tty1/dev");
    system.file("dev/tty1");
    system.link("dev/serial/by-path/socket", "dev/ttyUSB2");
    system.link("dev/serial/by-id/usb-Acme_Cable_A5028", "dev/ttyUSB2");

    const auto found = scanPorts(system.root.string());
    const std::string dev = (system.root / "dev").string() + "/";
    ASSERT_EQ(found.size(), 4U);
    EXPECT_EQ(found[0], (FoundPort{dev + "ttyS0", {dev + "ttyS0"}, "on-board serial port"}));
    EXPECT_EQ(found[1], (FoundPort{dev + "ttyACM0", {dev + "ttyACM0"}, "Acme Modem"}));
    EXPECT_EQ(found[2],
              (FoundPort{dev + "ttyUSB2",
                         {dev + "serial/by-id/usb-Acme_Cable_A5028", dev + "serial/by-path/socket", dev + "ttyUSB2"},
                         "Acme Cable, serial number A5028"}));
    EXPECT_EQ(found[3].device, dev + "ttyUSB10");
    EXPECT_TRUE(scanPorts("/nowhere").empty());
}

TEST(QtSerialPorts, OpenWhatTheCommandLineNamesAndRefuseTheRestInWords) {
    fakes::FakeSettings settings;
    settings.values["Ports/15"] = "/dev/serial/by-id/usb-away";
    const auto before = settings.values;
    const Pty pty;
    QtSerialPorts ports(settings, {{14, pty.device}});
    const auto listed = ports.list();
    const auto there = [&](int number) {
        return std::any_of(listed.begin(), listed.end(), [&](const auto& port) { return port.number == number; });
    };
    EXPECT_TRUE(there(14));
    EXPECT_FALSE(there(15));
    EXPECT_FALSE(ports.makeDevice(14)->open({}, Handshaking::None));
    const auto textOf = [&](int number) { return ports.makeDevice(number)->open({}, Handshaking::None)->text; };
    EXPECT_NE(textOf(15).find("usb-away"), std::string::npos);
    EXPECT_NE(textOf(16).find("There is no serial port 16 "), std::string::npos);
    ports.remember(14);
    ports.remember(15);
    EXPECT_EQ(settings.values, before);
}

TEST(QtSerialPorts, GiveNumberOneToTheDemo) {
    fakes::FakeSettings settings;
    fakes::VirtualClock clock;
    fakes::ScriptedPorts demo(clock);
    demo.plug(1);
    demo.plug(2);
    QtSerialPorts ports(settings, {}, &demo);
    const auto listed = ports.list();
    ASSERT_FALSE(listed.empty());
    EXPECT_EQ(listed[0].number, 1);
    EXPECT_EQ(std::count_if(listed.begin(), listed.end(), [](const auto& port) { return port.number == 1; }), 1);
    EXPECT_FALSE(ports.makeDevice(1)->open({}, Handshaking::None));
    ports.remember(1);
    EXPECT_TRUE(settings.values.empty());
}

}  // namespace
}  // namespace korvex
