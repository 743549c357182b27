#include "presentation/office/word_text.h"

#include <algorithm>
#include <cmath>

#include "presentation/office/xml_text.h"
#include "presentation/output_log.h"

namespace tessara {
namespace {

constexpr int kPaperShort = 11906;  // A4, in twentieths of a point; other paper is as high or wider
constexpr int kPaperLong = 16838;
constexpr int kMargin = 720;
constexpr int kSmallestType = 9;        // half points
constexpr int kAdvanceOfHalfPoint = 6;  // of a character, which is three fifths as wide as the type is high
constexpr std::size_t kTabStop = 8;
constexpr std::size_t kGapOfColumns = 2;
constexpr std::size_t kMostTabStops = 63;  // of a paragraph
constexpr std::size_t kFarthestTabStop = 31680;
constexpr std::size_t kStretch = std::size_t{1} << 14;

std::size_t EndOfLine(std::string_view text, std::size_t at) {
  return std::min(text.find_first_of("\r\n", at), text.size());
}

// The place behind a line end: CR LF, or one of both alone.
std::size_t BehindLineEnd(std::string_view text, std::size_t end) {
  return end + (text.substr(end).starts_with("\r\n") ? 2 : 1);
}

std::size_t ColumnsOf(std::string_view line) {
  std::size_t columns = 0;
  for (const char c : line) columns = c == '\t' ? (columns / kTabStop + 1) * kTabStop : columns + 1;
  return columns;
}

std::size_t LongestLine(std::string_view text) {
  std::size_t longest = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = EndOfLine(text, at);
    longest = std::max(longest, ColumnsOf(text.substr(at, end - at)));
    at = end == text.size() ? end : BehindLineEnd(text, end);
  }
  return longest;
}

std::string RunStart(int type) {
  if (type == kWordType) return "<w:r>";
  const std::string size = std::to_string(type);
  return "<w:r><w:rPr><w:sz w:val=\"" + size + "\"/><w:szCs w:val=\"" + size + "\"/></w:rPr>";
}

void AppendText(std::string_view text, int type, std::string& xml) {
  if (text.empty()) return;
  xml += RunStart(type) + "<w:t xml:space=\"preserve\">";
  AppendXmlText(text, xml);
  xml += "</w:t></w:r>";
}

const char* StopOf(TableAlignment alignment) {
  switch (alignment) {
    case TableAlignment::kLeft:
      return "left";
    case TableAlignment::kCentre:
      return "center";
    case TableAlignment::kRight:
      return "right";
  }
  return "left";
}

// Where each column starts: as wide as the grid has it, and no narrower than its longest text.
std::vector<std::size_t> StartsOfColumns(const TableGrid& grid) {
  std::vector<std::size_t> starts = {0};
  for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) {
    auto width = static_cast<std::size_t>(std::ceil(std::clamp(grid.Width(column) / kCharacterWidth, 0.0, 1e6)));
    for (std::size_t row = 1; row <= grid.RowCount(); ++row) {
      width = std::max(width, grid.Text(row, column).size() + kGapOfColumns);
    }
    starts.push_back(starts.back() + width);
  }
  return starts;
}

}  // namespace

int WordPage::TextWidth() const { return width - 2 * kMargin; }

WordPage PortraitPage() { return {.width = kPaperShort, .height = kPaperLong, .is_landscape = false}; }
WordPage LandscapePage() { return {.width = kPaperLong, .height = kPaperShort, .is_landscape = true}; }

int TypeForColumns(const WordPage& page, std::size_t columns) {
  if (columns == 0) return kWordType;
  const std::size_t fitting = static_cast<std::size_t>(page.TextWidth()) / kAdvanceOfHalfPoint / columns;
  return std::clamp(static_cast<int>(fitting), kSmallestType, kWordType);
}

void ReportParagraphs::Restart() {
  at_ = 0;
  in_line_ = false;
  at_end_ = false;
  BeginPage();
}

// The type of the page that starts here.
void ReportParagraphs::BeginPage() {
  const std::size_t mark = text_.find(kPageBreak, at_);
  type_ = TypeForColumns(page_, LongestLine(text_.substr(at_, mark == text_.npos ? mark : mark - at_)));
}

bool ReportParagraphs::Next(std::string& xml) {
  const std::size_t full = xml.size() + kStretch;
  if (at_end_) return false;
  while (!at_end_ && xml.size() < full) in_line_ ? TakeStretch(xml) : BeginLine(xml);
  return true;
}

void ReportParagraphs::BeginLine(std::string& xml) {
  line_end_ = EndOfLine(text_, at_);
  in_line_ = line_end_ > at_;
  if (in_line_) {
    xml += "<w:p>";
    return;
  }
  xml += "<w:p/>";
  at_end_ = line_end_ == text_.size();
  if (!at_end_) at_ = BehindLineEnd(text_, line_end_);
}

void ReportParagraphs::TakeStretch(std::string& xml) {
  const std::string_view rest = text_.substr(at_, line_end_ - at_);
  if (rest.empty()) {
    xml += "</w:p>";
    in_line_ = false;
    at_end_ = line_end_ == text_.size();
    if (!at_end_) at_ = BehindLineEnd(text_, line_end_);
  } else if (rest.starts_with(kPageBreak)) {
    xml += "<w:r><w:br w:type=\"page\"/></w:r>";
    at_ += kPageBreak.size();
    BeginPage();
  } else if (rest.front() == '\t') {
    xml += RunStart(type_) + "<w:tab/></w:r>";
    ++at_;
  } else {
    const std::string_view stretch = rest.substr(0, kStretch);
    std::size_t end = std::min(stretch.find('\t'), stretch.size());
    for (std::size_t mark = stretch.find('<', 1); mark < end; mark = stretch.find('<', mark + 1)) {
      if (rest.substr(mark).starts_with(kPageBreak)) end = mark;
    }
    AppendText(rest.substr(0, end), type_, xml);
    at_ += end;
  }
}

TableParagraphs::TableParagraphs(const TableGrid& grid)
    : grid_(grid), starts_(StartsOfColumns(grid)), page_(PortraitPage()) {
  if (TypeForColumns(page_, starts_.back()) < kWordType) page_ = LandscapePage();
  type_ = TypeForColumns(page_, starts_.back());
}

bool TableParagraphs::Next(std::string& xml) {
  while (row_ < grid_.RowCount()) {
    ++row_;
    if (IsEmpty(row_)) continue;
    AppendRow(row_, xml);
    return true;
  }
  return false;
}

bool TableParagraphs::IsEmpty(std::size_t row) const {
  for (std::size_t column = 1; column <= grid_.ColumnCount(); ++column) {
    if (!grid_.Text(row, column).empty()) return false;
  }
  return true;
}

void TableParagraphs::AppendTabStops(std::size_t row, std::string& xml) const {
  xml += "<w:pPr><w:tabs>";
  for (std::size_t column = 2; column <= std::min(grid_.ColumnCount(), kMostTabStops); ++column) {
    const TableAlignment alignment = grid_.Cell(row, column).alignment;
    const std::size_t start = starts_[column - 1];
    const std::size_t end = starts_[column];
    std::size_t twice = 2 * start;  // twice the place, so that a middle is exact
    if (alignment == TableAlignment::kRight) twice = 2 * end;
    if (alignment == TableAlignment::kCentre) twice = start + end;
    const std::size_t place =
        std::min(twice * kAdvanceOfHalfPoint * static_cast<std::size_t>(type_) / 2, kFarthestTabStop);
    xml += "<w:tab w:val=\"" + std::string(StopOf(alignment)) + "\" w:pos=\"" + std::to_string(place) + "\"/>";
  }
  xml += "</w:tabs></w:pPr>";
}

void TableParagraphs::AppendRow(std::size_t row, std::string& xml) const {
  xml += "<w:p>";
  if (grid_.ColumnCount() > 1) AppendTabStops(row, xml);
  for (std::size_t column = 1; column <= grid_.ColumnCount(); ++column) {
    if (column > 1) xml += RunStart(type_) + "<w:tab/></w:r>";
    AppendText(grid_.Text(row, column), type_, xml);
  }
  xml += "</w:p>";
}

}  // namespace tessara
