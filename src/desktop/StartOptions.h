#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/RuntimeError.h"

namespace korvex {

/// What the command line of korvex asks for.
struct StartOptions {
    std::map<int, std::string> ports;  ///< --port N=DEVICE, each number once
    bool demo = false;                 ///< --demo
    std::string programFolder;         ///< --program-folder DIR, empty: found
    std::string settingsFile;          ///< --settings FILE, empty: the user's
    std::vector<std::string> files;    ///< FILE: to be opened; more than one is told in a box
    std::string print;                 ///< of --help or --version: to be printed in place of a start
};

/// The arguments behind the program's name, those among them that Qt takes itself left out. The error's text is for the
/// user.
Result<StartOptions> parseStartOptions(const std::vector<std::string>& arguments);

}  // namespace korvex
