#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "numerics/dates.h"
#include "platform/platform.h"
#include "presentation/table_grid.h"

// The pages of a summary table on paper: its header and footer, which the user formats, and the lines of its pages.

namespace tessara {

inline constexpr const char* kUsualReportHeader = "Tessara Summary Report  #date#";
inline constexpr const char* kUsualReportFooter = "Page pg#";
// What stands for today's date and for the page's number in a header and a footer.
inline constexpr std::string_view kDateToken = "#date#";
inline constexpr std::string_view kPageToken = "pg#";

// Kept while the program runs.
struct ReportPage {
  std::string ReportHeader = kUsualReportHeader;
  std::string ReportFooter = kUsualReportFooter;
  TableAlignment ReportHeaderAlign = TableAlignment::kCentre;
  TableAlignment ReportFooterAlign = TableAlignment::kCentre;
  bool ReportHeaderRule = false;  // a line under the header
  bool ReportFooterRule = false;  // a line over the footer
};

// A header or footer as it stands on a line of so many characters: without line ends, trimmed, with the date in it. One
// that is too long is cut. The page's number is still a token.
std::string FormatReportLine(TableAlignment align, std::size_t width, std::string_view text, const CalendarDay& today);

struct ReportPages {
  Orientation orientation = Orientation::kPortrait;
  std::vector<std::string> pages;  // lines ended by CR LF, but for a last line
};

// The table's pages: upright where its columns fit there, else across. Nothing when it is too wide for both. A footer
// stands right below the last row.
std::optional<ReportPages> MakeReportPages(const TableGrid& grid, const ReportPage& page, const CalendarDay& today);

// The pages as sheets; those across have the smaller type.
PrintJob JobOfReport(const ReportPages& pages);

// What is to be printed of the table. Nothing, and a box that says why, when it cannot be printed as it is.
std::optional<PrintJob> ReportJob(const TableGrid& grid, const ReportPage& page, Platform& platform);
// Asks for the printer and prints the table. False when it was cancelled or refused.
bool PrintReport(const TableGrid& grid, const ReportPage& page, Platform& platform);
// The box for a printer that refuses a table.
void ShowReportPrinterError(Messages& messages);

// Gives every data column, from the third to the last, the width that was typed, in hundredths of a character but at
// least one character. False, and a box, when it is no number.
bool EqualizeColumns(TableGrid& grid, std::string_view typed, Messages& messages);

}  // namespace tessara
