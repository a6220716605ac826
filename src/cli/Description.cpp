#include "cli/Description.h"

#include <algorithm>
#include <utility>

#include "menu/DescriptionExchange.h"
#include "menu/DescriptionSource.h"
#include "menu/ShippedDescriptions.h"

namespace korvex::cli {

namespace {

ExitCode failed(std::ostream& err, const std::string& why) {
    err << "korvexctl: " << why << "\n";
    return ExitCode::File;
}

}  // namespace

ExitCode exportDescription(Database& database, const std::string& databaseFile, const std::string& file,
                           std::ostream& err, const Files& files) {
    const auto text = exportedDescriptions(database, databaseFile);
    if (!text) return failed(err, text.error().text);
    if (const auto failure = files.write(file, *text)) return failed(err, failure->text);
    return ExitCode::Done;
}

ExitCode importDescription(Database& database, const TableToImport& table, std::ostream& out, std::ostream& err,
                           const Files& files) {
    const auto content = files.read(table.file);
    if (!content) return failed(err, content.error().text);
    auto source = descriptionsIn(database, table.runChildProgram, table.file, *content);
    if (!source) return failed(err, table.file + ", " + source.error().text);
    const auto settings = table.withSettings   ? TakeSettings::Yes
                          : source->isDatabase ? TakeSettings::WhereThereAreNone
                                               : TakeSettings::No;
    const auto taken =
        takeDescriptions(database, {table.database, std::move(source->table), settings, table.timeOfDay});
    if (!taken) return failed(err, taken.error().text);
    out << inWords(*taken, table.file, table.database,
                   "the settings columns stay as they were (--with-settings takes them as well)\n");
    return ExitCode::Done;
}

}  // namespace korvex::cli
