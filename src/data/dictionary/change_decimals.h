#pragma once

#include <cstddef>
#include <string_view>

#include "data/data_matrix.h"
#include "data/missing_values.h"

namespace tessara {

// Rewrites the cells of a variable with a number of decimals, for good: 3.14159 with two becomes the text 3.14.
//
// `decimals` is the text of a box: what is no number counts as 0, what is not whole is rounded half to even, and one
// below 0 gives the general text of the number. Blank cells, missing ones and texts stay as they are. `target` is a
// copy of the column and takes the new cells; the number of rewritten ones is returned. Throws std::bad_alloc ahead of
// the first cell when the digits asked for cannot be held.
std::size_t ChangeDecimals(const DataMatrix& matrix, std::size_t column, std::size_t record_count,
                           const MissingValues& missing, std::string_view decimals, Column& target);

}  // namespace tessara
