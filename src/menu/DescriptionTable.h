#pragma once

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

}  // namespace description

/// The table as a text that people and spreadsheets can edit: UTF-8, a line a record, tabs between the fields, lines
/// with "#" in front are remarks. Inside a field \t \n \r \\ stand for a tab, line ends and a backslash.
std::string descriptionText(const DatabaseTable& table);

/// Fields missing at the end of a line are empty; anything else that does not fit is refused with the line's number.
Result<DatabaseTable> parseDescription(std::string_view text);

}  // namespace korvex
