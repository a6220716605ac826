#pragma once

#include <string>

#include "platform/MsgBox.h"

namespace korvex {

/// Whether a file (UTF-8) may be replaced by one without any channel: there is nothing in it, or the user says so.
bool mayBeEmptied(const std::string& file, MsgBox& msgBox);

}  // namespace korvex
