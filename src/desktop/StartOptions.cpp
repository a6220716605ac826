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

constexpr auto files = R"(~/.config/Korvex/Korvex.ini: the settings, unless --settings names another file.

~/.local/share/Korvex: the program folder, unless --program-folder names another one. In it are files, which the dialogs
offer first, FT2000_Menu.mdb with the menu descriptions and the Menu Manager's columns, and the help page.)";

constexpr auto device =
    R"(The user needs the right to use serial ports; on Debian the members of the group dialout have it. In the
radio's menu the CAT speed (item 028) has to be that of the port settings, the CAT time-out (item 029) 10 ms or more, and
CAT RTS (item 030) off. Korvex lowers RTS and DTR at once whenever it opens a port, so that no adapter keys the
transmitter.)";

void addManual(OptionParser& parser) {
    parser.exitCode("0", "the program was ended");
    parser.exitCode("1", "it could not start; a box has told why");
    parser.exitCode("2", "called wrongly");
    parser.manual("THE RADIO", device);
    parser.manual("FILES", files);
    parser.manual("ENVIRONMENT", "KORVEX_EDITOR, KORVEX_BROWSER: the programs that show text and the help page.");
    parser.manual("SEE ALSO", "korvexctl(1), ft2000sim(1)");
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
    parser.operands("FILE", "a file to open: .mnu, .mem, .mef, .csv, .bsr, .kem or .eqp", options.files);
    addManual(parser);
    if (auto failure = parser.read(withoutQtOptions(arguments), options.print)) return *failure;
    if (options.demo && options.ports.contains(1)) {
        return wrong("--demo takes port 1; --port 1=... cannot stand beside it");
    }
    return options;
}

}  // namespace korvex
