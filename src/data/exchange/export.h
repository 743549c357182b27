#pragma once

#include <cstddef>

#include "data/data_set.h"
#include "platform/platform.h"

// Export as delimited text: the names, then all records as they stand, without quoting.

namespace tessara {

// What an export begins with.
void ShowExportReminder(Messages& messages);

// False when the file could not be written: a box has said so, and the old file is as it was.
bool ExportText(const DataSet& data, Platform& platform, const Path& path, char delimiter,
                std::size_t selected_variables = 0);

}  // namespace tessara
