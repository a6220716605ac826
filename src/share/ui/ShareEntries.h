#pragma once

#include <QMenu>

#include "share/ShareEntry.h"

namespace korvex {

/// Puts the three entries of the shared port at the end of a menu. They follow `entry` for as long as `connections`
/// live.
void addShareEntries(QMenu& menu, ShareEntry& entry, Connections& connections);

}  // namespace korvex
