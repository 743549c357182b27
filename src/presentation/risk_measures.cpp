#include "presentation/risk_measures.h"

#include <string_view>

#include "numerics/report_text.h"

namespace tessara {
namespace {

std::string RatioLine(std::string_view label, const RatioInterval& interval) {
  std::string line(label);
  if (interval.filled.value() != 0) {
    line += FormatCol(interval.ratio, 10, 3) + FormatCol(interval.standard_error, 10, 3) +
            FormatCol(interval.lower, 11, 3) + FormatCol(interval.upper, 11, 3);
  }
  return line + "\r\n";
}

}  // namespace

std::string RiskMeasuresText(const TableStatistics& statistics) {
  std::string text = "\r\n";
  text += "Risk Measures                     SE      95%LL      95%UL\r\n";
  text += DashedRule(59) + "\r\n";
  text += RatioLine("Odds Ratio      ", statistics.odds_ratio);
  text += RatioLine("Relative Risk   ", statistics.relative_risk);
  return text;
}

}  // namespace tessara
