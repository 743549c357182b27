#include "procedures/describe/list_variables.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "numerics/number_text.h"
#include "numerics/report_text.h"
#include "procedures/cases/accepted_cases.h"

namespace tessara {
namespace {

constexpr std::array<std::size_t, kMostListedVariables + 1> kWidths = {0, 70, 35, 25, 19, 16, 13, 11};

// The layout of a line: its seven places behind the number. A place without a variable is two blanks.
class ListLine {
 public:
  explicit ListLine(std::size_t variables)
      : width_(kWidths[variables]), length_(2 * kMostListedVariables + variables * width_) {}

  std::size_t length() const { return length_; }

  // Begins the places of a line, all blank, at the end of `text`.
  void Begin(std::string& text) {
    place_ = text.size();
    text.append(length_, ' ');
  }
  // Fills the next place: two blanks, then the cell, cut when it is longer than the place and else right-aligned.
  void Fill(std::string& text, std::string_view cell) {
    place_ += 2 + width_;
    const std::size_t shown = std::min(cell.size(), width_);
    std::copy_n(cell.data(), shown, text.data() + place_ - shown);
  }

 private:
  std::size_t width_;
  std::size_t length_;
  std::size_t place_ = 0;
};

// A line's number under the mask "00000".
void AppendLineNumber(std::string& text, std::size_t number) {
  constexpr std::size_t kDigits = 5;
  std::array<char, 20> digits;
  const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  const std::size_t count = static_cast<std::size_t>(end - digits.data());
  if (count < kDigits) text.append(kDigits - count, '0');
  text.append(digits.data(), count);
}

// The greatest number of lines, a whole number. A text that is not numeric fails the conversion: the limit stays 0, and
// nothing is listed.
Number LineLimit(const std::string& max_observations, std::size_t record_count) {
  if (max_observations.empty()) return static_cast<double>(record_count);
  const Number typed = ToNumber(max_observations);
  return RoundHalfEven(typed.value());
}

// How many of the passing records are listed.
std::size_t CountListed(const CaseFlags& passing, double limit) {
  const std::size_t count = CountCases(passing);
  if (limit >= static_cast<double>(count)) return count;
  return static_cast<std::size_t>(std::max(limit, 0.0));
}

// The lines: cells as they stand, missing values too. Written straight into the report: a second copy of a million
// lines costs more time than the lines.
void AppendLines(std::string& report, const DataMatrix& matrix, const CaseFlags& passing,
                 std::span<const std::size_t> columns, std::size_t most) {
  ListLine line(columns.size());
  NumberBuffer buffer;
  std::size_t listed = 0;
  for (std::size_t record = 0; listed < most; ++record) {
    if (passing[record] == 0) continue;  // does not count toward the limit
    AppendLineNumber(report, ++listed);
    line.Begin(report);
    for (const std::size_t column : columns) {
      line.Fill(report, TextOf(matrix.Cell(kFirstRecordRow + record, column), buffer));
    }
    report += "\r\n";
  }
}

std::string ListReport(const CaseSource& source, std::span<const std::size_t> columns, double limit) {
  constexpr std::size_t kNumberAndLineEnd = 9;
  const CaseFlags passing = PassingRecords(source);
  const std::size_t most = CountListed(passing, limit);
  const std::string rule = DashedRule(96) + "\r\n";
  ListLine line(columns.size());

  std::string report = source.control.ControlCaption();
  report.reserve(report.size() + 1000 + most * (kNumberAndLineEnd + line.length()));
  report += "List Variables\r\n\r\n";
  report += "  Obs";
  line.Begin(report);
  for (const std::size_t column : columns) line.Fill(report, source.data.VariableName(column));
  report += "\r\n" + rule;
  AppendLines(report, source.data.matrix, passing, columns, most);
  report += rule + "\r\n\r\n";
  return report;
}

}  // namespace

void RunListVariables(ProcedureRun& run, std::span<const std::size_t> variables, const ListOptions& options) {
  if (variables.empty()) {
    run.platform.ShowMessage({"Procedure Aborted", "You must select at least one variable."});
    return;
  }
  const CaseSource source = BeginCases(run);
  // The panel takes no eighth variable, but a longer list may stand from another procedure: a line has seven places.
  const auto columns = variables.first(std::min(variables.size(), kMostListedVariables));
  const Number limit = LineLimit(options.max_observations, source.used.records);
  run.AppendReport(ListReport(source, columns, limit.value()));
}

}  // namespace tessara
