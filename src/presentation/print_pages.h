#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "numerics/dates.h"
#include "platform/platform.h"
#include "presentation/output_log.h"

// The printed pages of the output text.

namespace tessara {

struct PrintOptions {
  bool date = true;           // today's date in the head of a page
  bool notes_caption = true;  // room for notes below a report
};

// One text for each page, lines ended by CR LF. A text without a page break mark is one page as it stands; otherwise
// the pages run up to the last mark, each with its head, and text behind that mark is not printed. Blocks of 67 lines
// and more are cut after every 66th line.
std::vector<std::string> OutputPages(std::string_view text, const PrintOptions& options, const CalendarDay& today);

// The box for a printer that refuses, whatever was to be printed.
void ShowPrinterError(Messages& messages);

// Asks for the printer and prints the text of the box, each copy anew; a text without a mark is printed once, whatever
// the number of copies. False when it was cancelled or the printer refused.
bool PrintOutput(const OutputLog& output, Platform& platform, const PrintOptions& options, bool box_has_selection);

}  // namespace tessara
