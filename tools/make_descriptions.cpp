#include <QCoreApplication>
#include <iostream>

#include "cli/Description.h"
#include "platform/qt/QtDatabase.h"

/// Makes the description database that is shipped from its table: make_descriptions DATABASE TABLE. A program of its
/// own, so that whoever builds korvexctl gets the database along.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 3) return static_cast<int>(korvex::cli::ExitCode::Usage);
    korvex::QtDatabase database;
    return static_cast<int>(korvex::cli::importDescription(database, {argv[1], argv[2]}, std::cout, std::cerr));
}
