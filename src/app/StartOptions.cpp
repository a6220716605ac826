#include "app/StartOptions.h"

#include <functional>
#include <map>
#include <string_view>

#include "base/NumberText.h"

namespace korvex {

namespace {

RuntimeError wrong(const std::string& why) {
    return {errors::InvalidPropertyValue, why};
}

Failure addPort(StartOptions& options, const std::string& value) {
    const auto equals = value.find('=');
    const auto number = parseWhole(value.substr(0, equals));
    if (equals == std::string::npos || !number || *number < 1 || *number > 20 || equals + 1 == value.size()) {
        return wrong("--port wants N=DEVICE with N from 1 to 20, for example 1=/dev/ttyUSB0");
    }
    options.ports[*number] = value.substr(equals + 1);
    return {};
}

using Apply = std::function<Failure(StartOptions&, const std::string&)>;

const std::map<std::string_view, Apply>& valueOptions() {
    const auto text = [](std::string StartOptions::*member) {
        return [member](StartOptions& options, const std::string& value) -> Failure {
            options.*member = value;
            return {};
        };
    };
    static const std::map<std::string_view, Apply> all = {{"--port", addPort},
                                                          {"--program-folder", text(&StartOptions::programFolder)},
                                                          {"--settings", text(&StartOptions::settingsFile)}};
    return all;
}

const std::map<std::string_view, bool StartOptions::*>& flags() {
    static const std::map<std::string_view, bool StartOptions::*> all = {{"--demo", &StartOptions::demo},
                                                                         {"--help", &StartOptions::help},
                                                                         {"-h", &StartOptions::help},
                                                                         {"--version", &StartOptions::version}};
    return all;
}

}  // namespace

Result<StartOptions> parseStartOptions(const std::vector<std::string>& arguments) {
    StartOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (const auto flag = flags().find(argument); flag != flags().end()) {
            options.*(flag->second) = true;
            continue;
        }
        const auto equals = argument.find('=');
        const auto option = valueOptions().find(std::string_view(argument).substr(0, equals));
        if (option == valueOptions().end()) return wrong("unknown argument " + argument);
        if (equals == std::string::npos && i + 1 == arguments.size()) return wrong(argument + " wants a value");
        const std::string value = equals == std::string::npos ? arguments[++i] : argument.substr(equals + 1);
        if (auto failure = option->second(options, value)) return *failure;
    }
    if (options.demo && options.ports.contains(1))
        return wrong("--demo takes port 1; --port 1=... cannot stand beside it");
    return options;
}

std::string startOptionsHelp() {
    return "Usage: korvex [options]\n"
           "  --demo                  a simulated radio as port 1, to try everything without a radio\n"
           "  --port N=DEVICE         port number N (1 to 20) is DEVICE; may be given several times\n"
           "  --program-folder DIR    the folder of the data files, the help page and the description database\n"
           "  --settings FILE         the settings file\n"
           "  -h, --help  --version\n";
}

}  // namespace korvex
