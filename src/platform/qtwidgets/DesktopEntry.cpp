#include "platform/qtwidgets/DesktopEntry.h"

#include <QProcess>

namespace korvex {

namespace {

/// The value of a key in the entry's main section; actions further down have keys of the same names.
QString valueOf(const QString& entry, QLatin1String key) {
    bool inMainSection = false;
    for (const QString& line : entry.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1Char('['))) inMainSection = line.startsWith(QLatin1String("[Desktop Entry]"));
        if (inMainSection && line.section(QLatin1Char('='), 0, 0).trimmed() == key) {
            return line.section(QLatin1Char('='), 1).trimmed();
        }
    }
    return {};
}

bool standsForAFile(const QString& word) {
    return word == QLatin1String("%f") || word == QLatin1String("%F") || word == QLatin1String("%u") ||
           word == QLatin1String("%U");
}

}  // namespace

QStringList commandOfDesktopEntry(const QString& entry, const QString& file) {
    if (valueOf(entry, QLatin1String("Terminal")) == QLatin1String("true")) return {};
    QStringList command;
    bool fileStands = false;
    for (QString word : QProcess::splitCommand(valueOf(entry, QLatin1String("Exec")))) {
        if (standsForAFile(word)) {
            command.append(file);
            fileStands = true;
        } else if (word.size() != 2 || word[0] != QLatin1Char('%')) {
            command.append(word.replace(QLatin1String("%%"), QLatin1String("%")));
        }
    }
    if (!command.isEmpty() && !fileStands) command.append(file);
    return command;
}

}  // namespace korvex
