#include "cat/PortConfiguration.h"

#include <string>

#include "base/NumberText.h"

namespace korvex {

namespace {

std::string stored(const SettingsStore& store, std::string_view key) {
    return store.get(applicationName, portSection, key, "");
}

}  // namespace

Failure applyStoredPort(const SettingsStore& store, MSComm& port) {
    if (const auto settings = stored(store, portkeys::settings); !settings.empty()) {
        if (auto failure = port.setSettings(settings)) return failure;
    }
    if (const auto number = parseWhole(stored(store, portkeys::commPort))) {
        // A number outside 1..20 was not written by this program: the control keeps the one it has.
        static_cast<void>(port.setCommPort(*number));
    }
    if (const auto handshaking = stored(store, portkeys::handshaking); !handshaking.empty()) {
        const auto code = parseWhole(handshaking);
        if (auto failure = port.setHandshaking(code ? *code : -1)) return failure;
    }
    port.setRTSEnable(false);
    port.setDTREnable(false);
    return {};
}

void storePort(SettingsStore& store, const MSComm& port, bool echo) {
    store.save(applicationName, portSection, portkeys::settings, port.Settings());
    store.save(applicationName, portSection, portkeys::commPort, std::to_string(port.CommPort()));
    store.save(applicationName, portSection, portkeys::handshaking, std::to_string(port.Handshaking()));
    store.save(applicationName, portSection, portkeys::echo, echo ? "True" : "False");
}

bool storedEcho(const SettingsStore& store) {
    return stored(store, portkeys::echo) == "True";
}

}  // namespace korvex
