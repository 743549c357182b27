#pragma once

#include <cstddef>
#include <string_view>

#include "data/data_set.h"
#include "platform/platform.h"
#include "presentation/office/workbook.h"
#include "presentation/table_grid.h"

// Output, summary table and data as a spreadsheet file. Each routine is false when the file could not be written: a box
// has said so, and a file of that name is as it was. What a sheet cannot hold goes on in the next cell, row or sheet,
// and a note says so.

namespace tessara {

// A report text, converted by SheetText: a row for each line, a cell for each field.
bool PrintToExcel(std::string_view text, const Path& path, Platform& platform, const SheetLimits& limits = {});

// The table, cell by cell, as it is aligned. A leading blank is dropped.
bool TableToExcel(const TableGrid& grid, const Path& path, Platform& platform, const SheetLimits& limits = {});

// The names of the variables, and all records as they stand.
bool DataToExcel(const DataSet& data, const Path& path, Platform& platform, std::size_t selected_variables = 0,
                 const SheetLimits& limits = {});

// The box for a file that could not be written.
void ShowExportFailed(Messages& messages);

}  // namespace tessara
