#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "cat/KnownRadio.h"
#include "menu/MenuCommandTable.h"

namespace korvex {

/// The menu file (.mnu): one line a menu item in the order of the items, each the radio's answer as it came, CR LF
/// after each; an item without an answer is an empty line. No header, no count.
std::string menuFileText(const MenuCommandTable& table);

/// The lines of a menu file as wire text, as many as the file has. Each is "EX", an item's number, a value and ";", or
/// "?;" for an item that the radio would not tell, or empty. A file with any other line, or with more lines than 152,
/// is refused with the line's number and the reason.
Result<std::vector<std::string>> menuFileLines(std::string_view content);

/// How many items have a value in these lines of a menu file.
int itemsTold(const std::vector<std::string>& lines);
/// How many say "?;": items that the radio of the file would not tell. They make no file incomplete.
int itemsRefused(const std::vector<std::string>& lines);

/// Which numbers the menu's items have: in early firmware those from 028 on are one lower.
enum class MenuNumbers { Later, Early };

MenuNumbers menuNumbersOf(const KnownRadio& radio);

/// What the lines of a menu file show of that, by the equalizer's six levels, which alone stand in a row of every third
/// item with a sign. Nothing where they do not tell.
std::optional<MenuNumbers> numbersIn(const std::vector<std::string>& lines);

/// The radio's own CAT settings, menu items 028 to 030. Whoever changes them may cut the line.
enum class CatSetting { None, Rate, TimeOut, Rts };
/// The one that the command sets.
CatSetting catSetting(std::string_view command, MenuNumbers numbers = MenuNumbers::Later);
bool setsCatLine(std::string_view command, MenuNumbers numbers = MenuNumbers::Later);
/// The order in which commands are sent: 0 leaves those alone, 1 and then 2, the speed, come last of all, because the
/// radio hears nothing more behind that.
int catRank(std::string_view command, MenuNumbers numbers = MenuNumbers::Later);

/// Menu lines as they are sent: all that leave the radio's CAT settings alone, in the order of the file.
struct MenuLines {
    std::vector<std::string> items;  ///< one for each row up to 149; empty where there is nothing to set
    std::vector<std::string> cat;    ///< what sets the CAT settings; the speed last, behind it the radio hears nothing
};
MenuLines apartFromCatLines(const std::vector<std::string>& lines, MenuNumbers numbers = MenuNumbers::Later);

/// Each answer that names its item, in the place of that item: what is certain of a reading that did not come to its
/// end. Refusals, which name none, are not among them.
MenuCommandTable namedAnswers(const MenuCommandTable& table);

/// How many of the answers are the right item's own: "EX", its number, a value, ";".
int answersInPlace(const MenuCommandTable& table);
/// The numbers of the items ("031") whose rows have no such answer, and those among them whose row says "?;".
std::vector<std::string> missingItems(const MenuCommandTable& table);
std::vector<std::string> refusedItems(const MenuCommandTable& table);

}  // namespace korvex
