#include "presentation/report_page.h"

#include <algorithm>
#include <utility>

#include "numerics/number_text.h"
#include "numerics/report_text.h"
#include "numerics/text.h"

namespace tessara {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr double kWidestTable = 148;  // characters
constexpr double kWidestUpright = 106;
constexpr double kWidestColumn = 200 * kCharacterWidth;

// A page of either orientation, in characters and lines.
struct PageForm {
  Orientation orientation;
  std::size_t margin;
  std::size_t line_width;
  std::size_t lines;
  double point_size;
};
constexpr PageForm kUpright = {Orientation::kPortrait, 2, 113 - 2, 67, 7.75};
constexpr PageForm kAcross = {Orientation::kLandscape, 6, 155 - 6, 47, 7.5};

void ReplaceAll(std::string& text, std::string_view find, std::string_view by) {
  for (std::size_t at = text.find(find); at != text.npos; at = text.find(find, at + by.size())) {
    text.replace(at, find.size(), by);
  }
}

// In characters. Divided once, so that widths that add up to a whole number of characters are that number.
double WidthOf(const TableGrid& grid) {
  double width = 0;
  for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) width += grid.Width(column);
  return width / kCharacterWidth;
}

std::size_t CharactersOf(const TableGrid& grid, std::size_t column) {
  return static_cast<std::size_t>(std::max(0.0, RoundHalfEven(grid.Width(column) / kCharacterWidth)));
}

// A row of the table as a line. A label leaves a blank ahead of the next column.
std::string RowLine(const TableGrid& grid, std::size_t row) {
  std::string line;
  for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) {
    const std::size_t width = CharactersOf(grid, column);
    const bool label = column <= kLabelColumns;
    const std::string_view text = std::string_view(grid.Text(row, column));
    const std::string_view shown = text.substr(0, label && width > 0 ? width - 1 : width);
    const std::string blanks(width - shown.size(), ' ');
    if (label) line.append(shown).append(blanks);
    if (!label) line.append(blanks).append(shown);
  }
  return line;
}

// Gathers the rows into pages between a head and a foot.
class ReportMaker {
 public:
  ReportMaker(const PageForm& form, const ReportPage& page, const CalendarDay& today)
      : form_(form), margin_(form.margin, ' ') {
    const std::string rule = margin_ + std::string(form.line_width, '_');
    head_ = Line(page.ReportHeaderAlign, page.ReportHeader, today);
    if (page.ReportHeaderRule) head_.append(kLineEnd).append(rule);
    head_.append(kLineEnd).append(kLineEnd).append(kLineEnd);
    if (page.ReportFooterRule) foot_.append(kLineEnd).append(kLineEnd).append(rule).append(kLineEnd);
    foot_.append(Line(page.ReportFooterAlign, page.ReportFooter, today));
    const std::size_t head_lines = page.ReportHeaderRule ? 4 : 3;
    const std::size_t foot_lines = page.ReportFooterRule ? 4 : 1;
    rows_of_page_ = form.lines - head_lines - foot_lines;
  }

  void AddRow(const std::string& line) {
    rows_.append(margin_).append(line).append(kLineEnd);
    if (++row_count_ == rows_of_page_) EndPage();
  }

  ReportPages TakePages() {
    if (row_count_ > 0) EndPage();
    return std::move(pages_);
  }

 private:
  std::string Line(TableAlignment align, std::string_view text, const CalendarDay& today) const {
    if (Trimmed(text).empty()) return {};
    return margin_ + FormatReportLine(align, form_.line_width, text, today);
  }

  void EndPage() {
    const std::string number = std::to_string(pages_.pages.size() + 1);
    std::string head = head_;
    std::string foot = foot_;
    ReplaceAll(head, kPageToken, number);
    ReplaceAll(foot, kPageToken, number);
    pages_.orientation = form_.orientation;
    pages_.pages.push_back(head + rows_ + foot);
    rows_.clear();
    row_count_ = 0;
  }

  const PageForm& form_;
  std::string margin_;
  std::string head_;
  std::string foot_;
  std::size_t rows_of_page_ = 0;
  std::string rows_;
  std::size_t row_count_ = 0;
  ReportPages pages_;
};

}  // namespace

std::string FormatReportLine(TableAlignment align, std::size_t width, std::string_view text, const CalendarDay& today) {
  std::string line(text);
  std::erase_if(line, [](char c) { return c == '\r' || c == '\n'; });
  line = Trimmed(line);
  ReplaceAll(line, kDateToken, ShortDate(today));
  if (line.size() >= width) return line.substr(0, width);
  const std::size_t free = width - line.size();
  switch (align) {
    case TableAlignment::kLeft:
      break;
    case TableAlignment::kRight:
      line.insert(0, free, ' ');
      break;
    case TableAlignment::kCentre:
      line.insert(0, static_cast<std::size_t>(RoundHalfEven(static_cast<double>(free) / 2)), ' ');
      break;
  }
  return line;
}

std::optional<ReportPages> MakeReportPages(const TableGrid& grid, const ReportPage& page, const CalendarDay& today) {
  const double total = WidthOf(grid);
  if (total > kWidestTable) return std::nullopt;
  const bool upright = static_cast<double>(kUpright.margin) + total <= kWidestUpright;
  ReportMaker maker(upright ? kUpright : kAcross, page, today);
  for (std::size_t row = 1; row <= grid.RowCount(); ++row) maker.AddRow(RowLine(grid, row));
  return maker.TakePages();
}

PrintJob JobOfReport(const ReportPages& pages) {
  const PageForm& form = pages.orientation == Orientation::kPortrait ? kUpright : kAcross;
  PrintJob job;
  job.title = "Summary Report";
  for (const std::string& page : pages.pages) {
    job.sheets.push_back({.text = page, .orientation = pages.orientation, .point_size = form.point_size});
  }
  return job;
}

std::optional<PrintJob> ReportJob(const TableGrid& grid, const ReportPage& page, Platform& platform) {
  if (grid.empty()) {
    platform.ShowMessage({"Print Aborted!", "There is no table to print."});
    return std::nullopt;
  }
  if (const auto pages = MakeReportPages(grid, page, platform.Now().date)) return JobOfReport(*pages);
  platform.ShowMessage({"Operation Aborted!",
                        "The output is too wide to print properly. Please reduce the column width, reanalyze using "
                        "fewer column categories, or export for further editing.  This operation truncates the end of "
                        "labels to fit the column."});
  return std::nullopt;
}

bool PrintReport(const TableGrid& grid, const ReportPage& page, Platform& platform) {
  const std::optional<PrintJob> copy = ReportJob(grid, page, platform);
  if (!copy) return false;
  const auto choice = platform.AskPrint({.title = "Print"});
  if (!choice) return false;
  PrintJob job = *copy;
  for (int i = 1; i < choice->copies; ++i)
    job.sheets.insert(job.sheets.end(), copy->sheets.begin(), copy->sheets.end());
  if (platform.Print(job)) return true;
  ShowReportPrinterError(platform);
  return false;
}

void ShowReportPrinterError(Messages& messages) {
  messages.ShowMessage({.title = "Printer Error",
                        .text =
                            "The printer is not accepting the print request. If the problem continues, you may want "
                            "to reinstall the printer software."});
}

bool EqualizeColumns(TableGrid& grid, std::string_view typed, Messages& messages) {
  const std::optional<double> width = ParseNumber(typed);
  if (!width) {
    messages.ShowMessage({"Entry Error", "You must enter a number to calculate.\r\n"});
    return false;
  }
  const double kept = std::clamp(*width, kCharacterWidth, kWidestColumn);
  for (std::size_t column = kLabelColumns + 1; column <= grid.ColumnCount(); ++column) grid.SetWidth(column, kept);
  return true;
}

}  // namespace tessara
