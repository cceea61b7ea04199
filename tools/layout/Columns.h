// Rules that fit on a line, with their members in columns.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace customstyle_tool {

/// How many characters a text takes in a line.
std::size_t widthOf(std::string_view text);

/// An object that fits on one line: its members as text, each but the last with its comma.
struct Row {
    std::string names;  ///< names of the members; only rows with equal names share columns
    std::vector<std::string> cells;
    std::vector<std::size_t> columns;  ///< width of each cell but the last; filled by alignColumns
};

/// Chooses the columns of all rows: rows with equal names get equal columns. A row that would then be wider than `room`
/// gets none, and is not considered for the others' columns.
void alignColumns(std::span<Row* const> rows, std::size_t room);

/// "{cell cell}", the cells padded with blanks to their columns.
std::string textOf(const Row& row);

}  // namespace customstyle_tool
