#include "desktop/StartOptions.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "base/NumberText.h"
#include "options/OptionParser.h"

namespace korvex {

namespace {

RuntimeError wrong(const std::string& why) {
    return {errors::InvalidPropertyValue, why};
}

/// What QApplication takes away when it is made: a session manager starts us with one of these.
constexpr auto qtFlags = std::to_array<std::string_view>({"-reverse", "-widgetcount"});
constexpr auto qtOptions = std::to_array<std::string_view>(
    {"-platform", "-platformpluginpath", "-platformtheme", "-plugin", "-qwindowgeometry", "-qwindowicon",
     "-qwindowtitle", "-geometry", "-icon", "-title", "-session", "-style", "-stylesheet", "-display", "-name"});

bool isOneOf(const auto& names, std::string_view argument) {
    return std::find(names.begin(), names.end(), argument) != names.end();
}

std::vector<std::string> withoutQtOptions(const std::vector<std::string>& arguments) {
    std::vector<std::string> ours;
    bool wantsValue = false;
    for (const auto& argument : arguments) {
        const auto name = std::string_view(argument).substr(argument.starts_with("--") ? 1 : 0);
        const bool isQts = isOneOf(qtFlags, name) || name.starts_with("-style=") || name.starts_with("-stylesheet=");
        const bool isValue = std::exchange(wantsValue, !wantsValue && isOneOf(qtOptions, name));
        if (!isQts && !isValue && !wantsValue) ours.push_back(argument);
    }
    return ours;
}

Failure addPort(StartOptions& options, const std::string& value) {
    const auto equals = value.find('=');
    const auto number = parseWhole(value.substr(0, equals));
    if (equals == std::string::npos || !number || *number < 1 || *number > 20 || equals + 1 == value.size()) {
        return wrong("N=DEVICE is wanted, with N from 1 to 20, for example 1=/dev/ttyUSB0");
    }
    options.ports[*number] = value.substr(equals + 1);
    return {};
}

}  // namespace

Result<StartOptions> parseStartOptions(const std::vector<std::string>& arguments) {
    StartOptions options;
    OptionParser parser("korvex", "korvex: saves, edits and restores what is set in a Yaesu FT-2000");
    parser.flag("--demo", "a simulated radio as port 1, to try everything without a radio", options.demo);
    parser.option("--port", "N=DEVICE", "port number N (1 to 20) is DEVICE; may be given several times",
                  [&options](const std::string& value) { return addPort(options, value); });
    parser.option("--program-folder", "DIR", "the folder of the data files, the help page and the description database",
                  into(options.programFolder));
    parser.option("--settings", "FILE", "the settings file", into(options.settingsFile));
    if (auto failure = parser.read(withoutQtOptions(arguments), options.print)) return *failure;
    if (options.demo && options.ports.contains(1)) {
        return wrong("--demo takes port 1; --port 1=... cannot stand beside it");
    }
    return options;
}

}  // namespace korvex
