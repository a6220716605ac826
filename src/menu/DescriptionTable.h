#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "platform/Database.h"

namespace korvex {

/// The table of menu descriptions: one record a grid row, the first with the titles of the columns, each record a
/// number to sort by and a text for each column of the grid.
namespace description {

inline constexpr std::string_view password = "p7RzK2vWq9LmT4xNs8Jd";
inline constexpr std::string_view tableName = "Erste Tabelle";
inline constexpr std::string_view query = "Select * From [Erste Tabelle] ORDER BY ID";

inline constexpr int recordCount = 190;  ///< the titles and the rows of 149 items
inline constexpr int textColumns = 14;
inline constexpr std::size_t numberField = 1;         ///< "001"; empty in a row that goes with the one above
inline constexpr std::size_t firstSettingsField = 8;  ///< of the four settings columns
inline constexpr std::size_t lastSettingsField = 11;

}  // namespace description

/// The table as a text that people and spreadsheets can edit: UTF-8, a line a record, tabs between the fields, lines
/// with "#" in front are remarks. Inside a field \t \n \r \\ stand for a tab, line ends and a backslash; one that
/// begins with a double quote is quoted.
std::string descriptionText(const DatabaseTable& table);

/// What `descriptionText` wrote, or what a spreadsheet made of it (SheetText.h, TextEncoding.h). Fields missing at the
/// end of a line are empty, "1" is item 001. The records come in the order of their numbers. Anything else that does
/// not fit is refused with the line's number, and so is a table in which not each of 001 to 149 stands once.
Result<DatabaseTable> parseDescription(std::string_view content);

}  // namespace korvex
