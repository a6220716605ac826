#include "cat/PortConfiguration.h"

namespace korvex {

Failure applyStoredPort(const SettingsStore& store, MSComm& port) {
    if (auto failure = port.setSettings(readSetting(store, keys::lineSettings))) return failure;
    // A number outside 1..20 was not written by this program: the control keeps the one it has.
    static_cast<void>(port.setCommPort(readSetting(store, keys::commPort)));
    if (auto failure = port.setHandshaking(readSetting(store, keys::handshaking))) return failure;
    port.setRTSEnable(false);
    port.setDTREnable(false);
    return {};
}

void storePort(SettingsStore& store, const MSComm& port, bool echo) {
    writeSetting(store, keys::lineSettings, port.Settings());
    writeSetting(store, keys::commPort, port.CommPort());
    writeSetting(store, keys::handshaking, port.Handshaking());
    writeSetting(store, keys::echo, echo);
}

}  // namespace korvex
