#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"

namespace korvex {

/// A table for spreadsheets, all of it UTF-8: the first row names the columns.
using TableRow = std::vector<std::string>;
using Table = std::vector<TableRow>;

/// Comma separated values (RFC 4180), CR LF behind each row, with a byte order mark so that spreadsheets know the
/// encoding.
std::string csvText(const Table& table);

/// A table that is read by the names of its columns, whatever their order.
class NamedTable {
public:
    /// Any encoding, and commas, semicolons or tabs between the cells: what spreadsheets make of a table. Fails without
    /// a first row that has every one of `needed`.
    static Result<NamedTable> read(std::string_view content, const std::vector<std::string_view>& needed);

    std::size_t rows() const { return m_rows.size(); }
    int line(std::size_t row) const { return m_rows[row].line; }
    bool has(std::string_view column) const;
    /// Empty where the row or the column is not there.
    std::string cell(std::size_t row, std::string_view column) const;
    /// The same without the blanks around it.
    std::string word(std::size_t row, std::string_view column) const;
    /// By its place, from 0 on, where columns share a title.
    std::string cellAt(std::size_t row, std::size_t column) const;
    const TableRow& titles() const { return m_titles; }

private:
    struct Row {
        int line;
        TableRow cells;
    };
    TableRow m_titles;
    std::vector<Row> m_rows;
};

}  // namespace korvex
