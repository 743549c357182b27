#pragma once

#include <string_view>

#include "calculators/brevarum_panel.h"

// The way of Enter through the table of counts: from count to count, row by row, past labels and what is not used.

namespace tessara {

// The box behind the named one; kCalculateNext behind the last count. A row or column is in use when it has a label or
// a count. As long as the labels do not tell how many there will be, one more is offered: Enter in an empty box ends
// the first row, and in an empty row the table.
std::string_view BoxBehindInCounts(const BrevarumPanel& panel, std::string_view box);

}  // namespace tessara
