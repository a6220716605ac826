#pragma once

#include <optional>
#include <string>
#include <vector>

namespace korvex {

/// How a grid's cells are shown and typed into where that is not just their text. Rows and columns are the grid's,
/// labels included; all text is UTF-8.
class GridFace {
public:
    GridFace() = default;
    GridFace(const GridFace&) = delete;
    GridFace& operator=(const GridFace&) = delete;
    virtual ~GridFace() = default;

    virtual std::string text(int row, int col) const = 0;
    /// What else is to be known of a cell, for its tool tip and for assistive programs; empty for nothing.
    virtual std::string description(int, int) const { return {}; }
    /// 0xBBGGRR, over the cell's own.
    virtual std::optional<int> backColour(int, int) const { return std::nullopt; }
    /// A line on the left of a column.
    virtual bool beginsGroup(int) const { return false; }

    virtual bool isEditable(int, int) const { return false; }
    /// What can be chosen in a cell; empty where it is typed.
    virtual std::vector<std::string> choices(int, int) const { return {}; }
    /// Why a text cannot be put into a cell, in words.
    virtual std::optional<std::string> whyRefused(int, int, const std::string&) const { return std::nullopt; }
    virtual void put(int, int, const std::string&) {}
};

}  // namespace korvex
