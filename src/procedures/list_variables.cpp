#include "procedures/list_variables.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"
#include "procedures/accepted_cases.h"

namespace tessara {
namespace {

constexpr int kRuleLength = 96;
constexpr std::array<std::size_t, kMostListedVariables + 1> kWidths = {0, 70, 35, 25, 19, 16, 13, 11};

// Behind two blanks, right-aligned in a width, cut when longer.
void AppendPlace(std::string& line, std::string_view text, std::size_t width) {
  text = text.substr(0, width);
  line.append(2 + width - text.size(), ' ').append(text);
}

// The places without a variable are two blanks each.
void AppendUnusedPlaces(std::string& line, std::size_t variables) {
  line.append(2 * (kMostListedVariables - variables), ' ');
}

// The greatest number of lines. A text that is not numeric fails the conversion: the limit stays 0, and nothing is
// listed.
Number LineLimit(const std::string& max_observations, std::size_t record_count) {
  if (max_observations.empty()) return static_cast<double>(record_count);
  return ToNumber(max_observations);
}

// The listed lines: cells as they stand, missing values too.
std::string ListedLines(const DataSet& data, const CaseFlags& passing, std::span<const std::size_t> columns,
                        double limit) {
  const std::size_t width = kWidths[columns.size()];
  std::size_t most = CountCases(passing);
  if (limit < static_cast<double>(most)) most = static_cast<std::size_t>(std::max(limit, 0.0));
  std::string lines;
  lines.reserve(most * (sizeof("0000000\r\n") + 2 * kMostListedVariables + columns.size() * width));
  NumberBuffer buffer;
  std::size_t listed = 0;
  for (std::size_t record = 0; record < passing.size() && listed < most; ++record) {
    if (passing[record] == 0) continue;  // does not count toward the limit
    ++listed;
    AppendMasked(static_cast<double>(listed), "00000", lines);
    for (const std::size_t column : columns) {
      AppendPlace(lines, TextOf(data.matrix.Cell(kFirstRecordRow + record, column), buffer), width);
    }
    AppendUnusedPlaces(lines, columns.size());
    lines += "\r\n";
  }
  return lines;
}

std::string ListReport(const DataSet& data, const CaseControl& control, std::span<const std::size_t> columns,
                       double limit) {
  std::string report = control.ControlCaption();
  report += "List Variables\r\n\r\n";
  report += "  Obs";
  for (const std::size_t column : columns) AppendPlace(report, data.VariableName(column), kWidths[columns.size()]);
  AppendUnusedPlaces(report, columns.size());
  report += "\r\n" + DashedRule(kRuleLength) + "\r\n";
  report += ListedLines(data, PassingRecords(data, control), columns, limit);
  report += DashedRule(kRuleLength) + "\r\n\r\n\r\n";
  return report;
}

}  // namespace

void RunListVariables(ProcedureRun& run) {
  if (run.panel.SelectedVariables.empty()) {
    run.platform.ShowMessage({"Procedure Aborted", "You must select at least one variable."});
    return;
  }
  DataSet& data = run.data;
  const RunCases begun(run);
  // The panel takes no eighth variable, but a longer list may stand from another procedure: a line has seven places.
  const auto columns =
      std::span(run.panel.SelectedVariables).first(std::min(run.panel.SelectedVariables.size(), kMostListedVariables));
  const Number limit = LineLimit(run.panel.Text7, data.RecordCount);
  run.AppendReport(ListReport(data, begun.control, columns, limit.value()));
}

}  // namespace tessara
