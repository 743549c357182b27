#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "presentation/table_grid.h"

// The tags of the rows of a summary table: which block a row belongs to, and what it holds there.

namespace tessara {

// A row of headings carries the tag of its block alone.
inline constexpr std::string_view kCategoricalBlock = "categorical ";
inline constexpr std::string_view kContinuousBlock = "continuous ";
// What the row of a variable as a whole holds: its own heading.
inline constexpr std::string_view kGroupRow = "heading";

// A part of a tag: whatever a text holds, two lists of parts are alike only when their texts are.
std::string TagPart(std::string_view text);

enum class TableRowKind {
  kPlain,    // labels and figures, or what the user has written
  kHeading,  // the headings of the columns of a block
  kGroup,    // the heading of a variable's rows
};
TableRowKind KindOfRow(const TableGrid& grid, std::size_t row);

}  // namespace tessara
