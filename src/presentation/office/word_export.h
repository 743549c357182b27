#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"
#include "presentation/chart_data.h"
#include "presentation/office/office_charts.h"
#include "presentation/table_grid.h"

// Output and summary table as a text document in "Courier New". Each routine is false when the file could not be
// written: a box has said so, and a file of that name is as it was. The same content makes the same bytes.

namespace tessara {

// A report text: each line a paragraph, page break marks as page breaks; the pictures behind it, each above its title.
bool PrintToWord(std::string_view text, const std::vector<ChartPicture>& pictures, const Path& path,
                 Platform& platform);

// The table: each row that is not empty a paragraph, its cells joined by tabs.
bool TableToWord(const TableGrid& grid, const std::vector<ChartPicture>& pictures, const Path& path,
                 Platform& platform);

}  // namespace tessara
