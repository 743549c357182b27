#pragma once

#include <string>

#include "presentation/table_grid.h"

// The pages of a summary table on paper: its header and footer, which the user formats, and the lines of its pages.

namespace tessara {

inline constexpr const char* kUsualReportHeader = "Tessara Summary Report  #date#";
inline constexpr const char* kUsualReportFooter = "Page pg#";

// Kept while the program runs. In a header and a footer "#date#" stands for today's date and "pg#" for the page's
// number.
struct ReportPage {
  std::string ReportHeader = kUsualReportHeader;
  std::string ReportFooter = kUsualReportFooter;
  TableAlignment ReportHeaderAlign = TableAlignment::kCentre;
  TableAlignment ReportFooterAlign = TableAlignment::kCentre;
  bool ReportHeaderRule = false;
  bool ReportFooterRule = false;
};

}  // namespace tessara
