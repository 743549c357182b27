#pragma once

#include <string>

#include "presentation/output_log.h"
#include "presentation/table_grid.h"

namespace tessara {

// A report text as tab-delimited text: runs of blanks and vertical bars become tabs, and every hyphen goes, rules and
// minus signs included.
std::string TabDelimited(std::string text);

// The rows of a table, each cell with a tab behind it and the last one of the row once more without. A tab or a line
// end within a cell is written as a blank.
std::string TableRowsText(const TableGrid& grid);
// Adds the table as tab-delimited text to the log and to the most recent output, and shows the text: no longer the
// table is the visible face. Where the memory does not suffice, std::bad_alloc leaves everything as it was.
void ConvertTableToTabDelimited(const TableGrid& grid, OutputLog& output);

// Converts the text of the box in place. Neither the log nor the most recent output gets anything from it.
void ConvertOutputToTabDelimited(OutputLog& output);

}  // namespace tessara
