#include "procedures/tables/explore.h"

#include <optional>
#include <utility>

#include "numerics/report_text.h"
#include "presentation/output_log.h"
#include "procedures/cases/accepted_cases.h"

namespace tessara {
namespace {

constexpr int kRuleLength = 80;

// Puts the entries of one variable into the table, the first of them with its name.
class EntriesOfVariable {
 public:
  EntriesOfVariable(ExploreTable& table, std::string name) : table_(table), name_(std::move(name)) {}

  void Add(std::string category, const CaseSummary& summary) {
    if (table_.size() >= kMostExploreEntries) return;
    table_.push_back({std::exchange(name_, {}), std::move(category), summary});
  }

 private:
  ExploreTable& table_;
  std::string name_;  // empty behind the first entry
};

void ExplorePair(ProcedureRun& run, const CaseSource& source, const Roles& roles, EntriesOfVariable& entries) {
  const std::optional<GroupStats> stats = RunGroupPass(run, source, roles);
  if (!stats) return;
  if (stats->GroupCount() > kMostExploreCategories) {
    run.ReportError(ErrorMessage(kSummaryComparisonTitle, NamesOfPair(run.data, roles.main, roles.independent),
                                 "There are too many categories."));
    return;
  }
  for (const GroupStats::Group& group : stats->groups) {
    if (group.n < 2) {
      ReportTooFewObservations(run, roles.main);
    } else {
      entries.Add(group.label, SummaryOf(group));
    }
  }
}

std::string Title(std::string_view control_label) {
  std::string title = "Explore Descriptive Statistics by Subgroup\r\n";
  if (!control_label.empty()) title.append(control_label).append(kLineEnd);
  return title;
}

std::string EntryBlock(const ExploreEntry& entry) {
  const CaseSummary& s = entry.summary;
  const auto value = [](const Number& number) { return FormatCol(number, 22, 4); };
  Number population_deviation;
  population_deviation = Sqrt(Square(s.deviation) * (s.n - 1) / s.n);
  Number coefficient;
  if (s.mean != 0 && s.deviation != 0) coefficient = (s.deviation / s.mean) * 100;
  std::string text = "Category:  " + entry.category + "\r\n";
  text += DashedRule(kRuleLength) + "\r\n";
  text += "Count          " + FormatCol(s.n, 17, 0) + "          " + "Standard Error  " + value(s.error) + "\r\n";
  text += "Sum            " + value(s.sum) + "     " + "95% CI (+/-)    " + value(s.interval) + "\r\n";
  text += "Mean           " + value(s.mean) + "     " + "95% Lower Limit " + value(s.mean - s.interval) + "\r\n";
  text += "Pop Std Dev    " + value(population_deviation) + "     " + "95% Upper Limit " + value(s.mean + s.interval) +
          "\r\n";
  text += "Sample Std Dev " + value(s.deviation) + "     " + "Coeff of Variation (CV%)" +
          FormatCol(coefficient, 14, 4) + "\r\n";
  return text + "\r\n";
}

}  // namespace

bool MayExploreOn(const ExploreTable& table, Platform& platform) {
  if (table.size() <= kMostEntriesAhead) return true;
  platform.ShowMessage({"Explore Procedure Aborted",
                        "The maximum number of category analyses allowed for the Explore\r\n"
                        "procedure has been exceeded. Try reducing the number of categories\r\n"
                        "by removing one or more continuous or categorical variables."});
  return false;
}

void ExploreVariable(ProcedureRun& run, std::size_t continuous, const std::vector<std::size_t>& categorical,
                     ExploreTable& table) {
  const CaseSource source = BeginCases(run);
  EntriesOfVariable entries(table, run.data.VariableName(continuous));
  if (std::optional<DescriptiveCases> cases = RunDescriptivePass(run, source, continuous)) {
    entries.Add("All", SummaryOf(ComputeDescriptives(*cases)));
  }
  for (const std::size_t column : categorical) {
    ExplorePair(run, source, {.main = continuous, .independent = column}, entries);
  }
}

std::string ExploreReport(const ExploreTable& table, std::string_view control_label) {
  std::string report = Title(control_label);
  bool first = true;
  for (const ExploreEntry& entry : table) {
    if (entry.variable.empty()) {
      report += "\r\n";
    } else {
      if (!first) report += std::string(kReportSeparator) + Title(control_label);
      report += "Variable:  " + entry.variable + "\r\n\r\n";
    }
    first = false;
    report += EntryBlock(entry);
  }
  return report + "\r\n\r\n";
}

}  // namespace tessara
