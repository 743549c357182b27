#include "procedures/compare/anova.h"

#include "numerics/masks.h"
#include "numerics/probability.h"
#include "numerics/report_text.h"
#include "procedures/cases/accepted_cases.h"

namespace tessara {
AnovaTable ComputeAnova(const GroupStats& stats) {
  AnovaTable table;
  Number n, total, of_groups;
  Number deviation;  // lives across the groups: that of a single case divides by 0 and keeps the one before it, or 0
  for (const GroupStats::Group& group : stats.groups) {
    n += group.n;
    table.within_squares += group.squares;
    total += group.n * group.mean;
    of_groups += Square(group.n * group.mean) / group.n;
    deviation = Sqrt(group.squares / (group.n - 1));
    table.deviations.push_back(deviation);
  }
  if (!stats.constant) table.between_squares = of_groups - Square(total) / n;  // else exactly 0
  if (table.between_squares < 0) table.between_squares = 0;                    // only rounding can bring it there

  table.between_df = static_cast<double>(stats.GroupCount()) - 1;
  table.within_df = n - (table.between_df + 1);
  table.total_df = table.between_df + table.within_df;
  if (table.between_df != 0) {  // a single group has neither mean square
    table.between_mean = table.between_squares / table.between_df;
    table.within_mean = table.within_squares / table.within_df;
  }
  table.f = table.between_mean / table.within_mean;
  table.total_squares = table.between_squares + table.within_squares;
  table.p = Computed(FDistP(table.between_df, table.within_df, table.f));
  return table;
}

std::vector<PostHocRow> ComputePostHoc(const GroupStats& stats) {
  const Number group_count = static_cast<double>(stats.GroupCount());
  const Number pair_count = group_count * (group_count - 1) / 2;
  std::vector<PostHocRow> rows;
  // These live across the pairs. Two single cases have no degree of freedom and keep deviation and p of the pair before
  // them; two groups without spread keep its t, and means that lie too far apart for a double its difference.
  Number difference, deviation, t, p;
  std::vector<StudentT> tests;  // of the first group of the pair with every other
  for (std::size_t i = 0; i < stats.GroupCount(); ++i) {
    tests.clear();
    for (std::size_t j = 0; j < stats.GroupCount(); ++j) {
      if (i == j) continue;
      const GroupStats::Group& first = stats.groups[i];
      const GroupStats::Group& second = stats.groups[j];
      difference = first.mean - second.mean;
      const Number df = (first.n - 1) + (second.n - 1);
      deviation = Sqrt((first.squares + second.squares) / df);
      const Number error = Sqrt(1 / first.n + 1 / second.n) * deviation;
      t = difference / error;
      rows.push_back({.first = i, .second = j, .difference = difference, .error = error, .p = {}});
      tests.push_back({.df = df, .t = t});
    }
    const std::vector<Checked> ps = TDistPs(tests);
    for (std::size_t k = 0; k < ps.size(); ++k) {
      p = ps[k] * pair_count;
      if (p > 1) p = 1;
      rows[rows.size() - ps.size() + k].p = p;
    }
  }
  return rows;
}

namespace {

std::string GroupSummary(const GroupStats& stats, const AnovaTable& table) {
  std::string text = "Group Summary Statistics\r\n\r\n";
  text += PadLeftBlank("Group", 20) + PadLeftBlank("N", 10) + PadLeftBlank("Mean", 15) + PadLeftBlank("Std. Dev.", 16) +
          "\r\n";
  text += DashedRule(64) + "\r\n";
  for (std::size_t i = 0; i < stats.GroupCount(); ++i) {
    const GroupStats::Group& group = stats.groups[i];
    text += PadLeftBlank(group.label, 20) + FormatCol(group.n, 10, 0) + FormatCol(group.mean, 16, 4) +
            FormatCol(table.deviations[i], 17, 4) + "\r\n";
  }
  return text;
}

std::string AnalysisOfVariance(const AnovaTable& table) {
  const auto squares = [](const Number& value) { return Blanks(6) + FormatCol(value, 15, 2) + " "; };
  const auto degrees = [](const Number& value) { return " " + FormatCol(value, 8, 0) + "    "; };
  const auto mean = [](const Number& value) { return " " + FormatCol(value, 15, 2); };
  std::string text = "Analysis of Variance\r\n\r\n";
  text += "                      Sum of Squares        df        Mean Squares \r\n";
  text += "                 -------------------    ------   -----------------\r\n";
  text += "Between Groups " + squares(table.between_squares) + degrees(table.between_df) + mean(table.between_mean) +
          "\r\n";
  text +=
      " Within Groups " + squares(table.within_squares) + degrees(table.within_df) + mean(table.within_mean) + "\r\n";
  text += "         Total " + squares(table.total_squares) + degrees(table.total_df) + "\r\n\r\n";
  text += "                    F Statistic             p <\r\n";
  text += "                  -------------          ------\r\n";
  text += "                " + FormatCol(table.f, 15, 2) + "          " + MaskedNumber(table.p.value_or(0), "0.0000") +
          "\r\n\r\n\r\n";
  return text;
}

std::string PostHocComparison(const GroupStats& stats) {
  std::string text = "\r\n\r\nBonferroni Post Hoc Comparison of Means (Assume homogeneity of variance)\r\n\r\n";
  if (!HasPostHocList(stats.GroupCount())) {
    return text + "There are too many groups for post hoc comparisons.\r\n";
  }
  text += PadLeftBlank("Group 1", 20) + PadLeftBlank("Group 2", 20) + PadLeftBlank("G1-G2", 13) +
          PadLeftBlank("SE", 12) + PadLeftBlank("p<", 9) + "\r\n";
  text += DashedRule(78) + "\r\n";
  for (const PostHocRow& row : ComputePostHoc(stats)) {
    text += PadLeftBlank(stats.groups[row.first].label, 20) + PadLeftBlank(stats.groups[row.second].label, 20) +
            FormatCol(row.difference, 13, 3) + FormatCol(row.error, 13, 3) + FormatCol(row.p, 10, 4) + "\r\n";
  }
  return text;
}

std::string AnovaReport(const CaseSource& source, const Roles& roles, const GroupStats& stats, const AnovaTable& table,
                        const AnovaOptions& options) {
  const DataSet& data = source.data;
  const std::size_t continuous = roles.main;
  const std::size_t categorical = roles.independent;
  std::string report = source.control.ControlCaption();
  report += "Analysis of Variance (ANOVA) --- " + data.VariableName(continuous) + " (Means)" +  //
            "  by  " + data.VariableName(categorical) + " (Groups)\r\n\r\n";
  report += "Independent Variable Label: " + data.VariableLabel(categorical) + "\r\n";
  report += "Dependent Variable Label: " + data.VariableLabel(continuous) + (options.summary ? "\r\n\r\n\r\n" : "\r\n");
  if (options.summary) report += GroupSummary(stats, table);
  report += "\r\n\r\n\r\n\r\n";
  report += AnalysisOfVariance(table);
  if (options.post_hoc) report += PostHocComparison(stats);
  return report;
}

}  // namespace

void RunAnova(ProcedureRun& run, const Roles& roles, const AnovaOptions& options) {
  if (roles.main < 1 || roles.independent < 1) {
    run.ReportError(ErrorMessage("ANOVA Comparison: ", NamesOfPair(run.data, roles.main, roles.independent),
                                 "You must select a dependent and independent variable."));
    return;
  }
  const CaseSource source = BeginCases(run);
  const std::optional<GroupStats> stats = RunGroupPass(run, source, roles);
  if (!stats) return;
  run.AppendReport(AnovaReport(source, roles, *stats, ComputeAnova(*stats), options));
}

}  // namespace tessara
