#include "procedures/cases/group_stats.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "numerics/case_values.h"
#include "numerics/product_sums.h"
#include "numerics/report_text.h"
#include "procedures/cases/accepted_cases.h"

namespace tessara {
namespace {

// The sum of term(i) within each group, in grid order. As in any sum over cases, a step that would leave the range of a
// double is abandoned alone, and only when one has failed is every step looked at.
template <typename Term>
std::vector<double> SumsByGroup(const GroupedCases& cases, Term term) {
  std::vector<double> sums(cases.labels.size());
  for (std::size_t i = 0; i < cases.values.size(); ++i) sums[cases.groups[i]] += term(i);
  if (AllFinite(sums)) return sums;
  sums.assign(sums.size(), 0);
  for (std::size_t i = 0; i < cases.values.size(); ++i) {
    double& sum = sums[cases.groups[i]];
    const double next = sum + term(i);
    if (std::isfinite(next)) sum = next;
  }
  return sums;
}

// A flag for each group, 1 when its values are not all the same one.
CaseFlags GroupsThatVary(const GroupedCases& cases) {
  std::vector<double> last(cases.labels.size());
  for (std::size_t i = 0; i < cases.values.size(); ++i) last[cases.groups[i]] = cases.values[i];
  CaseFlags varies(cases.labels.size());
  for (std::size_t i = 0; i < cases.values.size(); ++i) {
    varies[cases.groups[i]] |= static_cast<std::uint8_t>(cases.values[i] != last[cases.groups[i]]);
  }
  return varies;
}

}  // namespace

GroupedCases GatherGroups(const CaseSource& source, std::size_t continuous, std::size_t categorical) {
  const CodedColumn coded = ReadCodedColumn(source, categorical);
  CaseFlags accepted = PassingRecords(source);
  DropUnlessNumber(source, continuous, accepted);
  DropMissing(coded, accepted);
  Categories categories = MakeCategories(source.data, categorical, coded, accepted);

  const std::size_t n = CountCases(accepted);
  const std::vector<double>& numbers = source.data.matrix.Numbers(continuous, source.used.records).values;
  GroupedCases cases;
  cases.values.resize(n + 1);  // one place more for what is written behind the last accepted pair
  cases.groups.resize(n + 1);
  std::size_t place = 0;
  for (std::size_t record = 0; record < accepted.size(); ++record) {
    cases.values[place] = numbers[record];
    cases.groups[place] = categories.of_code[coded.codes[record]];
    place += accepted[record];
  }
  cases.values.resize(n);
  cases.groups.resize(n);
  for (Category& category : categories.list) {
    cases.labels.push_back(std::move(category.label));
    cases.categories.push_back(category.value);
  }
  return cases;
}

GroupStats ComputeGroupStats(GroupedCases cases) {
  const std::size_t group_count = cases.labels.size();
  std::vector<double> sizes(group_count);
  for (const std::uint32_t group : cases.groups) ++sizes[group];
  const std::vector<double> sums = SumsByGroup(cases, [&](std::size_t i) { return cases.values[i]; });
  std::vector<double> means(group_count);
  for (std::size_t group = 0; group < group_count; ++group) means[group] = sums[group] / sizes[group];
  const std::vector<double> squares = SumsByGroup(cases, [&](std::size_t i) {
    const double deviation = cases.values[i] - means[cases.groups[i]];
    return deviation * deviation;
  });
  const CaseFlags varies = GroupsThatVary(cases);

  GroupStats stats;
  stats.constant = AllEqual(cases.values);
  stats.groups.reserve(group_count);
  for (std::size_t group = 0; group < group_count; ++group) {
    const double group_squares = varies[group] != 0 ? squares[group] : 0;  // equal values have no deviation
    stats.groups.push_back({.label = std::move(cases.labels[group]),
                            .n = sizes[group],
                            .mean = means[group],
                            .squares = group_squares,
                            .sum = sums[group],
                            .value = cases.categories[group]});
  }
  return stats;
}

std::optional<GroupStats> RunGroupPass(ProcedureRun& run, const CaseSource& source, const Roles& roles) {
  GroupedCases cases = GatherGroups(source, roles.main, roles.independent);
  if (cases.values.empty()) {
    run.ReportError(ErrorMessage(kSummaryComparisonTitle, NamesOfPair(source.data, roles.main, roles.independent),
                                 "There are no observations."));
    return std::nullopt;
  }
  return ComputeGroupStats(std::move(cases));
}

}  // namespace tessara
