#include "cli/FileKinds.h"

#include "menu/MenuFile.h"

namespace korvex::cli {

namespace {

std::string menuObjection(const MenuCommandTable& table) {
    const int inPlace = answersInPlace(table);
    if (inPlace == menuItemCount) return {};
    return "only " + std::to_string(inPlace) + " of " + std::to_string(menuItemCount) +
           " menu items were answered in time and in order";
}

}  // namespace

std::vector<FileKind> fileKinds(Program& program) {
    return {
        {"menu",
         {[&program] { program.menuReader.mnu_Store_Click(); }, &program.menuReader.ended,
          [&program] { return menuObjection(program.menuCommandTable); }},
         {[&program] { program.menuWriter.mnu_Restore_Click(); }, &program.menuWriter.ended, {}}},
    };
}

}  // namespace korvex::cli
