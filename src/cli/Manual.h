#pragma once

#include "options/OptionParser.h"

namespace korvex::cli {

/// What the manual page of korvexctl has besides its commands and options; and the exit codes, which the help page has,
/// too.
void addManual(OptionParser& parser);

}  // namespace korvex::cli
