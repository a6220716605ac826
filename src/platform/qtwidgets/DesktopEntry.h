#pragma once

#include <QString>
#include <QStringList>

namespace korvex {

/// The command line by which a desktop entry's program opens `file`, program first. Empty for an entry without one and
/// for a program that wants a terminal window.
QStringList commandOfDesktopEntry(const QString& entry, const QString& file);

}  // namespace korvex
